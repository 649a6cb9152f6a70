#include "markdown/MarkdownText.h"

#include "markdown/MarkdownTable.h"

#include <algorithm>

namespace {

constexpr auto kNone = std::u16string_view::npos;

bool isLetter(char16_t unit)
{
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

/// What underscores within are part of a word with.
bool isOfWord(char16_t unit)
{
    return isLetter(unit) || isDigit(unit) || unit > 0xA0;
}

/// Whether a line of this text, numbers apart, begins something else than a paragraph.
bool beginsBlock(std::u16string_view text)
{
    if (text.empty() || std::u16string_view(u"#>+-=").find(text.front()) == kNone)
        return false;
    const auto behind = text.find_first_not_of(text.front());
    const bool isAlone = behind == kNone || isMarkdownBlank(text[behind]);
    return text.front() == u'>' || isAlone;
}

std::size_t longestRun(std::u16string_view text, char16_t sign)
{
    std::size_t longest = 0;
    for (std::size_t place = text.find(sign); place != kNone; place = text.find(sign, place)) {
        const auto end = std::min(text.find_first_not_of(sign, place), text.size());
        longest = std::max(longest, end - place);
        place = end;
    }
    return longest;
}

} // namespace

bool isMarkdownBlank(char16_t unit)
{
    return unit == u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r' || unit == 0xA0 || unit == 0x2028;
}

bool isMarkdownPunctuation(char16_t unit)
{
    return unit > u' ' && unit < 0x7F && !isLetter(unit) && !isDigit(unit);
}

bool isMarkdownURL(std::u16string_view text)
{
    const auto colon = text.find(u':');
    if (colon == kNone || colon < 2 || colon > 32 || !isLetter(text.front()))
        return false;
    const auto isOfScheme = [](char16_t unit) {
        return isLetter(unit) || isDigit(unit) || unit == u'+' || unit == u'-' || unit == u'.';
    };
    return std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(colon), isOfScheme)
        && std::none_of(text.begin(), text.end(), isMarkdownBlank);
}

std::u16string withoutMarkdownEscapes(std::u16string_view text)
{
    std::u16string plain;
    plain.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        const bool isEscape
            = text[index] == u'\\' && index + 1 < text.size() && isMarkdownPunctuation(text[index + 1]);
        plain += text[isEscape ? ++index : index];
    }
    return plain;
}

std::u16string escapedMarkdown(std::u16string_view text)
{
    constexpr std::u16string_view kSigns = u"\\`*~[]<";
    std::u16string escaped;
    escaped.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        const auto unit = text[index];
        const auto before = index == 0 ? u' ' : text[index - 1];
        const auto behind = index + 1 == text.size() ? u' ' : text[index + 1];
        const bool isActive = kSigns.find(unit) != kNone
            || (unit == u'_' && !(isOfWord(before) && isOfWord(behind)))
            || (unit == u'&' && (isLetter(behind) || behind == u'#'));
        if (isActive)
            escaped += u'\\';
        escaped += unit;
    }
    return escaped;
}

std::u16string escapedMarkdownStart(std::u16string_view text)
{
    std::u16string escaped(text);
    const auto digits = std::min(text.find_first_not_of(u"0123456789"), text.size());
    if (digits > 0 && digits < text.size() && (text[digits] == u'.' || text[digits] == u')'))
        escaped.insert(digits, u"\\");
    else if (beginsBlock(text) || markdownAlignments(text))
        escaped.insert(0, u"\\");
    return escaped;
}

std::u16string markdownCode(std::u16string_view text)
{
    const std::u16string marks(longestRun(text, u'`') + 1, u'`');
    const bool isPadded
        = text.starts_with(u'`') || text.ends_with(u'`') || (text.starts_with(u' ') && text.ends_with(u' '));
    const std::u16string padding(isPadded ? 1 : 0, u' ');
    return marks + padding + std::u16string(text) + padding + marks;
}

std::u16string markdownTarget(std::u16string_view target)
{
    const bool isPlain = !target.empty() && !target.starts_with(u'<')
        && std::none_of(target.begin(), target.end(), [](char16_t unit) {
               return isMarkdownBlank(unit) || unit == u'(' || unit == u')' || unit == u'\\';
           });
    if (isPlain)
        return std::u16string(target);
    std::u16string quoted = u"<";
    for (const auto unit : target) {
        if (unit == u'<' || unit == u'>')
            quoted += unit == u'<' ? u"%3C" : u"%3E";
        else if (unit == u'\\')
            quoted += u"\\\\";
        else
            quoted += unit == u'\n' || unit == u'\r' ? u' ' : unit;
    }
    return quoted + u'>';
}
