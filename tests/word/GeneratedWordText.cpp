#include "tests/word/GeneratedWordText.h"

#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

#include <array>
#include <random>
#include <string>

namespace {

/// Makes texts whose every value is one that the format's numbers hold.
class TextMaker {
public:
    explicit TextMaker(unsigned seed)
        : m_random(seed)
    {
    }

    NSAttributedString text()
    {
        for (auto count = number(1, 10); count > 0; --count) {
            switch (number(0, 4)) {
            case 0:
                addTable({}, 0);
                addParagraph(style(), u"", {});
                break;
            case 1:
                addList();
                break;
            default:
                addParagraph(style(), u"", {});
            }
        }
        addParagraph(style(), u"", {});
        return m_text;
    }

private:
    int number(int least, int most) { return std::uniform_int_distribution(least, most)(m_random); }

    /// One of so many times.
    bool chance(int times) { return number(1, times) == 1; }

    double twips(int least, int most) { return number(least, most) / 20.0; }

    template <typename Values> auto oneOf(const Values& values)
    {
        return values.at(static_cast<std::size_t>(number(0, static_cast<int>(values.size()) - 1)));
    }

    std::u16string characters()
    {
        static constexpr std::array<std::u16string_view, 13> kPieces{
            u"word", u" ",      u"<&>", u"\"'",    u"\u00E9", u"\u201C", u"\U0001F600",
            u"\t",   u"\u2028", u"\f",  u"\u2011", u"\u00AD", u"  "};
        std::u16string made = u"x";
        for (auto count = number(1, 6); count > 0; --count)
            made += oneOf(kPieces);
        return made;
    }

    NSColor::Ref color()
    {
        const auto channel = [this] { return number(0, 255) / 255.0; };
        return NSColor::colorWithSRGBRed(channel(), channel(), channel(), 1);
    }

    NSFont::Ref font()
    {
        static constexpr std::array<std::u16string_view, 6> kNames{
            u"Helvetica",     u"Helvetica-Bold", u"Helvetica-BoldOblique",
            u"Menlo-Regular", u"Times-Roman",    u"Times-Italic"};
        return NSFont::fontWithName(oneOf(kNames), number(8, 80) / 2.0);
    }

    NSAttributes attributes()
    {
        NSAttributes made{{std::u16string(NSFontAttributeName), font()}};
        const auto add = [&](std::u16string_view name, auto make) {
            if (chance(5))
                made.emplace(name, NSAny(make()));
        };
        add(NSForegroundColorAttributeName, [this] { return color(); });
        add(NSBackgroundColorAttributeName, [this] { return color(); });
        add(NSUnderlineStyleAttributeName, [this] {
            return oneOf(std::array{1, 2, 9, 0x8001, 0x101, 0x202, 0x301, 0x402});
        });
        if (made.contains(NSUnderlineStyleAttributeName))
            add(NSUnderlineColorAttributeName, [this] { return color(); });
        add(NSStrikethroughStyleAttributeName, [this] { return chance(2) ? 1 : 9; });
        add(NSBaselineOffsetAttributeName, [this] { return number(1, 9) / 2.0 * (chance(2) ? 1 : -1); });
        add(NSSuperscriptAttributeName, [this] { return chance(2) ? 1 : -1; });
        add(NSKernAttributeName, [this] { return twips(1, 40) * (chance(2) ? 1 : -1); });
        if (chance(5)) {
            made.insert_or_assign(std::u16string(NSForegroundColorAttributeName), NSAny(color()));
            made.insert_or_assign(std::u16string(NSUnderlineStyleAttributeName), NSAny(1));
            made.emplace(NSLinkAttributeName, *NSURL::URLWithString("https://a.example/b?c&d#e"));
            if (chance(2))
                made.emplace(NSToolTipAttributeName, u"tip & \"tip\"");
        }
        return made;
    }

    NSMutableParagraphStyle style()
    {
        NSMutableParagraphStyle made;
        made.setDefaultTabInterval(30);
        made.setTabStops({});
        if (chance(3))
            return made;
        made.setAlignment(static_cast<NSTextAlignment>(number(0, 4)));
        if (chance(4))
            made.setBaseWritingDirection(NSWritingDirection::RightToLeft);
        made.setHeadIndent(twips(-200, 900));
        made.setFirstLineHeadIndent(twips(-200, 900));
        made.setTailIndent(chance(2) ? 0 : -twips(1, 800));
        made.setParagraphSpacing(twips(0, 900));
        made.setParagraphSpacingBefore(twips(0, 900));
        if (chance(3))
            made.setLineHeightMultiple(number(241, 600) / 240.0);
        else if (chance(2))
            made.setMinimumLineHeight(twips(1, 900));
        if (chance(2))
            made.setMaximumLineHeight(made.minimumLineHeight());
        made.setHeaderLevel(chance(2) ? number(0, 9) : 0);
        if (chance(2))
            made.setTabStops({std::make_shared<const NSTextTab>(NSTextAlignment::Right, twips(1, 900)),
                              std::make_shared<const NSTextTab>(NSTextAlignment::Center, twips(901, 1900))});
        return made;
    }

