#include "platform/media/PartText.h"

#include "platform/foundation/TextEncoding.h"
#include "platform/foundation/Unicode.h"
#include "platform/media/MIMEFields.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::string_view kSignatureMark = "-- ";

std::string lettersAndDigits(std::string_view name)
{
    std::string key;
    for (const char byte : name) {
        if (byte >= 'A' && byte <= 'Z')
            key += static_cast<char>(byte - 'A' + 'a');
        else if ((byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9'))
            key += byte;
    }
    return key;
}

bool isSingleByteCharset(std::string_view key)
{
    constexpr auto kPrefixes
        = std::to_array<std::string_view>({"iso8859", "windows125", "cp125", "koi8", "latin", "macintosh",
                                           "ibm", "cp437", "cp850", "cp852", "cp866"});
    return std::any_of(kPrefixes.begin(), kPrefixes.end(),
                       [key](auto prefix) { return key.starts_with(prefix); });
}

bool holdsNonASCII(std::string_view bytes)
{
    return std::any_of(bytes.begin(), bytes.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
}

// A few broken characters don't make a text another encoding's.
bool isMostlyUTF8(std::string_view bytes)
{
    std::size_t whole = 0;
    std::size_t broken = 0;
    for (std::size_t offset = 0; offset < bytes.size();) {
        const auto character = nextCodePoint(bytes, offset);
        broken += character == kReplacementCharacter ? 1U : 0U;
        whole += character >= 0x80 && character != kReplacementCharacter ? 1U : 0U;
    }
    return broken * 2 <= whole;
}

struct Line {
    std::string_view text;
    std::size_t quoteDepth = 0;
    bool isFlowed = false;
};

// RFC 3676 (4): quote marks first, then one space that was put there to protect the line's start.
Line flowedLine(std::string_view text)
{
    Line line;
    line.quoteDepth = std::min(text.find_first_not_of('>'), text.size());
    text.remove_prefix(line.quoteDepth);
    if (text.starts_with(' '))
        text.remove_prefix(1);
    line.isFlowed = text.ends_with(' ') && text != kSignatureMark;
    line.text = text;
    return line;
}

std::string withoutFlow(std::string_view text, bool deletesSpace)
{
    std::string joined;
    joined.reserve(text.size());
    Line previous;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = flowedLine(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        const bool goesOn
            = previous.isFlowed && previous.quoteDepth == line.quoteDepth && line.text != kSignatureMark;
        if (!goesOn) {
            if (!joined.empty())
                joined += '\n';
            joined.append(line.quoteDepth, '>').append(line.quoteDepth > 0 ? " " : "");
        }
        joined.append(line.text.substr(0, line.text.size() - (line.isFlowed && deletesSpace ? 1 : 0)));
        previous = line;
    }
    return joined;
}

void removeCarriageReturns(std::string& text)
{
    std::string::size_type kept = 0;
    for (std::string::size_type index = 0; index < text.size(); ++index) {
        const bool isPartOfBreak = text[index] == '\r' && index + 1 < text.size() && text[index + 1] == '\n';
        if (!isPartOfBreak)
            text[kept++] = text[index] == '\r' ? '\n' : text[index];
    }
    text.resize(kept);
}

} // namespace

std::string charsetForPart(std::string_view bytes, std::string_view declaredCharset)
{
    const auto key = lettersAndDigits(declaredCharset);
    if (key.empty() || key == "usascii" || key == "ascii")
        return {};
    if (key == "utf8")
        return isMostlyUTF8(bytes) ? "utf-8" : std::string();
    if (isSingleByteCharset(key) && holdsNonASCII(bytes) && isValidUTF8(bytes))
        return "utf-8";
    return std::string(declaredCharset);
}

std::string textOfPlainPart(std::string_view bytes, const MIMEContentType& type)
{
    const auto charset = charsetForPart(bytes, type.charset);
    auto decoded = charset.empty() ? std::nullopt : decodedText(bytes, charset);
    auto text = decoded ? std::move(*decoded) : decodedText(bytes);
    removeCarriageReturns(text);
    return type.isFlowed ? withoutFlow(text, type.deletesSpace) : text;
}
