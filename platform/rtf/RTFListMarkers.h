#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// How markers of lists are told in RTF.

/// Lists of RTF have levels 0 to 8.
inline constexpr std::size_t kMostListLevels = 9;

/// The number (\levelnfc) by which other readers know a kind of marker. Those of one sign share theirs.
inline constexpr std::int32_t kSignMarker = 23;
inline constexpr std::int32_t kNoMarker = 255;

/// A token of a marker format.
struct RTFListMarker {
    std::u16string_view token;
    std::int32_t number;
    /// Of markers of one sign; else 0.
    char16_t sign;
};

/// The marker whose token the format holds; null for none.
[[nodiscard]] const RTFListMarker* listMarkerOfFormat(std::u16string_view format);

/// The token of a kind of marker that counts: that of plain numbers for one that is not known.
[[nodiscard]] std::u16string_view tokenOfListNumber(std::int32_t number);

/// The token of a marker's sign, as the platform and other writers have it; none for other signs.
[[nodiscard]] std::optional<std::u16string_view> tokenOfListSign(char16_t sign);

/// The length of the marker that a list's paragraph begins with: a tab, a few characters without blanks, and
/// a tab. 0 for none.
[[nodiscard]] std::size_t listMarkerLength(std::u16string_view paragraph);
