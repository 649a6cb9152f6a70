#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// What a character reference in HTML stands for. `name` is what follows the ampersand, letters, digits and
/// the number sign only; `isTerminated` tells whether a semicolon followed, which is not part of it.
///
/// What stands for nothing comes back as it was written. Without a semicolon only the names of Latin-1's
/// characters count, and what follows such a name stays: "&copy2024" gives "©2024".
[[nodiscard]] std::string decodedCharacterReference(std::string_view name, bool isTerminated);

/// `text` with its references decoded.
[[nodiscard]] std::string decodedCharacterReferences(std::string_view text);

/// Whether a byte may stand in a reference behind its ampersand.
[[nodiscard]] constexpr bool isReferenceByte(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9')
        || byte == '#';
}

/// References are shorter than this: longer names are no references.
inline constexpr std::size_t kReferenceByteCount = 32;
