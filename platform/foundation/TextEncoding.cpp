#include "platform/foundation/TextEncoding.h"

#include "platform/foundation/DeclaredEncoding.h"
#include "platform/foundation/EncodingGuess.h"
#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/TextDecoder.h"
#include "platform/foundation/Unicode.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>

namespace {

constexpr std::size_t kTrialByteCount = 65536;
constexpr char kEscape = '\x1B';

struct Mark {
    std::string_view bytes;
    std::string_view charsetName;
};

// The longer marks first: that of UTF-16 begins that of UTF-32.
constexpr auto kMarks = std::to_array<Mark>({
    {"\xEF\xBB\xBF", "utf-8"},
    {{"\xFF\xFE\0\0", 4}, "utf-32le"},
    {{"\0\0\xFE\xFF", 4}, "utf-32be"},
    {"\xFF\xFE", "utf-16le"},
    {"\xFE\xFF", "utf-16be"},
});

struct Designator {
    std::string_view sequence;
    std::string_view charsetName;
};

// Escape sequences that call a two-byte set up; one of them stands before the first such character.
constexpr auto kDesignators = std::to_array<Designator>({
    {"\x1B$@", "iso-2022-jp"},
    {"\x1B$B", "iso-2022-jp"},
    {"\x1B$(D", "iso-2022-jp-2"},
    {"\x1B$)C", "iso-2022-kr"},
    {"\x1B$)A", "iso-2022-cn"},
    {"\x1B$)G", "iso-2022-cn"},
});

unsigned byteAt(std::string_view bytes, std::size_t index)
{
    return static_cast<unsigned char>(bytes[index]);
}

std::optional<TextEncoding> encodingByMark(std::string_view bytes)
{
    const auto* const mark = std::find_if(kMarks.begin(), kMarks.end(), [bytes](const Mark& candidate) {
        return bytes.starts_with(candidate.bytes);
    });
    if (mark == kMarks.end())
        return std::nullopt;
    return TextEncoding{std::string(mark->charsetName), mark->bytes.size(), true};
}

std::uint32_t wideUnit(std::string_view bytes, std::size_t offset, bool isBigEndian)
{
    std::uint32_t unit = 0;
    for (std::size_t index = 0; index < 4; ++index)
        unit = (unit << 8U) | byteAt(bytes, offset + (isBigEndian ? index : 3 - index));
    return unit;
}

bool isUTF32(std::string_view bytes, bool isBigEndian)
{
    if (bytes.size() < 8)
        return false;
    for (std::size_t offset = 0; offset + 4 <= bytes.size(); offset += 4) {
        const auto unit = wideUnit(bytes, offset, isBigEndian);
        if (unit == 0 || unit > 0x10FFFF || (unit & 0xFFFFF800U) == 0xD800)
            return false;
    }
    return true;
}

bool isTextUnit(char16_t unit)
{
    if (unit < 0x20)
        return unit == '\t' || unit == '\n' || unit == '\r' || unit == '\f';
    return u_isdefined(unit) != 0 && u_charType(unit) != U_PRIVATE_USE_CHAR;
}

bool isUTF16(std::string_view bytes, bool isBigEndian)
{
    const std::size_t high = isBigEndian ? 0 : 1;
    std::size_t zerosInPlace = 0;
    std::size_t zeros = 0;
    std::size_t ascii = 0;
    std::size_t faults = 0;
    const std::size_t unitCount = bytes.size() / 2;
    for (std::size_t offset = 0; offset + 2 <= bytes.size(); offset += 2) {
        const auto upper = byteAt(bytes, offset + high);
        const auto lower = byteAt(bytes, offset + 1 - high);
        zerosInPlace += upper == 0 ? 1U : 0U;
        zeros += (upper == 0 ? 1U : 0U) + (lower == 0 ? 1U : 0U);
        ascii += (upper >= 0x20 && upper < 0x7F ? 1U : 0U) + (lower >= 0x20 && lower < 0x7F ? 1U : 0U);
        faults += isTextUnit(static_cast<char16_t>((upper << 8U) | lower)) ? 0U : 1U;
    }
    // A stray zero byte in an ASCII text does not make it wide.
    const bool isNarrow = zeros * 20 < bytes.size() && ascii * 10 > bytes.size() * 9;
    return unitCount > 0 && !isNarrow && zerosInPlace * 4 > zeros * 3 && faults * 50 <= unitCount;
}

std::optional<TextEncoding> encodingByZeros(std::string_view bytes)
{
    const auto sample = bytes.substr(0, kTrialByteCount);
    if (sample.find('\0') == std::string_view::npos)
        return std::nullopt;
    for (const bool isBigEndian : {false, true}) {
        if (isUTF32(sample, isBigEndian))
            return TextEncoding{isBigEndian ? "utf-32be" : "utf-32le", 0, true};
        if (isUTF16(sample, isBigEndian))
            return TextEncoding{isBigEndian ? "utf-16be" : "utf-16le", 0, true};
    }
    return std::nullopt;
}

bool readsCleanly(std::string_view bytes, std::string_view charsetName)
{
    auto decoder = TextDecoder::createWithCharset(charsetName);
    if (!decoder)
        return false;
    std::string text;
    decoder->append(bytes.substr(0, kTrialByteCount), text);
    for (std::size_t offset = 0; offset < text.size();) {
        const auto character = nextCodePoint(text, offset);
        if (character == kReplacementCharacter || (character >= 0x80 && character < 0xA0))
            return false;
    }
    return true;
}

std::optional<TextEncoding> encodingByEscapes(std::string_view bytes)
{
    const auto sample = bytes.substr(0, kTrialByteCount);
    if (sample.find(kEscape) == std::string_view::npos)
        return std::nullopt;
    for (const auto& designator : kDesignators) {
        if (sample.find(designator.sequence) != std::string_view::npos
            && readsCleanly(bytes, designator.charsetName))
            return TextEncoding{std::string(designator.charsetName), 0, true};
    }
    return std::nullopt;
}

// What may be the first bytes of one more character is left out of the judgement when the text goes on.
std::string_view withoutCutCharacter(std::string_view bytes)
{
    constexpr std::size_t kLongestTail = 3;
    for (std::size_t length = 1; length <= std::min(kLongestTail, bytes.size()); ++length) {
        const auto byte = byteAt(bytes, bytes.size() - length);
        if (byte >= 0xC0)
            return bytes.substr(0, bytes.size() - length);
        if (byte < 0x80)
            break;
    }
    return bytes;
}

std::optional<TextEncoding> encodingByDeclaration(std::string_view bytes)
{
    const auto name = canonicalCharsetName(declaredCharsetName(bytes));
    if (name.empty() || !readsCleanly(bytes, name))
        return std::nullopt;
    return TextEncoding{name, 0, true};
}

// In EBCDIC the space is 0x40 and the small letters lie between 0x81 and 0xA9; a text in ASCII's family holds
// spaces.
bool looksLikeEBCDIC(std::string_view bytes)
{
    const auto sample = bytes.substr(0, kTrialByteCount);
    std::size_t blanks = 0;
    std::size_t letters = 0;
    std::size_t asciiBlanks = 0;
    for (const char byte : sample) {
        const auto value = static_cast<unsigned char>(byte);
        blanks += value == 0x40 ? 1U : 0U;
        letters += value >= 0x81 && value <= 0xA9 ? 1U : 0U;
        asciiBlanks += value == 0x20 || value == 0x0A ? 1U : 0U;
    }
    return blanks * 20 > sample.size() && letters * 3 > sample.size() && asciiBlanks * 100 < sample.size();
}

std::string decodedAs(std::string_view bytes, std::string_view charsetName)
{
    if (charsetName == "utf-8")
        return validUTF8(bytes);
    std::string text;
    auto decoder = TextDecoder::createWithCharset(charsetName);
    if (!decoder)
        return validUTF8(bytes);
    text.reserve(bytes.size() + bytes.size() / 4);
    decoder->append(bytes, text);
    decoder->finish(text);
    return text;
}

} // namespace

