#include "markdown/MarkdownExport.h"

#include "markdown/MarkdownListNumbers.h"
#include "markdown/MarkdownSpanWriter.h"
#include "markdown/MarkdownTableWriter.h"
#include "markdown/MarkdownText.h"
#include "platform/html/HTMLListMarkers.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"
#include "strings/MarkdownSyntax.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr std::u16string_view kParagraphEnds = u"\n\r\u2029";
constexpr std::u16string_view kRule = u"***";
constexpr double kListIndent = 36;
constexpr std::size_t kMostDepth = 16;

std::u16string decimal(NSInteger number)
{
    const auto digits = fmt::format("{}", std::clamp<NSInteger>(number, 0, 999'999'999));
    return {digits.begin(), digits.end()};
}

std::u16string_view withoutBlankAtEnd(std::u16string_view text)
{
    return text.ends_with(u' ') ? text.substr(0, text.size() - 1) : text;
}

/// Whether the block looks as quotes do: a line at its left, no others and no ground.
bool isQuote(const NSTextBlock& block)
{
    if (block.backgroundColor() || dynamic_cast<const NSTextTableBlock*>(&block))
        return false;
    return std::all_of(kRectEdges.begin(), kRectEdges.end(), [&block](NSRectEdge edge) {
        const bool hasLine = block.widthForLayer(NSTextBlockLayer::Border, edge).value > 0;
        return hasLine == (edge == NSRectEdge::MinX);
    });
}

std::size_t quoteDepthOf(const NSParagraphStyle& style)
{
    const auto& blocks = style.textBlocks();
    return static_cast<std::size_t>(
        std::count_if(blocks.begin(), blocks.end(), [](const auto& block) { return isQuote(*block); }));
}

class Exporter {
public:
    Exporter(const NSAttributedString& text, const MarkdownExportOptions& options)
        : m_text(text)
        , m_filesFolder(options.filesFolder)
        , m_characters(text.string())
    {
    }

    std::u16string markdown()
    {
        for (std::size_t start = 0; start < m_characters.size();) {
            const auto end = std::min(m_characters.find_first_of(kParagraphEnds, start), m_characters.size());
            addParagraph({start, end - start});
            start = end + (m_characters.substr(end, 2) == u"\r\n" ? 2 : 1);
        }
        endTable();
        endCode();
        return std::move(m_markdown);
    }

private:
    enum class Kind { None, Item, Other };

    [[nodiscard]] NSParagraphStyle::Ref styleAt(NSUInteger location) const
    {
        const auto style
            = m_text.attribute(NSParagraphStyleAttributeName, location).object<NSParagraphStyle>();
        return style ? style : NSParagraphStyle::defaultParagraphStyle();
    }

    [[nodiscard]] std::u16string spansOf(NSRange content, MarkdownSpanContext context = {}) const
    {
        context.filesFolder = m_filesFolder;
        return markdownSpansOf(m_text, content, context);
    }

    void addParagraph(NSRange content)
    {
        const auto style = styleAt(content.location);
        const auto* const cell = cellOf(*style);
        if (cell)
            return addCell(content, *cell, *style);
        endTable();
        const bool isItem = !style->textLists().empty();
        if (m_codeStyle && content.length == 0 && !isItem) {
            ++m_emptyCodeLines;
            return;
        }
        if (!isItem && isMarkdownCode(m_text, content))
            return addCode(content, *style);
        endCode();
        if (isItem)
            return addItem(content, *style);
        const auto words = m_characters.substr(content.location, content.length);
        if (words == kRule && style->alignment() == NSTextAlignment::Center)
            return addBlock(std::u16string(kRule), *style);
        const auto level = std::clamp<NSInteger>(style->headerLevel(), 0, 6);
        if (level > 0)
            return addHeading(content, *style, static_cast<std::size_t>(level));
        const auto markdown = spansOf(content);
        if (!markdown.empty())
            addBlock(withEscapedStarts(markdown), *style);
    }

