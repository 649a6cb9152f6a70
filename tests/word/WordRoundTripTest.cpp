// Texts of everything that a Word document holds, written and read again; and texts of what it does not.

#include "platform/foundation/Unicode.h"
#include "tests/word/GeneratedWordText.h"
#include "tests/word/WriteWord.h"

#include <gmock/gmock.h>

#include <cmath>
#include <map>
#include <random>

namespace {

constexpr unsigned kSeeds = 200;

bool areEqual(const NSColor::Ref& one, const NSColor::Ref& other)
{
    return one == other || (one && other && one->isEqual(*other));
}

bool areNear(NSTextBlock::Value one, NSTextBlock::Value other)
{
    return one.type == other.type && std::abs(one.value - other.value) < 1e-9;
}

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
            const auto different = differenceOf(*style, *otherStyle);
            if (!different.empty())
                return different + " at " + std::to_string(location);
        }
        return {};
    }

private:
    static NSParagraphStyle::Ref takeStyle(NSAttributes& attributes)
    {
        const auto style
            = attributes[std::u16string(NSParagraphStyleAttributeName)].object<NSParagraphStyle>();
        attributes.erase(std::u16string(NSParagraphStyleAttributeName));
        return style ? style : NSParagraphStyle::defaultParagraphStyle();
    }

    static std::string firstDifference(const NSAttributes& one, const NSAttributes& other)
    {
        for (const auto& [name, value] : one) {
            const auto found = other.find(name);
            if (found == other.end() || !(found->second == value))
                return UTF8FromUTF16(name);
        }
        return "more of them";
    }

    std::string differenceOf(const NSParagraphStyle& one, const NSParagraphStyle& other)
    {
        auto plain = one.mutableCopy();
        auto otherPlain = other.mutableCopy();
        for (auto* const style : {&plain, &otherPlain}) {
            style->setTextLists({});
            style->setTextBlocks({});
            style->setTabStops({});
            // Sums of twips are not always the same number.
            style->setFirstLineHeadIndent(std::round(style->firstLineHeadIndent() * 20));
            style->setHeadIndent(std::round(style->headIndent() * 20));
        }
        if (!plain.isEqual(otherPlain))
            return "paragraph style";
        if (!areAlike(one.tabStops(), other.tabStops()))
            return "tab stops";
        if (!areLists(one.textLists(), other.textLists()))
            return "lists";
        return areBlocks(one.textBlocks(), other.textBlocks()) ? "" : "blocks";
    }

    static bool areAlike(const NSParagraphStyle::TabStops& one, const NSParagraphStyle::TabStops& other)
    {
        return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                          [](const auto& tab, const auto& same) {
                              return tab->alignment() == same->alignment()
                                  && std::abs(tab->location() - same->location()) < 1e-9;
                          });
    }

    bool areLists(const NSParagraphStyle::TextLists& one, const NSParagraphStyle::TextLists& other)
    {
        return std::equal(
            one.begin(), one.end(), other.begin(), other.end(), [this](const auto& list, const auto& same) {
                const bool isChecklist = list->markerFormat() == NSTextListMarkerCheck
                    || list->markerFormat() == NSTextListMarkerCircle;
                const auto standIn = m_lists.emplace(list, same).first->second;
                return list->markerFormat() == same->markerFormat() && (isChecklist || standIn == same);
            });
    }

    bool areBlocks(const NSParagraphStyle::TextBlocks& one, const NSParagraphStyle::TextBlocks& other)
    {
        return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                          [this](const auto& block, const auto& same) {
                              return m_blocks.emplace(block, same).first->second == same
                                  && areCells(*std::dynamic_pointer_cast<const NSTextTableBlock>(block),
                                              *std::dynamic_pointer_cast<const NSTextTableBlock>(same));
                          });
    }

    bool areCells(const NSTextTableBlock& one, const NSTextTableBlock& other)
    {
        const auto place = [](const NSTextTableBlock& cell) {
            return std::tuple(cell.startingRow(), cell.rowSpan(), cell.startingColumn(), cell.columnSpan(),
                              cell.verticalAlignment());
        };
        bool isSame = place(one) == place(other) && areEqual(one.backgroundColor(), other.backgroundColor())
            && areNear(one.contentWidth(), other.contentWidth())
            && areNear(one.table()->contentWidth(), other.table()->contentWidth())
            && m_blocks.emplace(one.table(), other.table()).first->second == other.table();
        for (const auto edge : kRectEdges) {
            isSame = isSame && areEqual(one.borderColorForEdge(edge), other.borderColorForEdge(edge));
            for (const auto layer : {NSTextBlockLayer::Border, NSTextBlockLayer::Padding})
                isSame = isSame && areNear(one.widthForLayer(layer, edge), other.widthForLayer(layer, edge));
        }
        return isSame;
    }

    std::map<NSTextList::Ref, NSTextList::Ref> m_lists;
    std::map<NSTextBlock::Ref, NSTextBlock::Ref> m_blocks;
};