std::optional<TextEncoding> sureTextEncodingForBytes(std::string_view bytes, bool isWholeText)
{
    if (auto encoding = encodingByMark(bytes))
        return encoding;
    if (auto encoding = encodingByZeros(bytes))
        return encoding;
    if (auto encoding = encodingByEscapes(bytes))
        return encoding;
    if (isValidUTF8(isWholeText ? bytes : withoutCutCharacter(bytes)))
        return TextEncoding{"utf-8", 0, true};
    return encodingByDeclaration(bytes);
}

TextEncoding textEncodingForBytes(std::string_view bytes, bool isWholeText)
{
    if (auto encoding = sureTextEncodingForBytes(bytes, isWholeText))
        return *encoding;
    if (looksLikeEBCDIC(bytes))
        return {"ibm-500", 0, false};
    return {std::string(guessedEncoding(bytes)), 0, false};
}

std::string decodedText(std::string_view bytes)
{
    const auto encoding = textEncodingForBytes(bytes);
    return decodedAs(bytes.substr(encoding.markLength), encoding.name);
}

std::optional<std::string> decodedText(std::string_view bytes, std::string_view charsetName)
{
    if (const auto encoding = encodingByMark(bytes))
        return decodedAs(bytes.substr(encoding->markLength), encoding->name);
    const auto name = canonicalCharsetName(charsetName);
    if (name.empty() || !TextDecoder::createWithCharset(name))
        return std::nullopt;
    return decodedAs(bytes, name);
}

std::optional<std::string> stringWithContentsOfURL(const NSURL& url, std::string* usedEncoding,
                                                   NSError* error, std::size_t maximumByteCount)
{
    const auto file = FileDescriptor::openForReading(url.path());
    const auto bytes = file.isValid() ? readFile(file.get(), maximumByteCount) : std::nullopt;
    if (!bytes) {
        setError(error, NSError::errorWithErrno(errno, "read " + url.path()));
        return std::nullopt;
    }
    const auto encoding = textEncodingForBytes(*bytes, bytes->size() < maximumByteCount);
    if (!encoding.isSure) {
        setError(error,
                 NSError::errorWithCode(NSCocoaError::FileReadUnknownStringEncoding,
                                        "the encoding of " + url.path() + " is not known"));
        return std::nullopt;
    }
    if (usedEncoding)
        *usedEncoding = encoding.name;
    return decodedAs(std::string_view(*bytes).substr(encoding.markLength), encoding.name);
}

std::string stringEncodingForData(std::string_view bytes, std::string* convertedString)
{
    const auto encoding = textEncodingForBytes(bytes);
    if (convertedString)
        *convertedString = decodedAs(bytes.substr(encoding.markLength), encoding.name);
    return encoding.name;
}
