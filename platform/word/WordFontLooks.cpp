#include "platform/word/WordFontLooks.h"

#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/word/WordUnits.h"

#include <algorithm>
#include <map>

namespace {

/// Of headings that a text has none of, in half points.
constexpr std::array<std::int64_t, kWordHeadingStyleCount> kHeadingSizes{48, 36, 28, 24, 24, 24};

using UnitCounts = std::map<WordFontLook, NSUInteger>;

std::size_t styleIndexOfRun(const NSAttributes& attributes)
{
    const auto found = attributes.find(NSParagraphStyleAttributeName);
    const auto style = found == attributes.end() ? nullptr : found->second.object<NSParagraphStyle>();
    return style ? wordStyleIndexOf(*style) : 0;
}

const WordFontLook* mostUsed(const UnitCounts& counts)
{
    const auto most = std::max_element(counts.begin(), counts.end(), [](const auto& one, const auto& other) {
        return one.second < other.second;
    });
    return most == counts.end() ? nullptr : &most->first;
}

} // namespace

WordFontLook fontLookOf(const NSAttributes& attributes)
{
    const auto found = attributes.find(NSFontAttributeName);
    const auto font = found == attributes.end() ? nullptr : found->second.object<NSFont>();
    if (!font)
        return {u"Helvetica", wordFontSize(NSFont::kDefaultSize), false, false};
    const auto traits = font->symbolicTraits();
    return {font->familyName(), wordFontSize(font->pointSize()), (traits & NSFontBoldTrait) != 0,
            (traits & NSFontItalicTrait) != 0};
}

std::size_t wordStyleIndexOf(const NSParagraphStyle& style)
{
    const auto level = style.headerLevel();
    const bool hasStyle = level > 0 && level <= static_cast<NSInteger>(kWordHeadingStyleCount);
    return hasStyle ? static_cast<std::size_t>(level) : 0;
}

WordStyleLooks styleLooksOf(const std::vector<WordAttributeSet>& sets)
{
    std::array<UnitCounts, kWordHeadingStyleCount + 1> counts;
    for (const auto& [attributes, length] : sets)
        counts.at(styleIndexOfRun(*attributes))[fontLookOf(*attributes)] += length;
    WordStyleLooks looks;
    const auto* const plain = mostUsed(counts[0]);
    looks[0] = plain ? *plain : fontLookOf({});
    for (std::size_t level = 1; level < looks.size(); ++level) {
        const auto* const own = mostUsed(counts.at(level));
        looks.at(level)
            = own ? *own : WordFontLook{looks[0].family, kHeadingSizes.at(level - 1), true, false};
    }
    return looks;
}

void writeWordFamily(WordXML& xml, std::u16string_view family)
{
    xml.raw("<w:rFonts");
    for (const auto* const script : {"w:ascii", "w:hAnsi", "w:eastAsia", "w:cs"})
        xml.attribute(script, family);
    xml.raw("/>");
}

void writeWordFontSize(WordXML& xml, std::int64_t size)
{
    xml.property("w:sz", size);
    xml.property("w:szCs", size);
}
