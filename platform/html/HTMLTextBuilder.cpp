#include "platform/html/HTMLTextBuilder.h"

#include "platform/foundation/Unicode.h"
#include "platform/html/HTMLBlockStyle.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFontManager.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr char16_t kLineSeparator = 0x2028;
constexpr double kFirstListTab = 11;
constexpr double kGapBehindListTab = 20;

bool isCollapsible(char16_t unit)
{
    return unit == u' ' || unit == u'\t' || unit == u'\n' || unit == u'\f' || unit == u'\r';
}

int fontManagerWeightOf(int weight)
{
    // By hundreds: thin, extra light, light, regular, medium, semibold, bold, heavy, black.
    constexpr std::array<int, 10> kWeights{2, 2, 3, 4, 5, 6, 8, 9, 10, 12};
    return kWeights.at(static_cast<std::size_t>(std::clamp(weight / 100, 0, 9)));
}

/// A URL; a text when it is none.
NSAny linkValue(const std::u16string& target)
{
    const auto url = NSURL::URLWithString(UTF8FromUTF16(target));
    return url ? NSAny(*url) : NSAny(target);
}

NSParagraphStyle::TabStops listTabStops(double first, double head)
{
    NSParagraphStyle::TabStops stops{
        std::make_shared<const NSTextTab>(NSTextAlignment::Natural, first + kFirstListTab),
        std::make_shared<const NSTextTab>(NSTextAlignment::Natural, head)};
    for (const auto& stop : NSParagraphStyle::defaultTabStops()) {
        if (stop->location() > head + kGapBehindListTab)
            stops.push_back(stop);
    }
    return stops;
}

void setIndents(NSMutableParagraphStyle& paragraph, const HTMLComputedStyle& style,
                const HTMLParagraphContext& context)
{
    const auto depth = context.lists.empty() ? context.listDepth : context.lists.size();
    const auto head = context.leftIndent + kListIndent * static_cast<double>(depth);
    paragraph.setHeadIndent(head);
    paragraph.setFirstLineHeadIndent(head + style.textIndent);
    if (context.rightIndent > 0)
        paragraph.setTailIndent(-context.rightIndent);
    if (context.lists.empty())
        return;
    // The geometry that lists have on the platform: the marker's tab, then the text's.
    paragraph.setFirstLineHeadIndent(head - kListIndent);
    paragraph.setTabStops(listTabStops(head - kListIndent, head));
    paragraph.setDefaultTabInterval(kListIndent);
}

} // namespace

void HTMLTextBuilder::appendText(std::u16string_view text, const HTMLComputedStyle& style,
                                 const HTMLTextMeaning& meaning, const HTMLParagraphContext& context)
{
    const auto attributes = attributesFor(style, meaning);
    while (!text.empty() && !isFull()) {
        const bool keepsLines = style.whiteSpace != HTMLWhiteSpace::Collapsed;
        const bool keepsBlanks = style.whiteSpace == HTMLWhiteSpace::Kept;
        const char16_t first = text.front();
        if (keepsLines && first == u'\n') {
            endLine(style, meaning, context);
            text.remove_prefix(1);
            continue;
        }
        if (isCollapsible(first) && !keepsBlanks) {
            if (m_paragraph && !m_endsWithBlank && !m_endsWithLineBreak && !m_skipsBlanks) {
                append(u" ", attributes);
                m_endsWithBlank = true;
            }
            text.remove_prefix(1);
            continue;
        }
        const auto* const end = std::find_if(text.begin(), text.end(), [keepsBlanks](char16_t unit) {
            return keepsBlanks ? unit == u'\n' : isCollapsible(unit);
        });
        const auto length = static_cast<std::size_t>(end - text.begin());
        beginParagraph(style, context);
        append(text.substr(0, length), attributes);
        text.remove_prefix(length);
    }
}

void HTMLTextBuilder::appendVerbatim(std::u16string_view text, const NSAttributes& attributes,
                                     const HTMLComputedStyle& style, const HTMLParagraphContext& context)
{
    if (isFull())
        return;
    beginParagraph(style, context);
    append(text, attributes);
    m_skipsBlanks = text.ends_with(u'\t');
}

void HTMLTextBuilder::appendLineBreak(const HTMLComputedStyle& style, const HTMLParagraphContext& context)
{
    if (isFull())
        return;
    beginParagraph(style, context);
    if (m_endsWithBlank)
        removeLastUnit();
    append({&kLineSeparator, 1}, attributesFor(style, {}));
    m_endsWithLineBreak = true;
}

void HTMLTextBuilder::endLine(const HTMLComputedStyle& style, const HTMLTextMeaning& meaning,
                              const HTMLParagraphContext& context)
{
    appendEmptyParagraph(style, context);
    if (m_paragraph) {
        m_paragraph->attributes = attributesFor(style, meaning);
        endParagraph();
    }
}

void HTMLTextBuilder::appendEmptyParagraph(const HTMLComputedStyle& style,
                                           const HTMLParagraphContext& context)
{
    if (!isFull())
        beginParagraph(style, context);
}

void HTMLTextBuilder::breakBlock(double marginAbove, double marginBelow)
{
    endParagraph();
    m_marginAbove = std::max(m_marginAbove, marginAbove);
    m_marginBelow = std::max(m_marginBelow, marginBelow);
}