    static std::u16string withEscapedStarts(std::u16string_view markdown)
    {
        std::u16string lines;
        for (std::size_t start = 0; start <= markdown.size();) {
            const auto end = std::min(markdown.find(u'\n', start), markdown.size());
            lines += escapedMarkdownStart(markdown.substr(start, end - start));
            if (end < markdown.size())
                lines += u'\n';
            start = end + 1;
        }
        return lines;
    }

    void addHeading(NSRange content, const NSParagraphStyle& style, std::size_t level)
    {
        auto words = spansOf(content, {.isHeading = true});
        if (words.ends_with(u'#'))
            words.insert(words.size() - 1, 1, u'\\');
        addBlock(std::u16string(level, u'#').append(u" ").append(words), style);
    }

    // Lists.

    void addItem(NSRange content, const NSParagraphStyle& style)
    {
        const auto& list = *style.textLists().back();
        const auto written = listMarkerAtStart(m_characters.substr(content.location, content.length), list);
        const auto number = m_numbers.next(style.textLists(), written ? written->number : std::nullopt);
        if (written)
            content = {content.location + written->length, content.length - written->length};
        const auto depth = std::min({style.textLists().size() - 1, m_columns.size(), kMostDepth});
        const bool isOtherList = depth == 0 && !m_lastLists.empty() && !isOfLastList(style);
        if (isOtherList)
            m_isOtherSign = !m_isOtherSign && hasSignOfLastList(list);
        m_columns.resize(depth);
        const auto column
            = depth == 0 ? 0 : std::max(depth * CVLMarkdownChecklistIndentString.size(), m_columns.back());
        const auto marker = markerOf(list, number);
        m_columns.push_back(column + (isChecklist(list) ? CVLMarkdownBulletDash.size() : marker.size()));
        const auto words = withEscapedStarts(spansOf(content));
        if (isOtherList)
            m_lastKind = Kind::Other;
        writeBlock(std::u16string(column, u' '), marker + words, quoteDepthOf(style), Kind::Item);
        m_lastLists = style.textLists();
    }

    [[nodiscard]] std::u16string markerOf(const NSTextList& list, NSInteger number) const
    {
        if (isChecklist(list))
            return std::u16string(list.markerFormat() == NSTextListMarkerCheck
                                      ? CVLMarkdownChecklistOnString
                                      : CVLMarkdownChecklistOffString);
        if (isOrderedList(list))
            return decimal(number).append(m_isOtherSign ? u") " : u". ");
        return std::u16string(m_isOtherSign ? CVLMarkdownBulletAsterisk : CVLMarkdownBulletDash);
    }

    /// Items of a checklist each have a list of their own.
    [[nodiscard]] bool isOfLastList(const NSParagraphStyle& style) const
    {
        if (m_lastLists.empty())
            return false;
        const auto& list = style.textLists().front();
        return list == m_lastLists.front() || (isChecklist(*list) && isChecklist(*m_lastLists.front()));
    }

    /// Whether the two lists would be read as one.
    [[nodiscard]] bool hasSignOfLastList(const NSTextList& list) const
    {
        const auto& last = *m_lastLists.front();
        return !isChecklist(list) && !isChecklist(last) && isOrderedList(list) == isOrderedList(last);
    }

    // Code.

    /// Paragraphs of code are lines of one block, unless they stand apart.
    void addCode(NSRange content, const NSParagraphStyle& style)
    {
        if (style.paragraphSpacingBefore() > 0)
            endCode();
        if (!m_codeStyle)
            m_codeStyle = style.mutableCopy();
        else
            m_code.append(std::exchange(m_emptyCodeLines, 0) + 1, u'\n');
        m_code += m_characters.substr(content.location, content.length);
    }

    void endCode()
    {
        const auto style = std::exchange(m_codeStyle, std::nullopt);
        m_emptyCodeLines = 0;
        if (!style)
            return;
        auto code = std::exchange(m_code, {});
        std::replace(code.begin(), code.end(), u'\u2028', u'\n');
        std::erase(code, NSAttachmentCharacter);
        std::u16string fence = u"```";
        while (code.find(fence) != std::u16string::npos)
            fence += u'`';
        auto block = fence;
        block.append(u"\n").append(code).append(u"\n").append(fence);
        addBlock(block, *style);
    }

