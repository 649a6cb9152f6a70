#pragma once

#include "styles/CVLNoteTextStyle.h"

#include <optional>
#include <string>

/// What `corvel style set` and `corvel style add` can change in a style. What was not given stays.
struct StyleChanges {
    /// A PostScript name or a family: "Menlo-Regular", "Menlo".
    std::optional<std::string> font;
    /// Points.
    std::optional<double> size;
    /// "#rrggbb", or "none" for the text colour.
    std::optional<std::string> colour;
    std::optional<NSInteger> underline;
    std::optional<NSInteger> strikethrough;
    /// Points.
    std::optional<double> lineSpacing;
    std::optional<double> paragraphSpacing;

    [[nodiscard]] bool operator==(const StyleChanges&) const = default;
};

/// Makes the changes. False, with the reason in `reason` and the style untouched, when there is no such font
/// or colour.
[[nodiscard]] bool applyChanges(const StyleChanges& changes, CVLNoteTextStyle& style, std::string& reason);

/// "#rrggbb"; "text" for the colour of text, which depends on the appearance.
[[nodiscard]] std::string colourText(const CVLNoteTextStyle& style);

/// One line of the list of styles: an asterisk for the default style, identifier, font, size, colour, name,
/// and in brackets what else is set.
[[nodiscard]] std::string styleListLine(const CVLNoteTextStyle& style, bool isDefault);

/// All fields of a style, a line each.
[[nodiscard]] std::string styleText(const CVLNoteTextStyle& style, bool isDefault);

/// The style as one JSON object on one line.
[[nodiscard]] std::string styleLine(const CVLNoteTextStyle& style, bool isDefault);
