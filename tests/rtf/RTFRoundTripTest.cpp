// Texts of everything that RTF holds, made by chance from fixed seeds, written and read again.

#include "platform/foundation/Unicode.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSShadow.h"
#include "platform/text/NSTextTable.h"

#include <gmock/gmock.h>

#include <array>
#include <map>
#include <random>
#include <string>

namespace {

namespace Formats = NSAttributedStringDocumentFormats;

constexpr unsigned kSeeds = 300;

/// Makes texts whose every value is one that RTF's numbers hold.
class TextMaker {
public:
    explicit TextMaker(unsigned seed)
        : m_random(seed)
    {
    }

    NSAttributedString text()
    {
        NSMutableAttributedString made;
        for (auto count = number(1, 12); count > 0; --count)
            made.appendAttributedString(chance(6) ? table(0) : paragraph(style()));
        made.appendAttributedString(run(u"end", attributes(NSAny(style().copy()))));
        return made;
    }

private:
    int number(int least, int most) { return std::uniform_int_distribution(least, most)(m_random); }

    /// One of so many times.
    bool chance(int times) { return number(1, times) == 1; }

    double twips(int least, int most) { return number(least, most) / 20.0; }

    std::u16string characters()
    {
        static constexpr std::array<std::u16string_view, 14> kPieces{
            u"word",       u" ",  u"\\",     u"{}", u"\u00E9", u"\u201C", u"\u4E2D",
            u"\U0001F600", u"\t", u"\u2028", u"\f", u"-5",     u";",      u"\u0081"};
        std::u16string made;
        for (auto count = number(1, 6); count > 0; --count)
            made += kPieces.at(static_cast<std::size_t>(number(0, kPieces.size() - 1)));
        return made;
    }

    NSColor::Ref color()
    {
        const auto component = [this] { return number(0, 1000) / 1000.0; };
        switch (number(0, 5)) {
        case 0:
            return NSColor::colorWithCalibratedRed(component(), component(), component(), component());
        case 1:
            return NSColor::colorWithDisplayP3Red(component(), component(), component(), 1);
        case 2:
            return NSColor::colorWithCalibratedWhite(component(), 1);
        case 3:
            return NSColor::colorWithColorSpace(NSColorSpace::genericCMYKColorSpace(),
                                                {component(), component(), component(), component(), 1});
        case 4:
            return chance(2) ? NSColor::textColor() : NSColor::secondaryLabelColor();
        default:
            return NSColor::colorWithSRGBRed(component(), component(), component(), 1);
        }
    }

    NSFont::Ref font()
    {
        static constexpr std::array<std::u16string_view, 6> kNames{
            u"Helvetica",     u"Helvetica-Bold", u"HelveticaNeue-Italic",
            u"Menlo-Regular", u"Times-Roman",    u".AppleSystemUIFont"};
        return NSFont::fontWithName(kNames.at(static_cast<std::size_t>(number(0, kNames.size() - 1))),
                                    number(4000, 40000) / 1000.0);
    }

