#include "markdown/MarkdownImport.h"

#include "markdown/MarkdownBlocks.h"
#include "markdown/MarkdownSpans.h"
#include "platform/foundation/NSURL.h"
#include "platform/foundation/Unicode.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSFontManager.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/text/NSTextTable.h"

#include <algorithm>
#include <array>
#include <map>
#include <tuple>

namespace {

constexpr double kListIndent = 36;
constexpr double kMarkerIndent = 11;
constexpr double kQuoteLine = 3;
constexpr double kQuotePadding = 10;
constexpr double kCellLine = 1;
constexpr double kCellPadding = 4;
constexpr std::u16string_view kRule = u"***";
constexpr std::array<double, 7> kSizeOfLevel{1, 2, 1.5, 1.25, 1.1, 1, 1};

class Importer {
public:
    explicit Importer(const MarkdownImportOptions& options)
        : m_options(options)
    {
    }

    void add(const MarkdownBlock& block)
    {
        takeLists(block);
        takeQuotes(block.quoteDepth);
        if (block.kind == MarkdownBlock::Kind::Table)
            return addTable(block);
        NSAttributes attributes{{std::u16string(NSParagraphStyleAttributeName), styleOf(block)}};
        if (m_text.length() > 0 || m_endsWithEmptyCell)
            append(u"\n", m_lastAttributes);
        m_lastParagraph = m_text.length();
        addMarker(block, attributes);
        if (block.kind == MarkdownBlock::Kind::Code)
            addCode(block, attributes);
        else if (block.kind == MarkdownBlock::Kind::Rule)
            append(kRule, withFont(attributes, font({}, 0)));
        else
            addSpans(block.text, block.level, attributes);
        m_lastAttributes = withFont(attributes, font({}, block.level));
        m_last = block;
        m_last->text.clear();
        m_endsWithEmptyCell = false;
    }

    NSAttributedString finish()
    {
        // An empty cell has nothing but its line end to be one by.
        if (m_endsWithEmptyCell)
            append(u"\n", m_lastAttributes);
        return std::move(m_text);
    }

private:
    struct OpenList {
        std::size_t identifier = 0;
        NSTextList::Ref list;
        NSTextList::Ref checked;
        NSTextList::Ref open;
        /// The one of these that the last item is in, and the items within it.
        NSTextList::Ref current;
    };

    void append(std::u16string_view text, const NSAttributes& attributes)
    {
        m_text.appendAttributedString(NSAttributedString(std::u16string(text), attributes));
    }

    // Paragraphs.

    void takeLists(const MarkdownBlock& block)
    {
        std::size_t common = 0;
        while (common < m_lists.size() && common < block.lists.size()
               && m_lists[common].identifier == block.lists[common].identifier)
            ++common;
        m_lists.resize(common);
        for (auto depth = common; depth < block.lists.size(); ++depth) {
            const auto list = listOf(block.lists[depth], depth);
            m_lists.push_back({block.lists[depth].identifier, list, nullptr, nullptr, list});
        }
    }

    static NSTextList::Ref listOf(const MarkdownList& list, std::size_t depth)
    {
        if (list.isOrdered)
            return std::make_shared<NSTextList>(std::u16string(NSTextListMarkerDecimal) + u".", 0,
                                                list.start);
        constexpr std::array<std::u16string_view, 3> kFormats{NSTextListMarkerDisc, NSTextListMarkerHyphen,
                                                              NSTextListMarkerSquare};
        return std::make_shared<NSTextList>(kFormats.at(std::min<std::size_t>(depth, kFormats.size() - 1)));
    }

