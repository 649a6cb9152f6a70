#pragma once

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// The encoding of a text as its bytes tell it.
struct TextEncoding {
    /// A charset name that TextDecoder takes.
    std::string name;
    /// Bytes at the start that are no text but a byte-order mark.
    std::size_t markLength = 0;
    /// False when the encoding was guessed from the letters it gives.
    bool isSure = true;
};

/// What a text editor takes `bytes` for when it opens them: by byte-order mark, as UTF-8, by the pattern of
/// zero bytes, by the escape sequences of ISO 2022, by a declaration in the text (XML, HTML, "coding:"), and
/// last by the letters that the encodings in use give. With `isWholeText` false the last character may be
/// cut. Costs a pass over the bytes; guessing looks at 16 KB of them at most.
[[nodiscard]] TextEncoding textEncodingForBytes(std::string_view bytes, bool isWholeText = true);

/// The same without the last: none where it would be guessed, which takes by far the longest.
[[nodiscard]] std::optional<TextEncoding> sureTextEncodingForBytes(std::string_view bytes,
                                                                   bool isWholeText = true);

/// `bytes` as UTF-8, by the encoding they seem to be in. Never fails: what has no meaning becomes U+FFFD.
[[nodiscard]] std::string decodedText(std::string_view bytes);

/// `bytes` as UTF-8, by a charset name as TextDecoder takes it; none when the name means nothing. A
/// byte-order mark wins over the name and is not part of the text.
[[nodiscard]] std::optional<std::string> decodedText(std::string_view bytes, std::string_view charsetName);

/// Reads a text file whose encoding is beyond doubt. None, with the reason in `error`, when the file cannot
/// be read or its bytes leave a doubt; then stringEncodingForData may still make something of them. Reads
/// `maximumByteCount` bytes at most.
[[nodiscard]] std::optional<std::string>
stringWithContentsOfURL(const NSURL& url, std::string* usedEncoding = nullptr, NSError* error = nullptr,
                        std::size_t maximumByteCount = std::size_t{64} << 20);

/// Guesses the encoding of `bytes` when it is not sure, and stores them as UTF-8 in `convertedString`.
/// @return the encoding's name, never empty.
[[nodiscard]] std::string stringEncodingForData(std::string_view bytes,
                                                std::string* convertedString = nullptr);
