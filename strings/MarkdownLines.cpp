#include "strings/MarkdownLines.h"

#include "platform/foundation/NSCharacterSet.h"
#include "platform/foundation/NSString.h"
#include "strings/MarkdownSyntax.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

constexpr auto kNone = std::u16string_view::npos;
constexpr std::u16string_view kNumberEnd = u". ";
constexpr std::u16string_view kDigits = u"0123456789";

const NSCharacterSet& quoteMarksAndIndentation()
{
    static const auto set = NSCharacterSet::characterSetWithCharactersInString(u"> \t");
    return set;
}

template <typename Value> void store(Value* slot, const Value& value)
{
    if (slot)
        *slot = value;
}

bool isBetween(std::u16string_view text, std::u16string_view opening, std::u16string_view closing)
{
    return hasPrefix(text, opening) && hasSuffix(text, closing);
}

bool isMarked(std::u16string_view text, std::u16string_view marker, std::u16string* slot)
{
    if (!isBetween(text, marker, marker))
        return false;
    store(slot, std::u16string(marker));
    return true;
}

std::optional<std::u16string> bulletOf(std::u16string_view line, std::u16string_view content)
{
    constexpr std::array<std::u16string_view, 3> kBullets
        = {CVLMarkdownBulletAsterisk, CVLMarkdownBulletPlus, CVLMarkdownBulletDash};
    for (const auto bullet : kBullets) {
        if (hasPrefix(line, bullet))
            return std::u16string(bullet);
        const auto place = hasPrefix(content, bullet.substr(0, 1)) ? line.find(bullet) : kNone;
        if (place != kNone)
            return std::u16string(line.substr(0, place + bullet.size()));
    }
    return std::nullopt;
}

/// The number that the text, which begins with a digit, begins with.
NSInteger leadingNumber(std::u16string_view text)
{
    NSInteger number = 0;
    for (const char16_t unit : text.substr(0, text.find_first_not_of(kDigits))) {
        const NSInteger digit = unit - u'0';
        if (number > (PTRDIFF_MAX - digit) / 10)
            return PTRDIFF_MAX;
        number = number * 10 + digit;
    }
    return number;
}

struct NumberedBullet {
    std::u16string bullet;
    NSInteger number = 0;
};

std::optional<NumberedBullet> numberedBulletOf(std::u16string_view line, NSRange content)
{
    if (content.length == 0 || kDigits.find(line[content.location]) == kNone)
        return std::nullopt;
    const auto end = std::min(line.find(kNumberEnd, content.location), line.size());
    const auto scanned = line.substr(content.location, end - content.location);
    if (scanned.size() == line.size())
        return std::nullopt;
    return NumberedBullet{std::u16string(line.substr(0, end)) + std::u16string(kNumberEnd),
                          leadingNumber(scanned)};
}

} // namespace

namespace CVLMarkdown {

ListType getListTypeAndCurrentBullet(std::u16string_view line, std::u16string* bullet, NSInteger* listNumber)
{
    const auto content = rangeTrimmedOfCharactersInSet(line, quoteMarksAndIndentation());
    if (const auto found = bulletOf(line, line.substr(content.location, content.length))) {
        store(bullet, *found);
        return ListType::Unordered;
    }
    if (const auto found = numberedBulletOf(line, content)) {
        store(bullet, found->bullet);
        store(listNumber, found->number);
        return ListType::Ordered;
    }
    return ListType::None;
}

bool isStrong(std::u16string_view text, std::u16string* marker)
{
    return isMarked(text, CVLMarkdownStrongAsterisk, marker)
        || isMarked(text, CVLMarkdownStrongUnderscore, marker);
}

bool isEmphasized(std::u16string_view text, std::u16string* marker)
{
    if (isStrong(text)) {
        const auto markers = 2 * CVLMarkdownStrongAsterisk.size();
        text = text.size() > markers ? text.substr(markers / 2, text.size() - markers) : u"";
    }
    return isMarked(text, CVLMarkdownEmphasisAsterisk, marker)
        || isMarked(text, CVLMarkdownEmphasisUnderscore, marker);
}

bool isStruckthrough(std::u16string_view text)
{
    return isBetween(text, CVLMarkdownOpeningStrikeMarker, CVLMarkdownClosingStrikeMarker);
}

bool isHighlighted(std::u16string_view text)
{
    return isBetween(text, CVLMarkdownOpeningHighlightMarker, CVLMarkdownClosingHighlightMarker);
}

NSUInteger headingLevel(std::u16string_view line)
{
    if (line.size() <= 1)
        return 0;
    return std::min(line.find_first_not_of(CVLMarkdownHeadingMarker), line.size() - 1);
}

} // namespace CVLMarkdown