/// Units by chance, most of them such as mean something or are no characters.
std::u16string hostileCharacters(unsigned seed)
{
    std::mt19937 random(seed);
    std::u16string text;
    for (int count = 0; count < 200; ++count) {
        const auto kind = random() % 4;
        if (kind == 0)
            text += static_cast<char16_t>(random() % 0x20);
        else if (kind == 1)
            text += u"<>&\"'\u2028\u2029\u0085\uFFFC\uFFFE\uFFFF\uFEFF"[random() % 12];
        else if (kind == 2)
            text += static_cast<char16_t>(0xD800 + random() % 0x800);
        else
            text += static_cast<char16_t>(random());
    }
    return text;
}

} // namespace

TEST(WordRoundTrip, KeepsAllThatTheFormatHolds)
{
    for (unsigned seed = 0; seed < kSeeds; ++seed) {
        const auto text = generatedWordText(seed);
        EXPECT_EQ(Comparison().difference(text, readAgain(text)), "") << "seed " << seed;
    }
}

TEST(WordRoundTrip, KeepsWhatWasReadOnce)
{
    for (unsigned seed = 0; seed < kSeeds; ++seed) {
        const auto once = readAgain(generatedWordText(seed));
        EXPECT_EQ(Comparison().difference(once, readAgain(once)), "") << "seed " << seed;
    }
}

TEST(WordRoundTrip, IsWellFormedWhateverTheText)
{
    for (unsigned seed = 0; seed < kSeeds; ++seed) {
        const auto characters = hostileCharacters(seed);
        NSMutableAttributedString text{NSAttributedString(characters)};
        text.addAttributes(attributesOf({{NSLinkAttributeName, NSAny(u"https://a.example/" + characters)},
                                         {NSToolTipAttributeName, NSAny(characters)}}),
                           {10, 50});
        NSMutableParagraphStyle style;
        style.setTextLists({std::make_shared<const NSTextList>(characters)});
        text.addAttribute(NSParagraphStyleAttributeName, NSAny(style.copy()), {0, 100});
        NSAny::Dictionary attributes;
        attributes.emplace(NSTitleDocumentAttribute, NSAny(characters));
        EXPECT_GT(readAgain(text, attributes).length(), 0U) << "seed " << seed;
    }
}

TEST(WordRoundTrip, TakesLongTextsInProportion)
{
    // A million units, in which each thousand is a paragraph of ten runs; of twice as much, twice the body.
    const auto bodySize = [](int paragraphs) {
        NSMutableAttributedString text;
        for (int paragraph = 0; paragraph < paragraphs; ++paragraph) {
            for (int run = 0; run < 10; ++run)
                text.appendAttributedString(
                    NSAttributedString(std::u16string(run == 9 ? 99 : 100, u'a'),
                                       attributesOf({{NSKernAttributeName, run % 2}})));
            text.appendAttributedString(NSAttributedString(u"\n"));
        }
        EXPECT_EQ(text.length(), static_cast<NSUInteger>(paragraphs) * 1000);
        return static_cast<double>(bodyOf(text).size());
    };
    const auto size = bodySize(1'000);
    EXPECT_NEAR(bodySize(2'000) / size, 2, 0.001);
    // Each run has 35 bytes around its text at most 95 more for its looks.
    EXPECT_LT(size, 1'000'000 + 10'000 * 130 + 1'000 * 50);
}