    NSAttributes attributes(const NSAny& style)
    {
        NSAttributes made{{std::u16string(NSFontAttributeName), font()},
                          {std::u16string(NSParagraphStyleAttributeName), style}};
        const auto add = [&](std::u16string_view name, auto make) {
            if (chance(5))
                made.emplace(name, NSAny(make()));
        };
        add(NSForegroundColorAttributeName, [this] { return color(); });
        add(NSBackgroundColorAttributeName, [] { return NSColor::colorWithSRGBRed(1, 1, 0, 1); });
        add(NSUnderlineStyleAttributeName, [this] {
            static constexpr std::array kStyles{1, 2, 9, 0x8001, 0x101, 0x402, 0x8209};
            return kStyles.at(static_cast<std::size_t>(number(0, kStyles.size() - 1)));
        });
        add(NSUnderlineColorAttributeName, [this] { return color(); });
        add(NSStrikethroughStyleAttributeName, [this] { return chance(2) ? 1 : 0x209; });
        add(NSStrikethroughColorAttributeName, [this] { return color(); });
        add(NSBaselineOffsetAttributeName, [this] { return (number(1, 9) - 20) / 2.0; });
        add(NSSuperscriptAttributeName, [this] { return chance(2) ? number(1, 3) : -number(1, 3); });
        add(NSKernAttributeName, [this] { return twips(-40, 40); });
        add(NSLigatureAttributeName, [this] { return chance(2) ? 0 : 2; });
        add(NSExpansionAttributeName, [this] { return number(1, 500) / 2000.0; });
        add(NSObliquenessAttributeName, [this] { return number(1, 500) / 2000.0; });
        add(NSStrokeWidthAttributeName, [this] { return chance(2) ? twips(1, 90) : -twips(1, 90); });
        add(NSStrokeColorAttributeName, [this] { return color(); });
        add(NSLinkAttributeName, [this] {
            return chance(2) ? NSAny(*NSURL::URLWithString("https://a.example/b?c#d")) : NSAny(u"place");
        });
        add(NSShadowAttributeName, [this] {
            const auto shade = NSColor::colorWithSRGBRed(0.5, 0, 0, number(0, 255) / 255.0);
            return std::make_shared<const NSShadow>(NSSize{twips(-99, 99), twips(-99, 99)}, twips(0, 99),
                                                    shade);
        });
        if (chance(6)) {
            made.emplace(NSTextHighlightStyleAttributeName, NSTextHighlightStyleDefault);
            made.emplace(NSTextHighlightColorSchemeAttributeName, NSTextHighlightColorSchemePink);
        }
        return made;
    }

    NSMutableParagraphStyle style()
    {
        NSMutableParagraphStyle made;
        if (chance(3))
            return made;
        made.setAlignment(static_cast<NSTextAlignment>(number(0, 4)));
        made.setBaseWritingDirection(static_cast<NSWritingDirection>(number(-1, 1)));
        made.setHeadIndent(twips(-200, 900));
        made.setFirstLineHeadIndent(twips(-200, 900));
        made.setTailIndent(chance(2) ? 0 : twips(1, 8000));
        made.setDefaultTabInterval(twips(0, 900));
        made.setParagraphSpacing(twips(0, 900));
        made.setParagraphSpacingBefore(twips(0, 900));
        made.setLineSpacing(twips(0, 90));
        made.setLineHeightMultiple(chance(2) ? 0 : number(1, 600) / 240.0);
        made.setMinimumLineHeight(chance(2) ? 0 : twips(1, 900));
        made.setMaximumLineHeight(chance(2) ? made.minimumLineHeight() : twips(1, 900));
        made.setHeaderLevel(number(0, 6));
        if (chance(2))
            made.setTabStops({std::make_shared<const NSTextTab>(NSTextAlignment::Right, twips(1, 900)),
                              std::make_shared<const NSTextTab>(NSTextAlignment::Center, twips(901, 1900))});
        if (chance(2))
            made.setTextLists(lists());
        return made;
    }

    /// Lists of one chain, so that each has its one place in RTF.
    NSParagraphStyle::TextLists lists()
    {
        if (m_lists.empty() || chance(4))
            m_lists = {std::make_shared<const NSTextList>(u"{decimal}.", 0, number(1, 9)),
                       std::make_shared<const NSTextList>(NSTextListMarkerDisc),
                       std::make_shared<const NSTextList>(u"({upper-roman})"),
                       std::make_shared<const NSTextList>(NSTextListMarkerCheck)};
        return {m_lists.begin(), m_lists.begin() + number(1, 4)};
    }

    /// Neither markers nor the ends of paragraphs are part of a link.
    static NSAttributes withoutLink(NSAttributes attributes)
    {
        attributes.erase(std::u16string(NSLinkAttributeName));
        return attributes;
    }

    static NSAttributedString run(std::u16string text, NSAttributes attributes)
    {
        return NSAttributedString(std::move(text), std::move(attributes));
    }

