#pragma once

#include <string>
#include <string_view>

namespace TSExtensions {

/// A title from a text: each word between single spaces that has no capital letter gets one, by the rules of
/// the user's language; a word that has one stays as it is, so that "iPhone" and "NASA" do.
[[nodiscard]] std::u16string smartCapitalizedString(std::u16string_view text);

} // namespace TSExtensions