    void append(std::u16string text, NSAttributes attributes, const NSAny& style)
    {
        attributes.emplace(NSParagraphStyleAttributeName, style);
        m_text.appendAttributedString(NSAttributedString(std::move(text), std::move(attributes)));
    }

    /// The marker has the looks of the paragraph's end, and neither is part of a link.
    void addParagraph(const NSMutableParagraphStyle& style, std::u16string_view marker,
                      const NSParagraphStyle::TextBlocks& blocks)
    {
        auto inBlocks = style;
        inBlocks.setTextBlocks(blocks);
        const NSAny shared(inBlocks.copy());
        auto end = attributes();
        end.erase(std::u16string(NSLinkAttributeName));
        end.erase(std::u16string(NSToolTipAttributeName));
        if (!marker.empty())
            append(u"\t" + std::u16string(marker) + u"\t", end, shared);
        for (auto count = number(0, 4); count > 0; --count)
            append(characters(), attributes(), shared);
        append(u"\n", end, shared);
    }

    NSMutableParagraphStyle itemStyle(const NSParagraphStyle::TextLists& lists)
    {
        NSMutableParagraphStyle made;
        const auto first = twips(0, 900);
        const auto head = first + 22 + twips(0, 400);
        made.setDefaultTabInterval(30);
        made.setFirstLineHeadIndent(first);
        made.setHeadIndent(head);
        made.setTabStops({std::make_shared<const NSTextTab>(NSTextAlignment::Natural, first + 11),
                          std::make_shared<const NSTextTab>(NSTextAlignment::Natural, head)});
        made.setTextLists(lists);
        return made;
    }

    void addList(const NSParagraphStyle::TextLists& outer = {},
                 const NSParagraphStyle::TextBlocks& blocks = {})
    {
        static constexpr std::array<std::u16string_view, 8> kFormats{
            u"{decimal}.",          u"({lower-alpha})",     u"{upper-roman}",      NSTextListMarkerDisc,
            NSTextListMarkerSquare, NSTextListMarkerCircle, NSTextListMarkerCheck, u"\u2192"};
        const auto start = number(1, 5);
        auto lists = outer;
        lists.push_back(std::make_shared<const NSTextList>(oneOf(kFormats), 0, start));
        const auto last = start + number(0, 3);
        for (auto item = start; item <= last; ++item) {
            addParagraph(itemStyle(lists), lists.back()->markerForItemNumber(item), blocks);
            if (lists.size() < 4 && chance(3))
                addList(lists, blocks);
        }
    }

    void addTable(const NSParagraphStyle::TextBlocks& outer, int depth)
    {
        const auto table = std::make_shared<NSTextTable>();
        table->setNumberOfColumns(3);
        table->setCollapsesBorders(true);
        if (chance(2))
            table->setContentWidth({number(1, 200) / 2.0, NSTextBlockValueType::Percentage});
        const auto rows = number(1, 3);
        for (int row = 0; row < rows; ++row) {
            const bool isWide = chance(3);
            for (int column = 0; column < 3; column += isWide && column == 0 ? 2 : 1) {
                auto blocks = outer;
                blocks.push_back(cell(table, row, column, isWide && column == 0 ? 2 : 1));
                addCellContent(blocks, depth);
            }
        }
    }

    void addCellContent(const NSParagraphStyle::TextBlocks& blocks, int depth)
    {
        if (chance(6))
            addList({}, blocks);
        addParagraph(style(), u"", blocks);
        if (depth >= 2 || !chance(8))
            return;
        addTable(blocks, depth + 1);
        addParagraph(style(), u"", blocks);
    }

    NSTextTableBlock::Ref cell(const NSTextTable::Ref& table, int row, int column, int columns)
    {
        auto made = std::make_shared<NSTextTableBlock>(table, row, 1, column, columns);
        made->setVerticalAlignment(static_cast<NSTextBlockVerticalAlignment>(number(0, 2)));
        for (const auto edge : kRectEdges) {
            made->setWidth({twips(0, 99)}, NSTextBlockLayer::Padding, edge);
            if (!chance(2))
                continue;
            made->setWidth({number(2, 96) / 8.0}, NSTextBlockLayer::Border, edge);
            made->setBorderColor(color(), edge);
        }
        if (chance(2))
            made->setContentWidth(
                chance(2) ? NSTextBlock::Value{twips(1, 900)}
                          : NSTextBlock::Value{number(1, 200) / 2.0, NSTextBlockValueType::Percentage});
        if (chance(3))
            made->setBackgroundColor(color());
        return made;
    }

    std::mt19937 m_random;
    NSMutableAttributedString m_text;
};

} // namespace

NSAttributedString generatedWordText(unsigned seed)
{
    return TextMaker(seed).text();
}
