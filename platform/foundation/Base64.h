#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Base64 of the bytes, without line breaks.
[[nodiscard]] std::string base64EncodedString(std::string_view bytes);

/// The bytes that a Base64 text stands for. White space is skipped and the padding may be missing; any other
/// character outside of the alphabet, or a lone last digit, makes it none.
[[nodiscard]] std::optional<std::string> bytesFromBase64(std::string_view text);
