#include "platform/media/EncodedWords.h"

#include "platform/foundation/TextEncoding.h"
#include "platform/media/MIMEFields.h"
#include "platform/media/PartText.h"

#include <glib.h>

#include <algorithm>
#include <charconv>
#include <memory>
#include <optional>
#include <utility>

namespace {

constexpr std::string_view kOpening = "=?";
constexpr std::string_view kClosing = "?=";
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::size_t kCharsetByteCount = 64;

struct EncodedWord {
    std::string_view charset;
    bool isBase64 = false;
    std::string_view letters;
    /// Of all of it in the text, marks included.
    std::size_t byteCount = 0;
};

/// The word that `text` starts with.
std::optional<EncodedWord> encodedWordAtStart(std::string_view text)
{
    if (!text.starts_with(kOpening))
        return std::nullopt;
    EncodedWord word;
    const auto charsetEnd = text.substr(0, kCharsetByteCount).find('?', kOpening.size());
    if (charsetEnd == std::string_view::npos || charsetEnd + 2 >= text.size() || text[charsetEnd + 2] != '?')
        return std::nullopt;
    const char encoding = text[charsetEnd + 1];
    const auto start = charsetEnd + 3;
    const auto end = text.find(kClosing, start);
    word.isBase64 = encoding == 'B' || encoding == 'b';
    if ((!word.isBase64 && encoding != 'Q' && encoding != 'q') || end == std::string_view::npos)
        return std::nullopt;
    word.charset = text.substr(kOpening.size(), charsetEnd - kOpening.size());
    word.charset
        = word.charset.substr(0, word.charset.find('*')); // A language may stand behind it (RFC 2231).
    word.letters = text.substr(start, end - start);
    word.byteCount = end + kClosing.size();
    return word;
}

std::string bytesOfQLetters(std::string_view letters)
{
    std::string bytes;
    while (!letters.empty()) {
        unsigned value = 0;
        const auto digits = letters.substr(1, 2);
        const auto* const digitsEnd = digits.data() + digits.size();
        const bool isEscape = letters.front() == '=' && digits.size() == 2
            && std::from_chars(digits.data(), digitsEnd, value, 16).ptr == digitsEnd;
        if (isEscape)
            bytes += static_cast<char>(value);
        else
            bytes += letters.front() == '_' ? ' ' : letters.front();
        letters.remove_prefix(isEscape ? 3 : 1);
    }
    return bytes;
}

std::string bytesOfWord(const EncodedWord& word)
{
    return word.isBase64 ? decodedTransferBytes(word.letters, "base64", word.letters.size())
                         : bytesOfQLetters(word.letters);
}

std::string decodedBytes(std::string_view bytes, std::string_view declaredCharset)
{
    const auto charset = charsetForPart(bytes, declaredCharset);
    auto text = charset.empty() ? std::nullopt : decodedText(bytes, charset);
    return text ? std::move(*text) : decodedText(bytes);
}

// Each word of these charsets starts and ends in ASCII; the escapes at the seam of two would be an error.
bool beginsAnew(std::string_view charset)
{
    constexpr std::string_view kPrefix = "iso-2022-";
    return std::equal(kPrefix.begin(), kPrefix.end(), charset.begin(),
                      charset.begin() + std::min(charset.size(), kPrefix.size()),
                      [](char expected, char byte) { return g_ascii_tolower(byte) == expected; });
}

/// Reads the encoded words at the start of `text`, takes them off, and gives what they say.
std::string takeEncodedWords(std::string_view& text)
{
    std::string decoded;
    std::string bytes;
    std::string_view charset;
    auto rest = text;
    for (auto word = encodedWordAtStart(rest); word; word = encodedWordAtStart(rest)) {
        if (word->charset != charset || beginsAnew(charset))
            decoded += decodedBytes(std::exchange(bytes, {}), charset);
        charset = word->charset;
        bytes += bytesOfWord(*word);
        text = rest.substr(word->byteCount);
        // The white space between two words is no part of the text; that behind the last one is.
        rest = text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
    }
    return decoded += decodedBytes(bytes, charset);
}

std::string unified(std::string_view decoded)
{
    const std::unique_ptr<char, decltype(&g_free)> letters(
        g_base64_encode(reinterpret_cast<const guchar*>(decoded.data()), decoded.size()), g_free);
    return std::string("=?utf-8?B?").append(letters.get()).append(kClosing);
}

template <typename Rewrite> std::string withRewrittenWords(std::string_view text, const Rewrite& rewrite)
{
    std::string result;
    while (!text.empty()) {
        const auto start = std::min(text.find(kOpening), text.size());
        result.append(text.substr(0, start));
        text.remove_prefix(start);
        if (encodedWordAtStart(text))
            result += rewrite(takeEncodedWords(text));
        else if (!text.empty()) {
            result.append(text.substr(0, kOpening.size()));
            text.remove_prefix(kOpening.size());
        }
    }
    return result;
}

} // namespace

std::string decodedEncodedWords(std::string_view text)
{
    return withRewrittenWords(text, [](std::string decoded) { return decoded; });
}

std::string unifiedEncodedWords(std::string_view text)
{
    return withRewrittenWords(text, unified);
}
