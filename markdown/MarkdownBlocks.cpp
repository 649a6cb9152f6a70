#include "markdown/MarkdownBlocks.h"

#include "markdown/MarkdownLine.h"
#include "markdown/MarkdownTable.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t kMostLists = 16;
constexpr std::size_t kMostQuotes = 8;

class BlockReader {
public:
    explicit BlockReader(const std::function<void(const MarkdownBlock&)>& visitor)
        : m_visitor(visitor)
    {
    }

    void readLine(std::u16string_view text)
    {
        MarkdownLine line(text);
        const auto quoteDepth = line.takeQuoteMarks(m_fence ? m_quoteDepth : kMostQuotes);
        if (quoteDepth != m_quoteDepth)
            leaveQuote(quoteDepth);
        if (m_fence)
            return readCode(line);
        if (line.isBlank())
            return endBlock();
        readBlock(line);
    }

    void finish() { endBlock(); }

private:
    struct Item {
        MarkdownList list;
        char16_t sign = u'-';
        NSInteger nextNumber = 1;
        /// Where the text of the item begins.
        std::size_t column = 0;
    };

    struct Fence {
        char16_t sign = u'`';
        std::size_t length = 0;
        std::size_t column = 0;
        bool hasLines = false;
    };

    void leaveQuote(std::size_t quoteDepth)
    {
        endBlock();
        m_fence.reset();
        m_items.clear();
        m_quoteDepth = quoteDepth;
    }

    void endBlock()
    {
        if (m_block)
            m_visitor(*std::exchange(m_block, std::nullopt));
    }

    [[nodiscard]] bool isInParagraph() const
    {
        return m_block && m_block->kind == MarkdownBlock::Kind::Paragraph && !m_block->text.empty();
    }

    [[nodiscard]] bool isInTable() const { return m_block && m_block->kind == MarkdownBlock::Kind::Table; }

    [[nodiscard]] bool isInItem(std::size_t column) const
    {
        return m_items.empty() || m_items.back().column <= column;
    }

    MarkdownBlock& beginBlock(MarkdownBlock::Kind kind)
    {
        // An item's first block was begun with its marker.
        const bool isBegun = m_block && m_block->beginsItem && m_block->text.empty()
            && m_block->kind == MarkdownBlock::Kind::Paragraph;
        if (!isBegun)
            endBlock();
        if (!m_block)
            openBlock();
        m_block->kind = kind;
        return *m_block;
    }

    void openBlock()
    {
        m_block.emplace();
        m_block->quoteDepth = m_quoteDepth;
        for (const auto& item : m_items)
            m_block->lists.push_back(item.list);
    }

    /// Leaves the items whose text begins behind this column. Gives the outermost of them.
    std::optional<Item> leaveItems(std::size_t column)
    {
        std::optional<Item> left;
        while (!m_items.empty() && m_items.back().column > column) {
            left = m_items.back();
            m_items.pop_back();
        }
        if (left)
            endBlock();
        return left;
    }

    void readBlock(MarkdownLine& line)
    {
        line.takeBlanks();
        for (std::size_t count = 0; count < kMostLists && readBullet(line); ++count)
            line.takeBlanks();
        if (line.isBlank())
            return;
        const auto column = line.column();
        if (const auto level = line.underlineLevel(); level > 0 && isInParagraph() && isInItem(column))
            return underline(level);
        if (const auto length = line.fenceLength(); length > 0)
            return openFence(line, length);
        if (line.isRule()) {
            leaveItems(column);
            beginBlock(MarkdownBlock::Kind::Rule);
            return endBlock();
        }
        if (const auto level = line.takeHeading(); level > 0)
            return readHeading(line, level, column);
        readText(line, column);
    }

    /// Takes the marker of an item and begins it.
    bool readBullet(MarkdownLine& line)
    {
        if (line.isRule())
            return false;
        auto ahead = line;
        const auto bullet = ahead.takeBullet();
        if (!bullet || !mayBegin(*bullet, ahead))
            return false;
        const auto column = line.column();
        const auto left = leaveItems(column);
        endBlock();
        if (m_items.size() >= kMostLists)
            m_items.pop_back();
        openItem(*bullet, left, column + bullet->width);
        auto& block = beginBlock(MarkdownBlock::Kind::Paragraph);
        block.beginsItem = true;
        block.number = m_items.back().nextNumber++;
        ahead.takeBlanks();
        if (!bullet->number)
            block.isTicked = ahead.takeBox();
        line = ahead;
        return true;
    }