    void takeQuotes(std::size_t depth)
    {
        m_quotes.resize(std::min(depth, m_quotes.size()));
        while (m_quotes.size() < depth) {
            const auto block = std::make_shared<NSTextBlock>();
            block->setWidth({kQuoteLine, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Border,
                            NSRectEdge::MinX);
            block->setWidth({kQuotePadding, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Padding,
                            NSRectEdge::MinX);
            block->setBorderColor(NSColor::lightGrayColor(), NSRectEdge::MinX);
            m_quotes.push_back(block);
        }
    }

    NSParagraphStyle::Ref styleOf(const MarkdownBlock& block)
    {
        NSMutableParagraphStyle style;
        style.setHeaderLevel(block.level);
        style.setTextBlocks(m_quotes);
        if (block.kind == MarkdownBlock::Kind::Rule)
            style.setAlignment(NSTextAlignment::Center);
        const bool isNextItem = m_last && block.beginsItem && !m_last->lists.empty();
        if (m_last && !isNextItem && !(block.isTicked && setSpacingAfterLastParagraph()))
            style.setParagraphSpacingBefore(m_options.font->pointSize());
        const auto head = kListIndent * static_cast<double>(m_lists.size());
        style.setHeadIndent(head);
        style.setFirstLineHeadIndent(head);
        if (block.beginsItem)
            setItem(style, block, head);
        // Neighbours are mostly set alike and share their style.
        if (!m_lastStyle || !m_lastStyle->isEqual(style))
            m_lastStyle = style.copy();
        return m_lastStyle;
    }

    /// For what follows and keeps no spacing before itself: cells do not, nor do paragraphs with a box.
    bool setSpacingAfterLastParagraph()
    {
        if (!m_lastParagraph)
            return false;
        const std::u16string name(NSParagraphStyleAttributeName);
        auto style = m_lastAttributes.at(name).object<NSParagraphStyle>()->mutableCopy();
        style.setParagraphSpacing(m_options.font->pointSize());
        const NSAny spaced(style.copy());
        m_text.addAttribute(name, spaced, {*m_lastParagraph, m_text.length() - *m_lastParagraph});
        m_lastAttributes.insert_or_assign(name, spaced);
        return true;
    }

    void setItem(NSMutableParagraphStyle& style, const MarkdownBlock& block, double head)
    {
        auto& innermost = m_lists.back();
        innermost.current = block.isTicked ? checklist(innermost, *block.isTicked) : innermost.list;
        NSParagraphStyle::TextLists lists;
        for (const auto& open : m_lists)
            lists.push_back(open.current);
        style.setTextLists(std::move(lists));
        style.setFirstLineHeadIndent(head - kListIndent);
        style.setTabStops(
            {std::make_shared<const NSTextTab>(NSTextAlignment::Left, head - kListIndent + kMarkerIndent),
             std::make_shared<const NSTextTab>(NSTextAlignment::Natural, head)});
        style.setDefaultTabInterval(kListIndent);
    }

    static NSTextList::Ref checklist(OpenList& open, bool isTicked)
    {
        auto& list = isTicked ? open.checked : open.open;
        if (!list)
            list = std::make_shared<NSTextList>(isTicked ? NSTextListMarkerCheck : NSTextListMarkerCircle);
        return list;
    }

    void addMarker(const MarkdownBlock& block, const NSAttributes& attributes)
    {
        if (!block.beginsItem)
            return;
        append(u"\t" + m_lists.back().current->markerForItemNumber(block.number) + u"\t",
               withFont(attributes, font({}, 0)));
    }

    // Tables.

    void addTable(const MarkdownBlock& block)
    {
        setSpacingAfterLastParagraph();
        m_lastParagraph.reset();
        const auto table = std::make_shared<NSTextTable>();
        table->setNumberOfColumns(block.alignments.size());
        table->setCollapsesBorders(true);
        for (std::size_t row = 0; row < block.rows.size(); ++row) {
            const auto& cells = block.rows[row];
            for (std::size_t column = 0; column < cells.size(); ++column)
                addCell(cells[column], styleOfCell(cellOf(table, row, column), block.alignments[column]),
                        row == 0);
        }
        m_last.emplace();
        m_last->lists = block.lists;
    }

    static NSTextBlock::Ref cellOf(const NSTextTable::Ref& table, std::size_t row, std::size_t column)
    {
        const auto cell = std::make_shared<NSTextTableBlock>(table, static_cast<NSInteger>(row), 1,
                                                             static_cast<NSInteger>(column), 1);
        cell->setWidth({kCellLine, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Border);
        cell->setWidth({kCellPadding, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Padding);
        cell->setBorderColor(NSColor::lightGrayColor());
        return cell;
    }

    NSParagraphStyle::Ref styleOfCell(const NSTextBlock::Ref& cell, NSTextAlignment alignment) const
    {
        NSMutableParagraphStyle style;
        auto blocks = m_quotes;
        blocks.push_back(cell);
        style.setTextBlocks(std::move(blocks));
        style.setAlignment(alignment);
        return style.copy();
    }

    void addCell(std::u16string_view cell, const NSParagraphStyle::Ref& style, bool isHead)
    {
        const NSAttributes attributes{{std::u16string(NSParagraphStyleAttributeName), style}};
        if (m_text.length() > 0 || m_endsWithEmptyCell)
            append(u"\n", m_lastAttributes);
        const auto start = m_text.length();
        for (auto& span : markdownSpans(cell)) {
            span.isStrong = span.isStrong || isHead;
            addSpan(span, 0, attributes);
        }
        m_endsWithEmptyCell = m_text.length() == start;
        m_lastAttributes = withFont(attributes, font({}, 0));
    }

    // Text.

    void addCode(const MarkdownBlock& block, const NSAttributes& attributes)
    {
        auto lines = block.text;
        std::replace(lines.begin(), lines.end(), u'\n', u'\u2028');
        std::erase(lines, NSAttachmentCharacter);
        append(
            lines,
            withFont(attributes, font({.kind = MarkdownSpan::Kind::Code, .text = {}, .link = nullptr}, 0)));
    }

    void addSpans(std::u16string_view text, int level, const NSAttributes& attributes)
    {
        for (auto& span : markdownSpans(text))
            addSpan(span, level, attributes);
    }

    void addSpan(MarkdownSpan& span, int level, const NSAttributes& attributes)
    {
        auto own = withFont(attributes, font(span, level));
        if (span.isStruck)
            own.insert_or_assign(std::u16string(NSStrikethroughStyleAttributeName), std::int64_t{1});
        if (span.isHighlighted) {
            own.insert_or_assign(std::u16string(NSTextHighlightStyleAttributeName),
                                 NSTextHighlightStyleDefault);
            own.insert_or_assign(std::u16string(NSTextHighlightColorSchemeAttributeName),
                                 NSTextHighlightColorSchemeDefault);
        }
        if (span.isSuperscript != span.isSubscript)
            own.insert_or_assign(std::u16string(NSSuperscriptAttributeName),
                                 std::int64_t{span.isSuperscript ? 1 : -1});
        if (span.kind == MarkdownSpan::Kind::Image && addImage(span, own))
            return;
        if (span.link && !span.link->empty())
            own.insert_or_assign(std::u16string(NSLinkAttributeName), linkValue(*span.link));
        std::erase(span.text, NSAttachmentCharacter);
        append(span.text, own);
    }

    static NSAny linkValue(const std::u16string& target)
    {
        const auto url = NSURL::URLWithString(UTF8FromUTF16(target));
        return url ? NSAny(*url) : NSAny(target);
    }

    bool addImage(const MarkdownSpan& span, NSAttributes attributes)
    {
        const auto file = m_options.fileForImage && span.link ? m_options.fileForImage(*span.link) : nullptr;
        if (!file)
            return false;
        attributes.insert_or_assign(std::u16string(NSAttachmentAttributeName),
                                    NSAny(NSTextAttachment::initWithFileWrapper(file)));
        append({&NSAttachmentCharacter, 1}, attributes);
        return true;
    }

    static NSAttributes withFont(NSAttributes attributes, const NSFont::Ref& font)
    {
        attributes.insert_or_assign(std::u16string(NSFontAttributeName), NSAny(font));
        return attributes;
    }

    NSFont::Ref font(const MarkdownSpan& span, int level)
    {
        const bool isBold = span.isStrong || level > 0;
        const bool isCode = span.kind == MarkdownSpan::Kind::Code;
        auto& font = m_fonts[{level, isBold, span.isEmphasized, isCode}];
        if (font)
            return font;
        const auto& manager = NSFontManager::sharedFontManager();
        const auto size = m_options.font->pointSize() * kSizeOfLevel.at(static_cast<std::size_t>(level));
        font = isCode ? NSFont::userFixedPitchFontOfSize(size)
                      : manager.convertFontToSize(m_options.font, size);
        if (isBold)
            font = manager.convertFontToHaveTrait(font, NSBoldFontMask);
        if (span.isEmphasized)
            font = manager.convertFontToHaveTrait(font, NSItalicFontMask);
        return font;
    }

    const MarkdownImportOptions& m_options;
    NSMutableAttributedString m_text;
    NSAttributes m_lastAttributes;
    NSParagraphStyle::Ref m_lastStyle;
    std::optional<MarkdownBlock> m_last;
    /// Where the last paragraph begins, unless it is a cell.
    std::optional<NSUInteger> m_lastParagraph;
    bool m_endsWithEmptyCell = false;
    std::vector<OpenList> m_lists;
    NSParagraphStyle::TextBlocks m_quotes;
    std::map<std::tuple<int, bool, bool, bool>, NSFont::Ref> m_fonts;
};

} // namespace

NSAttributedString attributedStringWithMarkdown(std::u16string_view markdown,
                                                const MarkdownImportOptions& options)
{
    Importer importer(options);
    readMarkdownBlocks(markdown, [&importer](const MarkdownBlock& block) { importer.add(block); });
    return importer.finish();
}
