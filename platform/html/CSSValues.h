#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The pieces that values in style sheets and attributes are made of. Texts are ASCII but for strings and
/// family names, which are UTF-8.

/// Without the white space at both ends.
[[nodiscard]] std::string_view trimmedCSS(std::string_view text);

[[nodiscard]] std::string inASCIILowerCase(std::string_view text);

/// The words between white space; text in parentheses or quotes is one word with what touches it.
[[nodiscard]] std::vector<std::string_view> cssWords(std::string_view text);

/// The pieces between `separator`s that stand outside parentheses and quotes, trimmed.
[[nodiscard]] std::vector<std::string_view> cssPieces(std::string_view text, char separator);

/// A number with the unit behind it, in lower case; the unit is "%" or empty too.
struct CSSNumber {
    double value = 0;
    std::string unit;
};

/// None when the text is not one number with its unit, or the number is not finite.
[[nodiscard]] std::optional<CSSNumber> cssNumber(std::string_view text);

/// What relative lengths are relative to, in points.
struct CSSLengthContext {
    double fontSize = 12;
    double rootFontSize = 12;
};

/// A length in points, of which a pixel of a style sheet is one, as on the platform. None for percentages,
/// for a number without a unit unless it is 0, and for what is no length.
[[nodiscard]] std::optional<double> cssLength(std::string_view text, const CSSLengthContext& context);

/// At most three decimal places, and within 100,000; 0 for what is no number.
[[nodiscard]] std::string cssNumberText(double value);

/// "12px".
[[nodiscard]] std::string cssPixels(double value);
