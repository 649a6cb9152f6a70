#include "platform/word/WordParagraphWriting.h"

#include "platform/text/NSTextTable.h"
#include "platform/word/WordBlockWriting.h"
#include "platform/word/WordFontLooks.h"
#include "platform/word/WordUnits.h"

#include <algorithm>

namespace {

constexpr NSInteger kDeepestOutline = 9;

void writeStyle(WordXML& xml, const NSParagraphStyle& style)
{
    if (const auto heading = wordStyleIndexOf(style); heading > 0)
        xml.property("w:pStyle", std::string_view("Heading" + std::to_string(heading)));
    else if (!style.textLists().empty())
        xml.property("w:pStyle", std::string_view("ListParagraph"));
}

void writeItem(WordXML& xml, const WordListWriting::Item& item)
{
    xml.raw("<w:numPr>");
    xml.property("w:ilvl", item.level);
    xml.property("w:numId", item.number);
    xml.raw("</w:numPr>");
}

const NSTextBlock* innermostPlainBlock(const NSParagraphStyle& style)
{
    const auto& blocks = style.textBlocks();
    const auto found = std::find_if(blocks.rbegin(), blocks.rend(), [](const auto& block) {
        return block && !dynamic_cast<const NSTextTableBlock*>(block.get());
    });
    return found == blocks.rend() ? nullptr : found->get();
}

bool hasDefaultTabStops(const NSParagraphStyle& style)
{
    const auto& stops = style.tabStops();
    const auto& usual = NSParagraphStyle::defaultTabStops();
    return std::equal(
        stops.begin(), stops.end(), usual.begin(), usual.end(),
        [](const auto& one, const auto& other) { return one == other || one->isEqual(*other); });
}

std::string_view kindOf(const NSTextTab& tab)
{
    if (tab.options().contains(NSTabColumnTerminatorsAttributeName))
        return "decimal";
    switch (tab.alignment()) {
    case NSTextAlignment::Right:
        return "right";
    case NSTextAlignment::Center:
        return "center";
    default:
        return "left";
    }
}

/// The stops of a list's item up to its text are the list's own.
void writeTabStops(WordXML& xml, const NSParagraphStyle& style, bool isItem)
{
    if (hasDefaultTabStops(style))
        return;
    WordXML stops;
    for (const auto& stop : style.tabStops()) {
        if (isItem && stop->location() <= style.headIndent())
            continue;
        stops.raw("<w:tab");
        stops.attribute("w:val", kindOf(*stop));
        stops.attribute("w:pos", wordTwips(stop->location()));
        stops.raw("/>");
    }
    if (stops.isEmpty())
        return;
    xml.raw("<w:tabs>");
    xml.raw(stops.bytes());
    xml.raw("</w:tabs>");
}

struct LineHeight {
    std::int64_t value = 0;
    std::string_view rule;
};

LineHeight lineHeightOf(const NSParagraphStyle& style, double plainHeight)
{
    constexpr double kUnitsPerLine = 240;
    const auto multiple = std::max(style.lineHeightMultiple(), 0.0);
    const auto least = style.minimumLineHeight();
    if (multiple == 0 && least > 0)
        return {wordTwips(least), least == style.maximumLineHeight() ? "exact" : "atLeast"};
    const auto lines = (multiple > 0 ? multiple : 1) + std::max(style.lineSpacing(), 0.0) / plainHeight;
    return {wordUnits(lines * kUnitsPerLine, 1, kMostWordTwips), "auto"};
}

void writeSpacing(WordXML& xml, const NSParagraphStyle& style, double plainHeight)
{
    constexpr std::int64_t kOneLine = 240;
    const auto before = wordTwips(std::max(style.paragraphSpacingBefore(), 0.0));
    const auto after = wordTwips(std::max(style.paragraphSpacing(), 0.0));
    const auto line = lineHeightOf(style, plainHeight);
    const bool hasLine = line.rule != "auto" || line.value != kOneLine;
    if (before == 0 && after == 0 && !hasLine)
        return;
    xml.raw("<w:spacing");
    if (before != 0)
        xml.attribute("w:before", before);
    if (after != 0)
        xml.attribute("w:after", after);
    if (hasLine) {
        xml.attribute("w:line", line.value);
        xml.attribute("w:lineRule", line.rule);
    }
    xml.raw("/>");
}

/// Where the first line begins: of a list's item, where its marker stands behind a tab.
double firstIndentOf(const NSParagraphStyle& style, bool isItem)
{
    const auto first = style.firstLineHeadIndent();
    if (!isItem)
        return first;
    const auto& stops = style.tabStops();
    const auto marker = std::find_if(stops.begin(), stops.end(),
                                     [first](const auto& stop) { return stop->location() > first; });
    return marker == stops.end() ? first : std::min((*marker)->location(), style.headIndent());
}

void writeIndents(WordXML& xml, const NSParagraphStyle& style, const WordPage& page, bool isItem)
{
    const auto head = wordTwips(style.headIndent());
    const auto first = wordTwips(firstIndentOf(style, isItem)) - head;
    // From the leading margin where it is positive.
    const auto tail = style.tailIndent();
    const auto right = wordTwips(tail > 0 ? page.textWidth() - tail : -tail);
    const bool isOfList = !style.textLists().empty();
    if (head == 0 && first == 0 && right == 0 && !isOfList)
        return;
    xml.raw("<w:ind");
    xml.attribute("w:left", head);
    if (right != 0)
        xml.attribute("w:right", right);
    if (first < 0)
        xml.attribute("w:hanging", -first);
    else if (first > 0 || isOfList)
        xml.attribute("w:firstLine", first);
    xml.raw("/>");
}

/// In paragraphs that run from right to left, left is where lines begin.
std::string_view alignmentOf(const NSParagraphStyle& style, bool isRightToLeft)
{
    switch (style.alignment()) {
    case NSTextAlignment::Left:
        return isRightToLeft ? "right" : "left";
    case NSTextAlignment::Right:
        return isRightToLeft ? "left" : "right";
    case NSTextAlignment::Center:
        return "center";
    case NSTextAlignment::Justified:
        return "both";
    default:
        return {};
    }
}

void writeProperties(WordXML& xml, const NSParagraphStyle& style, const WordPage& page, double lineHeight,
                     const WordParagraphContext& context)
{
    writeStyle(xml, style);
    if (context.item)
        writeItem(xml, *context.item);
    if (const auto* const block = innermostPlainBlock(style))
        writeWordParagraphBlock(xml, *block);
    const bool isItem = context.item.has_value();
    writeTabStops(xml, style, isItem);
    if (context.isRightToLeft)
        xml.property("w:bidi");
    writeSpacing(xml, style, lineHeight);
    writeIndents(xml, style, page, isItem);
    if (const auto alignment = alignmentOf(style, context.isRightToLeft); !alignment.empty())
        xml.property("w:jc", alignment);
    const auto level = style.headerLevel();
    if (level > static_cast<NSInteger>(kWordHeadingStyleCount) && level <= kDeepestOutline)
        xml.property("w:outlineLvl", static_cast<std::int64_t>(level - 1));
}

} // namespace

// The order of the elements is that of the format's schema.
void writeWordParagraphProperties(WordXML& xml, const NSParagraphStyle& style, const WordPage& page,
                                  double lineHeight, const WordParagraphContext& context)
{
    WordXML properties;
    writeProperties(properties, style, page, lineHeight, context);
    if (properties.isEmpty() && context.endProperties.empty())
        return;
    xml.raw("<w:pPr>");
    xml.raw(properties.bytes());
    if (!context.endProperties.empty()) {
        xml.raw("<w:rPr>");
        xml.raw(context.endProperties);
        xml.raw("</w:rPr>");
    }
    xml.raw("</w:pPr>");
}
