#include "platform/foundation/NSString.h"

#include "platform/foundation/PatternSearch.h"
#include "platform/foundation/StringFolding.h"
#include "platform/foundation/UserLocale.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace {

const StringFolder& canonicalFolder()
{
    static const StringFolder folder(0);
    return folder;
}

bool isLineEnd(char16_t unit)
{
    return (unit >= u'\n' && unit <= u'\r') || unit == 0x85 || unit == 0x2028 || unit == 0x2029;
}

/// Where the line end at `position` ends.
std::size_t endOfLineEnd(std::u16string_view text, std::size_t position)
{
    return position + (text.substr(position, 2) == u"\r\n" ? 2 : 1);
}

std::size_t nextLineEnd(std::u16string_view text, std::size_t position)
{
    while (position < text.size() && !isLineEnd(text[position]))
        ++position;
    return position;
}

bool isLineStart(std::u16string_view text, std::size_t position)
{
    if (position == 0)
        return true;
    return isLineEnd(text[position - 1]) && text.substr(position - 1, 2) != u"\r\n";
}

} // namespace

bool hasPrefix(std::u16string_view text, std::u16string_view prefix)
{
    const auto wanted = canonicalFolder().folded(prefix);
    std::u16string folded;
    for (std::size_t position = 0; position < text.size() && folded.size() < wanted.size();)
        canonicalFolder().foldNext(text, position, folded);
    return !wanted.empty() && folded == wanted;
}

bool hasSuffix(std::u16string_view text, std::u16string_view suffix)
{
    const auto wanted = canonicalFolder().folded(suffix);
    // A text is at most twice as long as its canonical form. What is cut on the left is a piece of a
    // character longer than the suffix.
    const auto length = std::min(text.size(), 2 * wanted.size() + 1);
    const FoldedText end(text.substr(text.size() - length), canonicalFolder());
    return !wanted.empty() && end.units().ends_with(wanted)
        && end.isCharacterBorder(end.units().size() - wanted.size());
}

std::vector<std::u16string> componentsSeparatedByString(std::u16string_view text,
                                                        std::u16string_view separator)
{
    const PatternSearch search(separator);
    std::vector<std::u16string> components;
    std::size_t start = 0;
    for (auto found = search.find(text); found != std::u16string_view::npos;
         found = search.find(text, start)) {
        components.emplace_back(text.substr(start, found - start));
        start = found + separator.size();
    }
    components.emplace_back(text.substr(start));
    return components;
}

std::vector<std::u16string> componentsSeparatedByCharactersInSet(std::u16string_view text,
                                                                 const NSCharacterSet& separators)
{
    std::vector<std::u16string> components;
    std::size_t start = 0;
    for (auto found = rangeOfCharacterFromSet(text, separators); found.location != NSNotFound;
         found = rangeOfCharacterFromSet(text, separators, start)) {
        components.emplace_back(text.substr(start, found.location - start));
        start = NSMaxRange(found);
    }
    components.emplace_back(text.substr(start));
    return components;
}

std::u16string componentsJoinedByString(const std::vector<std::u16string>& components,
                                        std::u16string_view separator)
{
    std::u16string joined;
    for (const auto& component : components) {
        if (&component != &components.front())
            joined += separator;
        joined += component;
    }
    return joined;
}

std::u16string stringByReplacingOccurrencesOfString(std::u16string_view text, std::u16string_view target,
                                                    std::u16string_view replacement)
{
    const PatternSearch search(target);
    std::u16string result;
    result.reserve(text.size());
    std::size_t start = 0;
    for (auto found = search.find(text); found != std::u16string_view::npos;
         found = search.find(text, start)) {
        result += text.substr(start, found - start);
        result += replacement;
        start = found + target.size();
    }
    result += text.substr(start);
    return result;
}

std::u16string localizedCapitalizedString(std::u16string_view text)
{
    return capitalizedStringWithLocale(text, userLocaleIdentifier());
}

std::u16string capitalizedStringWithLocale(std::u16string_view text, const std::string& localeIdentifier)
{
    if (text.empty() || text.size() > INT32_MAX)
        return std::u16string(text);
    const auto locale
        = localeIdentifier.empty() ? icu::Locale::getRoot() : icu::Locale(localeIdentifier.c_str());
    icu::UnicodeString capitalized(text.data(), static_cast<int32_t>(text.size()));
    capitalized.toTitle(nullptr, locale); // Without an iterator given, the library's own for words.
    return {capitalized.getBuffer(), static_cast<std::size_t>(capitalized.length())};
}

NSLineBounds getLineStart(std::u16string_view text, NSRange range)
{
    NSLineBounds bounds;
    bounds.start = std::min(range.location, text.size());
    // A line end at the range's end belongs to the last line and not to a further one.
    const auto last = bounds.start + std::min(range.length, text.size() - bounds.start);
    while (!isLineStart(text, bounds.start))
        --bounds.start;
    const bool isBehindLineEnd = last > range.location && isLineEnd(text[last - 1]);
    bounds.contentsEnd = nextLineEnd(text, isBehindLineEnd ? last - 1 : last);
    if (bounds.contentsEnd > bounds.start && text.substr(bounds.contentsEnd - 1, 2) == u"\r\n")
        --bounds.contentsEnd;
    bounds.end = bounds.contentsEnd < text.size() ? endOfLineEnd(text, bounds.contentsEnd) : text.size();
    return bounds;
}

void enumerateLines(std::u16string_view text, const std::function<bool(std::u16string_view line)>& visit)
{
    for (std::size_t start = 0; start < text.size();) {
        const auto contentsEnd = nextLineEnd(text, start);
        if (!visit(text.substr(start, contentsEnd - start)) || contentsEnd == text.size())
            return;
        start = endOfLineEnd(text, contentsEnd);
    }
}