    NSAttributedString paragraph(const NSMutableParagraphStyle& style)
    {
        NSMutableAttributedString made;
        const NSAny shared(style.copy());
        if (!style.textLists().empty())
            made.appendAttributedString(
                run(chance(2) ? u"\t1.\t" : u"no marker", withoutLink(attributes(shared))));
        for (auto count = number(0, 4); count > 0; --count)
            made.appendAttributedString(run(characters(), attributes(shared)));
        made.appendAttributedString(run(u"\n", withoutLink(attributes(shared))));
        return made;
    }

    NSAttributedString table(int depth, const NSParagraphStyle::TextBlocks& outer = {})
    {
        NSMutableAttributedString made;
        auto object = std::make_shared<NSTextTable>();
        object->setNumberOfColumns(3);
        object->setCollapsesBorders(chance(2));
        const auto rows = number(1, 3);
        for (int row = 0; row < rows; ++row) {
            const bool isWide = chance(3);
            for (int column = 0; column < 3; column += isWide && column == 0 ? 2 : 1) {
                auto blocks = outer;
                blocks.push_back(cell(object, row, column, isWide && column == 0 ? 2 : 1));
                auto inCell = style();
                inCell.setTextBlocks(blocks);
                made.appendAttributedString(paragraph(inCell));
                if (depth < 2 && chance(8))
                    made.appendAttributedString(table(depth + 1, blocks));
            }
        }
        return made;
    }

    NSTextTableBlock::Ref cell(const NSTextTable::Ref& table, int row, int column, int columns)
    {
        auto made = std::make_shared<NSTextTableBlock>(table, row, 1, column, columns);
        made->setVerticalAlignment(static_cast<NSTextBlockVerticalAlignment>(number(0, 3)));
        made->setWidth({twips(1, 99), NSTextBlockValueType::Absolute}, NSTextBlockLayer::Border,
                       NSRectEdge::MinX);
        made->setBorderColor(color(), NSRectEdge::MinX);
        made->setWidth({twips(1, 99), NSTextBlockValueType::Absolute}, NSTextBlockLayer::Padding);
        made->setContentWidth({number(1, 100) / 2.0, NSTextBlockValueType::Percentage});
        if (chance(3))
            made->setBackgroundColor(color());
        return made;
    }

    std::mt19937 m_random;
    NSParagraphStyle::TextLists m_lists;
};

/// Compares two texts, in which lists and tables are objects of their own that stand for each other.
class Comparison {
public:
    [[nodiscard]] std::string difference(const NSAttributedString& one, const NSAttributedString& other)
    {
        if (one.string() != other.string())
            return "characters";
        for (NSUInteger location = 0; location < one.length(); ++location) {
            auto attributes = one.attributesAtIndex(location);
            auto otherAttributes = other.attributesAtIndex(location);
            const auto style = takeStyle(attributes);
            const auto otherStyle = takeStyle(otherAttributes);
            if (attributes != otherAttributes)
                return "attributes at " + std::to_string(location) + ": "
                    + firstDifference(attributes, otherAttributes);
            if (!areAlike(*style, *otherStyle))
                return "paragraph style at " + std::to_string(location);
        }
        return {};
    }

private:
    static std::string firstDifference(const NSAttributes& one, const NSAttributes& other)
    {
        for (const auto& [name, value] : one) {
            const auto found = other.find(name);
            if (found == other.end() || found->second != value)
                return UTF8FromUTF16(name);
        }
        return "one more";
    }

    static NSParagraphStyle::Ref takeStyle(NSAttributes& attributes)
    {
        const auto found = attributes.extract(std::u16string(NSParagraphStyleAttributeName));
        return found ? found.mapped().object<NSParagraphStyle>() : NSParagraphStyle::defaultParagraphStyle();
    }

