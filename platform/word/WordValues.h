#pragma once

#include "platform/media/XMLTextStream.h"

#include <cstdint>
#include <optional>
#include <string_view>

/// The values that attributes of WordprocessingML have. What is no value of its kind is none.

/// Whether a property that is there is on: with no value of its own it is.
[[nodiscard]] bool isWordPropertyOn(const XMLAttributes& attributes);

/// Whether the value of an attribute that is off by default is on.
[[nodiscard]] bool isWordValueOn(std::string_view value);

/// A whole number, held within -1,000,000 and 1,000,000.
[[nodiscard]] std::optional<int> wordInteger(std::string_view text);

/// A length in points: of a number that counts twentieths of a point, or of one with its unit ("2.5cm"). Held
/// within 100,000 points in both directions.
[[nodiscard]] std::optional<double> wordLength(std::string_view text);

/// The same of a number that counts `unitsPerPoint`.
[[nodiscard]] std::optional<double> wordLength(std::string_view text, double unitsPerPoint);

/// A colour that text or its ground has; automatic stands for that of the reader.
struct WordColor {
    bool isAutomatic = true;
    std::uint32_t rgb = 0;

    friend auto operator<=>(const WordColor&, const WordColor&) = default;
};

/// Six hexadecimal digits, or "auto".
[[nodiscard]] std::optional<WordColor> wordColor(std::string_view text);

/// One of the sixteen colours of a highlighter by name; "none" is automatic.
[[nodiscard]] std::optional<WordColor> wordHighlight(std::string_view name);
