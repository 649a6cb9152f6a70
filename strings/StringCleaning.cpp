#include "strings/StringCleaning.h"

#include "platform/foundation/NSRegularExpression.h"
#include "platform/foundation/NSString.h"
#include "platform/foundation/Unicode.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace {

constexpr char16_t kAttachmentCharacter = 0xFFFC;

const NSCharacterSet& controlAndIllegalCharacters()
{
    // One short of a surrogate block each: U+DBFF and U+DFFF stay, and texts cleaned before come out the
    // same.
    constexpr NSUInteger kRangeLength = 1023;
    static const auto set = [] {
        auto characters = NSCharacterSet::controlCharacterSet();
        characters.formUnionWithCharacterSet(NSCharacterSet::illegalCharacterSet());
        characters.formUnionWithCharacterSet(NSCharacterSet::characterSetWithRange({55296, kRangeLength}));
        characters.formUnionWithCharacterSet(NSCharacterSet::characterSetWithRange({56320, kRangeLength}));
        return characters;
    }();
    return set;
}

bool isASCIIAlphanumeric(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z')
        || (character >= '0' && character <= '9');
}

bool isHexadecimal(char character)
{
    return std::string_view("0123456789abcdefABCDEF").find(character) != std::string_view::npos;
}

bool isAllowedInURL(std::string_view bytes, std::size_t offset)
{
    constexpr std::string_view kAllowed = "-._~:/?#[]@!$&'()*+,;=";
    if (bytes[offset] == '%')
        return offset + 2 < bytes.size() && isHexadecimal(bytes[offset + 1])
            && isHexadecimal(bytes[offset + 2]);
    return isASCIIAlphanumeric(bytes[offset]) || kAllowed.find(bytes[offset]) != std::string_view::npos;
}

} // namespace

namespace TSExtensions {

std::u16string stringByRemovingNewlinesAndTabs(std::u16string_view text)
{
    std::u16string result;
    result.reserve(text.size());
    for (const char16_t unit : text) {
        const bool isBlank
            = unit == u' ' || unit == u'\t' || NSCharacterSet::newlineCharacterSet().characterIsMember(unit);
        if (!isBlank)
            result += unit;
        else if (!result.ends_with(u' '))
            result += u' ';
    }
    trimWhitespace(result);
    return result;
}

std::u16string stringByRemovingNewlines(std::u16string_view text)
{
    std::u16string result(text);
    std::replace_if(
        result.begin(), result.end(), [](char16_t unit) { return unit == u'\n' || unit == u'\r'; }, u' ');
    return stringByTrimmingCharactersInSet(result, NSCharacterSet::whitespaceCharacterSet());
}

std::u16string stringByEscapingBackslashes(std::u16string_view text)
{
    return stringByReplacingOccurrencesOfString(text, u"\\", u"\\\\");
}

std::u16string stringByEscapingQuotes(std::u16string_view text)
{
    return stringByReplacingOccurrencesOfString(stringByReplacingOccurrencesOfString(text, u"'", u"\\'"),
                                                u"\"", u"\\\"");
}

std::u16string stringByTrimmingWhitespace(std::u16string_view text)
{
    return stringByTrimmingCharactersInSet(text, NSCharacterSet::whitespaceAndNewlineCharacterSet());
}

void trimWhitespace(std::u16string& text)
{
    const auto kept = rangeTrimmedOfCharactersInSet(text, NSCharacterSet::whitespaceAndNewlineCharacterSet());
    text.erase(NSMaxRange(kept));
    text.erase(0, kept.location);
}

std::u16string stringByRemovingControlAndIllegalCharacters(std::u16string_view text)
{
    return stringByRemovingCharactersInSet(text, controlAndIllegalCharacters());
}

std::u16string stringByRemovingCharactersInSet(std::u16string_view text, const NSCharacterSet& set)
{
    std::u16string kept;
    kept.reserve(text.size());
    for (std::size_t offset = 0; offset < text.size();) {
        auto end = offset;
        const auto character = nextCodePoint(text, end);
        // A unit that is a member goes by itself, also out of a pair that is not.
        if (set.characterIsMember(text[offset])) {
            ++offset;
            continue;
        }
        const bool isPair = end - offset == 2;
        if (!isPair || !set.longCharacterIsMember(character)) {
            kept += text[offset];
            end = offset + 1;
        }
        offset = end;
    }
    return kept;
}

std::u16string stringByStandardizingNewlines(std::u16string_view text)
{
    static const auto lineEnd = NSRegularExpression::regularExpressionWithPattern(u"(\\r\\n)|(\\n\\r)|(\\r)");
    return lineEnd->stringByReplacingMatchesInString(text, u"\n");
}

std::u16string stringWithoutAttachments(std::u16string_view text)
{
    std::u16string result(text);
    std::erase(result, kAttachmentCharacter);
    return result;
}

std::u16string percentEncodedURLString(std::u16string_view text)
{
    const auto bytes = UTF8FromUTF16(text);
    std::string encoded;
    encoded.reserve(bytes.size());
    for (std::size_t offset = 0; offset < bytes.size(); ++offset) {
        if (isAllowedInURL(bytes, offset))
            encoded += bytes[offset];
        else
            fmt::format_to(std::back_inserter(encoded), "%{:02X}", static_cast<unsigned char>(bytes[offset]));
    }
    return UTF16FromUTF8(encoded);
}

std::optional<std::u16string> stringWithCString(const char* cString, NSStringEncoding encoding,
                                                std::size_t /*length*/)
{
    return cString ? stringWithBytes(cString, encoding) : std::nullopt;
}

} // namespace TSExtensions