void HTMLTextBuilder::beginParagraph(const HTMLComputedStyle& style, const HTMLParagraphContext& context)
{
    if (m_paragraph)
        return;
    const auto gap = std::max(m_marginAbove - m_marginBelow, 0.0);
    settleLast();
    m_paragraph = Paragraph{{m_text.length(), 0}, {}, attributesFor(style, {})};
    auto& paragraph = m_paragraph->style;
    paragraph.setParagraphSpacingBefore(gap);
    paragraph.setAlignment(style.alignment);
    paragraph.setBaseWritingDirection(style.direction);
    paragraph.setLineHeightMultiple(style.lineHeightMultiple);
    paragraph.setMinimumLineHeight(style.fixedLineHeight);
    paragraph.setMaximumLineHeight(style.fixedLineHeight);
    paragraph.setLineSpacing(style.lineSpacing);
    paragraph.setHeaderLevel(context.headerLevel);
    paragraph.setTextLists(context.lists);
    paragraph.setTextBlocks(context.blocks);
    setIndents(paragraph, style, context);
}

void HTMLTextBuilder::endParagraph()
{
    if (!m_paragraph)
        return;
    // The last line break of a block only ends its last line.
    if (m_endsWithBlank || m_endsWithLineBreak)
        removeLastUnit();
    auto attributes = std::move(m_paragraph->attributes);
    // An attachment belongs to its character alone.
    attributes.erase(std::u16string(NSAttachmentAttributeName));
    append(u"\n", attributes);
    m_paragraph->range.length = m_text.length() - m_paragraph->range.location;
    m_last = std::move(m_paragraph);
    m_paragraph.reset();
}

void HTMLTextBuilder::append(std::u16string_view text, const NSAttributes& attributes)
{
    m_text.appendAttributedString(NSAttributedString(std::u16string(text), attributes));
    m_endsWithBlank = false;
    m_endsWithLineBreak = false;
    m_skipsBlanks = false;
    if (m_paragraph && text != u"\n")
        m_paragraph->attributes = attributes;
}

void HTMLTextBuilder::removeLastUnit()
{
    m_text.deleteCharactersInRange({m_text.length() - 1, 1});
    m_endsWithBlank = false;
    m_endsWithLineBreak = false;
}

void HTMLTextBuilder::settleLast()
{
    if (m_last) {
        m_last->style.setParagraphSpacing(m_marginBelow);
        // Paragraphs that are set alike share one style.
        if (!m_lastStyle || !m_lastStyle->isEqual(m_last->style))
            m_lastStyle = m_last->style.copy();
        m_text.addAttribute(NSParagraphStyleAttributeName, NSAny(m_lastStyle), m_last->range);
        m_last.reset();
    }
    m_marginAbove = 0;
    m_marginBelow = 0;
}

NSFont::Ref HTMLTextBuilder::fontFor(const HTMLComputedStyle& style)
{
    const auto [place, isNew]
        = m_fonts.try_emplace(FontKey(style.family, style.fontSize, style.weight, style.isItalic));
    if (!isNew)
        return place->second;
    const auto& manager = NSFontManager::sharedFontManager();
    const unsigned traits = style.isItalic ? unsigned{NSItalicFontMask} : 0U;
    const auto weight = fontManagerWeightOf(style.weight);
    auto font = manager.fontWithFamily(style.family, traits, weight, style.fontSize);
    if (!font)
        font = manager.fontWithFamily(style.family, 0, weight, style.fontSize);
    place->second = font ? font : NSFont::userFontOfSize(style.fontSize);
    return place->second;
}

NSAttributes HTMLTextBuilder::attributesFor(const HTMLComputedStyle& style, const HTMLTextMeaning& meaning)
{
    NSAttributes attributes;
    const auto set = [&attributes](std::u16string_view name, NSAny value) {
        if (value)
            attributes.insert_or_assign(std::u16string(name), std::move(value));
    };
    set(NSFontAttributeName, NSAny(fontFor(style)));
    set(NSForegroundColorAttributeName, NSAny(style.color));
    set(NSBackgroundColorAttributeName, NSAny(style.textBackground));
    set(NSShadowAttributeName, NSAny(style.shadow));
    if (style.isUnderlined)
        set(NSUnderlineStyleAttributeName, style.lineStyle);
    if (style.isStruck)
        set(NSStrikethroughStyleAttributeName, style.lineStyle);
    if (style.lineColor && (style.isUnderlined || style.isStruck))
        set(style.isUnderlined ? NSUnderlineColorAttributeName : NSStrikethroughColorAttributeName,
            NSAny(style.lineColor));
    if (style.superscript != 0)
        set(NSSuperscriptAttributeName, style.superscript);
    if (style.baselineOffset != 0)
        set(NSBaselineOffsetAttributeName, style.baselineOffset);
    if (style.kern != 0)
        set(NSKernAttributeName, style.kern);
    if (!meaning.link.empty())
        set(NSLinkAttributeName, linkValue(meaning.link));
    if (!meaning.toolTip.empty())
        set(NSToolTipAttributeName, meaning.toolTip);
    if (!meaning.highlight.empty()) {
        set(NSTextHighlightStyleAttributeName, NSTextHighlightStyleDefault);
        set(NSTextHighlightColorSchemeAttributeName, meaning.highlight);
    }
    return attributes;
}

NSAttributedString HTMLTextBuilder::finish()
{
    endParagraph();
    if (m_last && m_last->style.textBlocks().empty()) {
        removeLastUnit();
        --m_last->range.length;
    }
    settleLast();
    return std::move(m_text);
}