    /// Within a paragraph that is in no list, only what cannot be meant as its text begins an item.
    [[nodiscard]] bool mayBegin(const MarkdownBullet& bullet, const MarkdownLine& behind) const
    {
        if (!isInParagraph() || !m_items.empty())
            return true;
        return !behind.isBlank() && bullet.number.value_or(1) == 1;
    }

    /// An item goes on with the list of the one before it when it has the same sign.
    void openItem(const MarkdownBullet& bullet, const std::optional<Item>& before, std::size_t column)
    {
        const bool isSameList
            = before && before->sign == bullet.sign && before->list.isOrdered == bullet.number.has_value();
        if (isSameList)
            m_items.push_back(*before);
        else
            m_items.push_back({{++m_listCount, bullet.number.has_value(), bullet.number.value_or(1)},
                               bullet.sign,
                               bullet.number.value_or(1),
                               0});
        m_items.back().column = column;
        m_items.back().sign = bullet.sign;
    }

    void underline(int level)
    {
        m_block->kind = MarkdownBlock::Kind::Heading;
        m_block->level = level;
        endBlock();
    }

    void openFence(const MarkdownLine& line, std::size_t length)
    {
        leaveItems(line.column());
        beginBlock(MarkdownBlock::Kind::Code);
        m_fence = Fence{line.rest().front(), length, line.column(), false};
    }

    void readCode(MarkdownLine& line)
    {
        auto ahead = line;
        ahead.takeBlanks();
        if (ahead.closesFence(m_fence->sign, m_fence->length)) {
            m_fence.reset();
            return endBlock();
        }
        line.takeBlanks(m_fence->column - std::min(m_fence->column, line.column()));
        if (std::exchange(m_fence->hasLines, true))
            m_block->text += u'\n';
        m_block->text += line.rest();
    }

    void readHeading(const MarkdownLine& line, int level, std::size_t column)
    {
        leaveItems(column);
        auto& block = beginBlock(MarkdownBlock::Kind::Heading);
        block.level = level;
        block.text = line.rest();
        endBlock();
    }

    /// Makes the last line of the paragraph the head of a table when this line gives its alignments.
    bool beginTable(std::u16string_view line)
    {
        auto alignments = markdownAlignments(line);
        if (!alignments)
            return false;
        auto& text = m_block->text;
        const auto end = text.rfind(u'\n');
        auto head = markdownCells(std::u16string_view(text).substr(end == text.npos ? 0 : end + 1));
        if (head.size() != alignments->size())
            return false;
        text.resize(end == text.npos ? 0 : end);
        if (!text.empty() || m_block->beginsItem)
            endBlock();
        openBlock();
        m_block->kind = MarkdownBlock::Kind::Table;
        m_block->alignments = std::move(*alignments);
        m_block->rows.push_back(std::move(head));
        return true;
    }

    void readRow(std::u16string_view line)
    {
        auto cells = markdownCells(line);
        cells.resize(std::min(cells.size(), m_block->alignments.size()));
        m_block->rows.push_back(std::move(cells));
    }

    void readText(const MarkdownLine& line, std::size_t column)
    {
        if (isInTable() && isInItem(column))
            return readRow(line.rest());
        if (isInParagraph() && isInItem(column) && beginTable(line.rest()))
            return;
        if (isInParagraph()) {
            m_block->text += u'\n';
            m_block->text += line.rest();
            return;
        }
        leaveItems(column);
        beginBlock(MarkdownBlock::Kind::Paragraph).text = line.rest();
    }

    const std::function<void(const MarkdownBlock&)>& m_visitor;
    std::optional<MarkdownBlock> m_block;
    std::vector<Item> m_items;
    std::optional<Fence> m_fence;
    std::size_t m_quoteDepth = 0;
    std::size_t m_listCount = 0;
};

} // namespace

void readMarkdownBlocks(std::u16string_view text, const std::function<void(const MarkdownBlock&)>& visitor)
{
    BlockReader reader(visitor);
    while (!text.empty()) {
        const auto end = std::min(text.find_first_of(u"\n\r"), text.size());
        reader.readLine(text.substr(0, end));
        text.remove_prefix(end);
        text.remove_prefix(text.starts_with(u"\r\n") ? 2 : std::min<std::size_t>(text.size(), 1));
    }
    reader.finish();
}
