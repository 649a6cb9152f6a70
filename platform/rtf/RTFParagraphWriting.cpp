#include "platform/rtf/RTFParagraphWriting.h"

#include "platform/rtf/RTFUnits.h"

namespace {

RTFTabKind kindOf(const NSTextTab& tab)
{
    if (tab.options().contains(NSTabColumnTerminatorsAttributeName))
        return RTFTabKind::Decimal;
    switch (tab.alignment()) {
    case NSTextAlignment::Right:
        return RTFTabKind::Right;
    case NSTextAlignment::Center:
        return RTFTabKind::Center;
    default:
        return RTFTabKind::Left;
    }
}

RTFAlignment alignmentOf(const NSParagraphStyle& style)
{
    const bool isNatural = style.baseWritingDirection() == NSWritingDirection::Natural;
    switch (style.alignment()) {
    case NSTextAlignment::Left:
        return isNatural ? RTFAlignment::Left : RTFAlignment::None;
    case NSTextAlignment::Right:
        return RTFAlignment::Right;
    case NSTextAlignment::Center:
        return RTFAlignment::Center;
    case NSTextAlignment::Justified:
        return RTFAlignment::Justified;
    default:
        return isNatural ? RTFAlignment::None : RTFAlignment::Natural;
    }
}

RTFDirection directionOf(const NSParagraphStyle& style)
{
    switch (style.baseWritingDirection()) {
    case NSWritingDirection::LeftToRight:
        return RTFDirection::LeftToRight;
    case NSWritingDirection::RightToLeft:
        return RTFDirection::RightToLeft;
    default:
        return RTFDirection::Natural;
    }
}

/// A tail indent counts from the trailing margin when it is negative, from the leading one when positive.
std::int32_t rightIndentOf(double tailIndent, const RTFPage& page)
{
    const auto tail = twipsFromPoints(tailIndent);
    return tail > 0 ? page.textWidth - tail : -tail;
}

void setLineHeight(RTFParagraphFormat& format, const NSParagraphStyle& style)
{
    const auto least = twipsFromPoints(style.minimumLineHeight());
    const auto most = twipsFromPoints(style.maximumLineHeight());
    const auto multiple = wholeNumber(style.lineHeightMultiple() * kLineHeightUnits);
    if (multiple > 0) {
        format.lineHeight = multiple;
        format.isLineHeightMultiple = true;
    } else if (least > 0 && least == most) {
        format.lineHeight = -least;
        return;
    } else if (least > 0 && most <= 0) {
        format.lineHeight = least;
        return;
    }
    format.minimumLineHeight = least;
    format.maximumLineHeight = most;
}

void writeUnless(RTFOutput& output, std::string_view word, std::int32_t value, std::int32_t usual = 0)
{
    if (value != usual)
        output.word(word, value);
}

void writeTabs(RTFOutput& output, const std::vector<RTFTab>& tabs)
{
    for (const auto& tab : tabs) {
        if (tab.kind == RTFTabKind::Right)
            output.word("tqr");
        else if (tab.kind == RTFTabKind::Center)
            output.word("tqc");
        else if (tab.kind == RTFTabKind::Decimal)
            output.word("tqdec");
        output.word("tx", tab.location);
    }
}

void writeLineHeight(RTFOutput& output, const RTFParagraphFormat& format)
{
    writeUnless(output, "sl", format.lineHeight);
    if (format.isLineHeightMultiple)
        output.word("slmult", 1);
    writeUnless(output, "slminimum", format.minimumLineHeight);
    writeUnless(output, "slmaximum", format.maximumLineHeight);
    writeUnless(output, "slleading", format.lineSpacing);
}

void writeDirection(RTFOutput& output, const RTFParagraphFormat& format)
{
    if (format.direction == RTFDirection::Natural)
        output.word("pardirnatural");
    else if (format.direction == RTFDirection::RightToLeft)
        output.word("rtlpar");
    switch (format.alignment) {
    case RTFAlignment::None:
        break;
    case RTFAlignment::Left:
        output.word("ql");
        break;
    case RTFAlignment::Right:
        output.word("qr");
        break;
    case RTFAlignment::Center:
        output.word("qc");
        break;
    case RTFAlignment::Justified:
        output.word("qj");
        break;
    case RTFAlignment::Natural:
        output.word("ql");
        output.word("qnatural");
        break;
    }
}

} // namespace

RTFParagraphFormat paragraphFormatOf(const NSParagraphStyle& style, const RTFPage& page,
                                     RTFListWriting& lists)
{
    RTFParagraphFormat format;
    for (const auto& tab : style.tabStops())
        format.tabs.push_back({kindOf(*tab), twipsFromPoints(tab->location())});
    format.defaultTab = twipsFromPoints(style.defaultTabInterval());
    format.headIndent = twipsFromPoints(style.headIndent());
    format.firstIndent = twipsFromPoints(style.firstLineHeadIndent()) - format.headIndent;
    format.rightIndent = rightIndentOf(style.tailIndent(), page);
    setLineHeight(format, style);
    format.lineSpacing = twipsFromPoints(style.lineSpacing());
    format.spaceBefore = twipsFromPoints(style.paragraphSpacingBefore());
    format.spaceAfter = twipsFromPoints(style.paragraphSpacing());
    format.hyphenation = wholeNumber(static_cast<double>(style.hyphenationFactor()) * kHyphenationUnits);
    format.direction = directionOf(style);
    format.alignment = alignmentOf(style);
    if (style.headerLevel() > 0)
        format.outlineLevel = wholeNumber(static_cast<double>(style.headerLevel() - 1));
    if (!style.textLists().empty()) {
        const auto place = lists.placeOf(style.textLists());
        format.list = place.list;
        format.listLevel = place.level;
    }
    return format;
}

void writeParagraphFormat(RTFOutput& output, const RTFParagraphFormat& format, const RTFPage& page)
{
    output.word("pard");
    if (format.isInTable) {
        output.word("intbl");
        output.word("itap", format.tableDepth);
    }
    writeTabs(output, format.tabs);
    writeUnless(output, "pardeftab", format.defaultTab.value_or(page.defaultTab), page.defaultTab);
    writeUnless(output, "li", format.headIndent);
    writeUnless(output, "fi", format.firstIndent);
    writeUnless(output, "ri", format.rightIndent);
    writeLineHeight(output, format);
    writeUnless(output, "sb", format.spaceBefore);
    writeUnless(output, "sa", format.spaceAfter);
    writeUnless(output, "parhyphenfactor", format.hyphenation);
    writeDirection(output, format);
    if (format.outlineLevel)
        output.word("outlinelevel", *format.outlineLevel);
    output.word("partightenfactor", 0);
    output.lineBreak();
    if (format.list == 0)
        return;
    output.word("ls", format.list);
    output.word("ilvl", format.listLevel);
}
