#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The form in which an index keeps the text of a document: one byte that names the form, then the text
/// itself (0) or a zstd frame of it (1).
namespace StoredText {

/// Longer texts are not stored; it also bounds what a damaged record can ask for.
inline constexpr std::size_t kMaximumByteCount = std::size_t{64} << 20;

[[nodiscard]] std::string pack(std::string_view text);
/// None when `record` is damaged.
[[nodiscard]] std::optional<std::string> unpack(std::string_view record);

} // namespace StoredText