    bool areAlike(const NSParagraphStyle& one, const NSParagraphStyle& other)
    {
        const auto withoutIdentities = [](const NSParagraphStyle& style) {
            auto copy = style.mutableCopy();
            copy.setTextLists({});
            copy.setTextBlocks({});
            return copy;
        };
        return withoutIdentities(one).isEqual(withoutIdentities(other))
            && std::equal(
                   one.textLists().begin(), one.textLists().end(), other.textLists().begin(),
                   other.textLists().end(),
                   [this](const auto& list, const auto& otherList) { return areAlike(list, otherList); })
            && std::equal(one.textBlocks().begin(), one.textBlocks().end(), other.textBlocks().begin(),
                          other.textBlocks().end(), [this](const auto& block, const auto& otherBlock) {
                              return areAlike(block, otherBlock);
                          });
    }

    /// Whether the one always stands where the other does.
    bool correspond(const void* one, const void* other)
    {
        return m_partners.try_emplace(one, other).first->second == other
            && m_partnersBack.try_emplace(other, one).first->second == one;
    }

    bool areAlike(const NSTextList::Ref& one, const NSTextList::Ref& other)
    {
        return correspond(one.get(), other.get()) && one->markerFormat() == other->markerFormat()
            && one->startingItemNumber() == other->startingItemNumber();
    }

    static bool haveEqualColors(const NSColor::Ref& one, const NSColor::Ref& other)
    {
        return one == other || (one && other && one->isEqual(*other));
    }

    bool areAlike(const NSTextBlock::Ref& one, const NSTextBlock::Ref& other)
    {
        const auto cell = std::dynamic_pointer_cast<const NSTextTableBlock>(one);
        const auto otherCell = std::dynamic_pointer_cast<const NSTextTableBlock>(other);
        if (!correspond(cell.get(), otherCell.get())
            || !correspond(cell->table().get(), otherCell->table().get()))
            return false;
        const auto edge = NSRectEdge::MinX;
        return cell->startingRow() == otherCell->startingRow() && cell->rowSpan() == otherCell->rowSpan()
            && cell->startingColumn() == otherCell->startingColumn()
            && cell->columnSpan() == otherCell->columnSpan()
            && cell->verticalAlignment() == otherCell->verticalAlignment()
            && cell->contentWidth() == otherCell->contentWidth()
            && cell->widthForLayer(NSTextBlockLayer::Border, edge)
            == otherCell->widthForLayer(NSTextBlockLayer::Border, edge)
            && cell->widthForLayer(NSTextBlockLayer::Padding, edge)
            == otherCell->widthForLayer(NSTextBlockLayer::Padding, edge)
            && haveEqualColors(cell->borderColorForEdge(edge), otherCell->borderColorForEdge(edge))
            && haveEqualColors(cell->backgroundColor(), otherCell->backgroundColor())
            && cell->table()->collapsesBorders() == otherCell->table()->collapsesBorders()
            && cell->table()->numberOfColumns() == otherCell->table()->numberOfColumns();
    }

    std::map<const void*, const void*> m_partners;
    std::map<const void*, const void*> m_partnersBack;
};

} // namespace

TEST(RTFRoundTrip, GivesBackWhatWasWritten)
{
    for (unsigned seed = 0; seed < kSeeds; ++seed) {
        const auto text = TextMaker(seed).text();
        const auto data = Formats::RTFFromRange(text, {0, text.length()});
        ASSERT_TRUE(data);
        const auto again = Formats::initWithRTF(*data);
        ASSERT_TRUE(again);
        ASSERT_EQ(Comparison().difference(text, *again), "") << "seed " << seed;
    }
}

TEST(RTFRoundTrip, WritesTheSameAgain)
{
    for (unsigned seed = 0; seed < kSeeds; ++seed) {
        const auto text = TextMaker(seed).text();
        const auto data = Formats::RTFFromRange(text, {0, text.length()});
        const auto again = Formats::initWithRTF(*data);
        EXPECT_EQ(Formats::RTFFromRange(*again, {0, again->length()})->bytes, data->bytes) << "seed " << seed;
    }
}
