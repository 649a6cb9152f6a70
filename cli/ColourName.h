#pragma once

#include "platform/text/NSColor.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A colour as a person names it.
struct NamedColour {
    /// The name in full: "textColor", "YellowHighlightColor", "Crayons/Snow"; the digits for a colour given
    /// by them.
    std::u16string name;
    NSColor::Ref color;
};

/// The colour that `text` names, whatever its case, with or without blanks, dashes and the ending "Color":
/// "#rgb", "#rrggbb" or "#rrggbbaa"; a system colour; one of the application's own, as "yellow highlight"; a
/// colour of a list, as "Snow" or "Crayons/Snow". None when there is no such colour.
[[nodiscard]] std::optional<NamedColour> colourNamed(std::string_view text);

/// Every colour that `colourNamed` knows by a name.
[[nodiscard]] std::vector<NamedColour> namedColours();

/// Their names, in full and in the same order.
[[nodiscard]] std::vector<std::u16string> colourNames();