    // Tables.

    static const NSTextTableBlock* cellOf(const NSParagraphStyle& style)
    {
        for (const auto& block : style.textBlocks()) {
            const auto* const cell = dynamic_cast<const NSTextTableBlock*>(block.get());
            if (cell && cell->table())
                return cell;
        }
        return nullptr;
    }

    void addCell(NSRange content, const NSTextTableBlock& cell, const NSParagraphStyle& style)
    {
        endCode();
        if (!m_table.isOfTable(cell))
            endTable();
        m_tableQuoteDepth = quoteDepthOf(style);
        const auto words = spansOf(content, {.isHeading = m_table.isHead(cell), .isCell = true});
        m_table.add(cell, words, style.alignment());
    }

    void endTable()
    {
        if (m_table.isEmpty())
            return;
        m_columns.clear();
        writeBlock({}, m_table.finish(), m_tableQuoteDepth, Kind::Other);
        m_lastLists.clear();
    }

    // Lines.

    /// Writes a block that is no item; one that is set in from the margin belongs to the item before it.
    void addBlock(const std::u16string& lines, const NSParagraphStyle& style)
    {
        const auto depth = static_cast<std::size_t>(std::clamp(style.headIndent() / kListIndent, 0.0, 100.0));
        m_columns.resize(std::min(depth, m_columns.size()));
        writeBlock(std::u16string(m_columns.empty() ? 0 : m_columns.back(), u' '), lines, quoteDepthOf(style),
                   Kind::Other);
        m_lastLists.clear();
    }

    void writeBlock(const std::u16string& indentation, std::u16string_view lines, std::size_t quoteDepth,
                    Kind kind)
    {
        std::u16string quote;
        for (std::size_t depth = 0; depth < std::min(quoteDepth, kMostDepth); ++depth)
            quote += u"> ";
        const bool isNextItem = kind == Kind::Item && m_lastKind == Kind::Item && quote == m_lastQuote;
        if (m_lastKind != Kind::None && !isNextItem) {
            m_markdown.append(withoutBlankAtEnd(std::min(quote, m_lastQuote)));
            m_markdown.append(u"\n");
        }
        auto column = indentation;
        while (true) {
            const auto end = std::min(lines.find(u'\n'), lines.size());
            const auto line = lines.substr(0, end);
            if (line.empty())
                m_markdown.append(withoutBlankAtEnd(quote));
            else
                m_markdown.append(quote).append(column).append(line);
            m_markdown.append(u"\n");
            if (end == lines.size())
                break;
            lines.remove_prefix(end + 1);
            if (kind == Kind::Item)
                column.assign(m_columns.back(), u' ');
        }
        m_lastKind = kind;
        m_lastQuote = quote;
    }

    const NSAttributedString& m_text;
    std::u16string_view m_filesFolder;
    std::u16string_view m_characters;
    std::u16string m_markdown;
    Kind m_lastKind = Kind::None;
    std::u16string m_lastQuote;
    NSParagraphStyle::TextLists m_lastLists;
    /// Where the text of the last item of each depth begins.
    std::vector<std::size_t> m_columns;
    MarkdownListNumbers m_numbers;
    /// Neighbouring lists are told apart by their signs.
    bool m_isOtherSign = false;
    std::optional<NSMutableParagraphStyle> m_codeStyle;
    std::u16string m_code;
    /// Paragraphs without text behind the code, which belong to it if more code follows.
    std::size_t m_emptyCodeLines = 0;
    MarkdownTableWriter m_table;
    std::size_t m_tableQuoteDepth = 0;
};

} // namespace

std::u16string markdownWithAttributedString(const NSAttributedString& text,
                                            const MarkdownExportOptions& options)
{
    return Exporter(text, options).markdown();
}
