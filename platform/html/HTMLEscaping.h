#pragma once

#include <string>
#include <string_view>

/// Appends text as UTF-8, with what HTML gives a meaning (& < >) as references. Control characters other than
/// the tab and code points that are no characters are left out; unpaired surrogates become U+FFFD.
void appendHTMLText(std::string& html, std::u16string_view text);

/// The same for a value that stands between double quotes.
[[nodiscard]] std::string htmlAttributeValue(std::u16string_view value);
