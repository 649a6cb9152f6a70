#include "platform/text/NSParagraphStyle.h"

#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/text/NSTextTable.h"
#include "platform/text/TextClasses.h"
#include "tests/support/KeyedValues.h"

#include <gmock/gmock.h>

#include <functional>
#include <limits>
#include <vector>

namespace {

using Change = std::function<void(NSMutableParagraphStyle&)>;

NSParagraphStyle::TabStops tabs(const std::vector<double>& locations)
{
    NSParagraphStyle::TabStops stops;
    for (const double location : locations)
        stops.push_back(std::make_shared<const NSTextTab>(NSTextAlignment::Left, location));
    return stops;
}

/// One change of every value, with the key that it is archived under and the value there.
struct Row {
    const char* key;
    NSAny archived;
    Change change;
};

const std::vector<Row>& rows()
{
    static const std::vector<Row> all{
        {"NSAlignment", 2, [](auto& style) { style.setAlignment(NSTextAlignment::Center); }},
        {"NSLineSpacing", 1.5, [](auto& style) { style.setLineSpacing(1.5); }},
        {"NSParagraphSpacing", 2.5, [](auto& style) { style.setParagraphSpacing(2.5); }},
        {"NSParagraphSpacingBefore", 3.5, [](auto& style) { style.setParagraphSpacingBefore(3.5); }},
        {"NSHeadIndent", 4.5, [](auto& style) { style.setHeadIndent(4.5); }},
        {"NSFirstLineHeadIndent", -5.5, [](auto& style) { style.setFirstLineHeadIndent(-5.5); }},
        {"NSTailIndent", -6.5, [](auto& style) { style.setTailIndent(-6.5); }},
        {"NSMinLineHeight", 7.5, [](auto& style) { style.setMinimumLineHeight(7.5); }},
        {"NSMaxLineHeight", 8.5, [](auto& style) { style.setMaximumLineHeight(8.5); }},
        {"NSLineHeightMultiple", 1.2, [](auto& style) { style.setLineHeightMultiple(1.2); }},
        {"NSDefaultTabInterval", 36.0, [](auto& style) { style.setDefaultTabInterval(36); }},
        {"NSHyphenationFactor", 0.5, [](auto& style) { style.setHyphenationFactor(0.5F); }},
        {"NSTighteningFactorForTruncation", 0.25,
         [](auto& style) { style.setTighteningFactorForTruncation(0.25F); }},
        {"NSHeaderLevel", 1.0, [](auto& style) { style.setHeaderLevel(1); }},
        {"NSLineBreakMode", 4, [](auto& style) { style.setLineBreakMode(NSLineBreakMode::TruncatingTail); }},
        {"NSLineBreakStrategy", 3, [](auto& style) { style.setLineBreakStrategy(3); }},
        {"NSWritingDirection", 1,
         [](auto& style) { style.setBaseWritingDirection(NSWritingDirection::LeftToRight); }},
        {"NSWritingDirection", 2,
         [](auto& style) { style.setBaseWritingDirection(NSWritingDirection::RightToLeft); }},
        {"NSUsesDefaultHyphenation", true, [](auto& style) { style.setUsesDefaultHyphenation(true); }},
    };
    return all;
}

KeyedValues::Values defaultValues()
{
    return {{"NSTabStops", nullptr}, {"NSAlignment", 4}, {"NSAllowsTighteningForTruncation", 1}};
}

NSParagraphStyle::Ref read(KeyedValues::Values values)
{
    return KeyedValues::make(NSParagraphStyle::classObject(), std::move(values)).object<NSParagraphStyle>();
}

NSParagraphStyle::Ref throughArchive(const NSAny& object)
{
    NSError error;
    const auto data = NSKeyedArchiver::archivedDataWithRootObject(object, true, &error);
    EXPECT_TRUE(data) << error.localizedDescription();
    const auto back = NSKeyedUnarchiver::unarchivedObjectOfClass(
        NSParagraphStyle::classObject(), data ? data->bytes : "", textClasses(), &error);
    EXPECT_TRUE(back) << error.localizedDescription();
    return back.object<NSParagraphStyle>();
}

} // namespace

TEST(NSParagraphStyle, HasTwelveDefaultTabs)
{
    std::vector<double> locations;
    for (const auto& stop : NSParagraphStyle::defaultParagraphStyle()->tabStops()) {
        locations.push_back(stop->location());
        EXPECT_EQ(stop->alignment(), NSTextAlignment::Left);
    }
    EXPECT_THAT(locations, testing::ElementsAre(28, 56, 84, 112, 140, 168, 196, 224, 252, 280, 308, 336));
}

TEST(NSParagraphStyle, HasTheDefaultsOfThePlatform)
{
    const auto style = NSParagraphStyle::defaultParagraphStyle();
    EXPECT_EQ(style->alignment(), NSTextAlignment::Natural);
    EXPECT_EQ(style->baseWritingDirection(), NSWritingDirection::Natural);
    EXPECT_EQ(style->tighteningFactorForTruncation(), 0.05F);
    EXPECT_TRUE(style->allowsDefaultTighteningForTruncation());
    EXPECT_EQ(style->lineBreakMode(), NSLineBreakMode::WordWrapping);
    EXPECT_EQ(style->lineHeightMultiple(), 0);
    EXPECT_EQ(style->headerLevel(), 0);
    EXPECT_TRUE(style->textLists().empty());
    EXPECT_TRUE(style->textBlocks().empty());
    EXPECT_EQ(style, NSParagraphStyle::defaultParagraphStyle());
}

TEST(NSParagraphStyle, IsEqualAsAValueInEverything)
{
    const NSMutableParagraphStyle plain;
    for (const auto& row : rows()) {
        NSMutableParagraphStyle changed;
        row.change(changed);
        EXPECT_FALSE(changed.isEqual(plain)) << row.key;
        NSMutableParagraphStyle same;
        row.change(same);
        EXPECT_TRUE(changed.isEqual(same)) << row.key;
        EXPECT_EQ(changed.hash(), same.hash()) << row.key;
    }
}

TEST(NSParagraphStyle, ComparesTabsByValue)
{
    NSMutableParagraphStyle one;
    one.setTabStops(tabs({10, 20}));
    NSMutableParagraphStyle other;
    EXPECT_FALSE(one.isEqual(other));
    other.setTabStops(tabs({10, 20}));
    EXPECT_TRUE(one.isEqual(other));
    other.setTabStops({});
    EXPECT_FALSE(other.isEqual(NSMutableParagraphStyle()));
}

TEST(NSParagraphStyle, ComparesListsAndBlocksByIdentity)
{
    const auto list = std::make_shared<const NSTextList>(NSTextListMarkerDisc);
    const auto twin = std::make_shared<const NSTextList>(NSTextListMarkerDisc);
    NSMutableParagraphStyle one;
    NSMutableParagraphStyle other;
    one.setTextLists({list});
    other.setTextLists({twin});
    EXPECT_FALSE(one.isEqual(other));
    other.setTextLists({list});
    EXPECT_TRUE(one.isEqual(other));
    one.setTextBlocks({std::make_shared<const NSTextBlock>()});
    other.setTextBlocks({std::make_shared<const NSTextBlock>()});
    EXPECT_FALSE(one.isEqual(other));
    other.setTextBlocks(one.textBlocks());
    EXPECT_TRUE(one.isEqual(other));
}

TEST(NSParagraphStyle, StaysWhenItsMutableCopyChanges)
{
    auto style = NSParagraphStyle::defaultParagraphStyle()->mutableCopy();
    const auto copy = style.copy();
    style.setHeadIndent(36);
    EXPECT_EQ(copy->headIndent(), 0);
    EXPECT_EQ(style.copy()->headIndent(), 36);
    EXPECT_EQ(NSParagraphStyle::defaultParagraphStyle()->headIndent(), 0);
}

TEST(NSMutableParagraphStyle, KeepsTabsInTheirOrder)
{
    NSMutableParagraphStyle style;
    style.setTabStops(tabs({10, 30}));
    style.addTabStop(std::make_shared<const NSTextTab>(NSTextAlignment::Right, 20));
    style.addTabStop(std::make_shared<const NSTextTab>(NSTextAlignment::Right, 30));
    style.addTabStop(std::make_shared<const NSTextTab>(NSTextAlignment::Left, 40));
    ASSERT_EQ(style.tabStops().size(), 5U);
    EXPECT_EQ(style.tabStops()[1]->location(), 20);
    EXPECT_EQ(style.tabStops()[3]->alignment(), NSTextAlignment::Right);
    EXPECT_EQ(style.tabStops()[4]->location(), 40);
    style.removeTabStop(NSTextTab(NSTextAlignment::Left, 30));
    style.removeTabStop(NSTextTab(NSTextAlignment::Left, 99));
    ASSERT_EQ(style.tabStops().size(), 4U);
    EXPECT_EQ(style.tabStops()[2]->alignment(), NSTextAlignment::Right);
}

TEST(NSParagraphStyle, ArchivesTheDefaultStyleAsThePlatformDoes)
{
    EXPECT_EQ(KeyedValues::of(*NSParagraphStyle::defaultParagraphStyle()), defaultValues());
}

TEST(NSParagraphStyle, ArchivesWhatIsNotAtItsDefault)
{
    for (const auto& row : rows()) {
        NSMutableParagraphStyle style;
        row.change(style);
        auto expected = defaultValues();
        expected[row.key] = row.archived;
        const auto values = KeyedValues::of(style);
        EXPECT_EQ(values, expected) << row.key;
        EXPECT_EQ(values.at(row.key).isReal(), row.archived.isReal()) << row.key;
    }
}

TEST(NSParagraphStyle, LeavesTheAlignmentOutOnlyWhenItIsLeft)
{
    NSMutableParagraphStyle style;
    style.setAlignment(NSTextAlignment::Left);
    style.setAllowsDefaultTighteningForTruncation(false);
    EXPECT_EQ(KeyedValues::of(style), (KeyedValues::Values{{"NSTabStops", nullptr}}));
}

TEST(NSParagraphStyle, ReadsEachValue)
{
    for (const auto& row : rows()) {
        NSMutableParagraphStyle expected;
        row.change(expected);
        auto values = defaultValues();
        values[row.key] = row.archived;
        const auto style = read(values);
        ASSERT_NE(style, nullptr);
        EXPECT_TRUE(style->isEqual(expected)) << row.key;
    }
}

TEST(NSParagraphStyle, TellsNilTabsFromNone)
{
    EXPECT_EQ(read({{"NSTabStops", nullptr}})->tabStops().size(), 12U);
    EXPECT_EQ(read({})->tabStops().size(), 12U);
    EXPECT_TRUE(read({{"NSTabStops", NSAny::Array()}})->tabStops().empty());
    NSMutableParagraphStyle style;
    style.setTabStops({});
    EXPECT_EQ(KeyedValues::of(style).at("NSTabStops"), NSAny(NSAny::Array()));
}

TEST(NSParagraphStyle, ReadsAnEmptyArchiveAsLeftAlignedText)
{
    const auto style = read({});
    EXPECT_EQ(style->alignment(), NSTextAlignment::Left);
    EXPECT_FALSE(style->allowsDefaultTighteningForTruncation());
    EXPECT_EQ(style->tighteningFactorForTruncation(), 0.05F);
    EXPECT_EQ(style->baseWritingDirection(), NSWritingDirection::Natural);
}

TEST(NSParagraphStyle, ReadsTheWidenedTighteningFactorAsTheDefault)
{
    const auto style = read({{"NSTighteningFactorForTruncation", 0.05000000074505806}});
    EXPECT_TRUE(style->isEqual(*read({})));
    EXPECT_EQ(KeyedValues::of(*style).count("NSTighteningFactorForTruncation"), 0U);
    EXPECT_TRUE(read({{"NSTighteningFactorForTruncation", 0.05}})->isEqual(*style));
}

TEST(NSParagraphStyle, ReadsNumbersOfTheOtherKind)
{
    const auto style = read({{"NSHeaderLevel", 2}, {"NSHeadIndent", 36}, {"NSAlignment", 3.0}});
    EXPECT_EQ(style->headerLevel(), 2);
    EXPECT_EQ(style->headIndent(), 36);
    EXPECT_EQ(style->alignment(), NSTextAlignment::Justified);
    EXPECT_TRUE(read({{"NSAllowsTighteningForTruncation", true}})->allowsDefaultTighteningForTruncation());
    EXPECT_TRUE(read({{"NSUsesDefaultHyphenation", 1}})->usesDefaultHyphenation());
}

TEST(NSParagraphStyle, ReadsMalformedValuesAsAbsent)
{
    const auto infinity = std::numeric_limits<double>::infinity();
    const auto style = read({{"NSAlignment", 99},
                             {"NSLineBreakMode", -1},
                             {"NSWritingDirection", 7},
                             {"NSHeadIndent", infinity},
                             {"NSMinLineHeight", u"text"},
                             {"NSHeaderLevel", 1e300},
                             {"NSHyphenationFactor", 1e300},
                             {"NSTabStops", u"text"},
                             {"NSTextLists", 5},
                             {"NSTextBlocks", NSAny::Array{1, u"x", nullptr}}});
    ASSERT_NE(style, nullptr);
    EXPECT_TRUE(style->isEqual(*read({})));
}

TEST(NSParagraphStyle, KeepsListsSharedInArchives)
{
    const auto list = std::make_shared<const NSTextList>(NSTextListMarkerDisc, 0, 3);
    NSMutableParagraphStyle one;
    one.setTextLists({list});
    NSMutableParagraphStyle other;
    other.setHeadIndent(36);
    other.setTextLists({list, std::make_shared<const NSTextList>(NSTextListMarkerDisc, 0, 3)});
    NSError error;
    const auto data
        = NSKeyedArchiver::archivedDataWithRootObject(NSAny::Array{one.copy(), other.copy()}, true, &error);
    ASSERT_TRUE(data) << error.localizedDescription();
    const auto back = NSKeyedUnarchiver::unarchivedObjectOfClasses(
        {&NSArrayClass, &NSParagraphStyle::classObject()}, data->bytes, textClasses(), &error);
    ASSERT_TRUE(back.array()) << error.localizedDescription();
    const auto first = back.array()->at(0).object<NSParagraphStyle>();
    const auto second = back.array()->at(1).object<NSParagraphStyle>();
    EXPECT_EQ(first->textLists().at(0), second->textLists().at(0));
    EXPECT_NE(second->textLists().at(0), second->textLists().at(1));
    EXPECT_EQ(first->textLists().at(0)->startingItemNumber(), 3);
}

TEST(NSParagraphStyle, GoesThroughAnArchive)
{
    NSMutableParagraphStyle style;
    for (const auto& row : rows())
        row.change(style);
    style.setTabStops(tabs({11, 36}));
    const auto back = throughArchive(style.copy());
    ASSERT_NE(back, nullptr);
    EXPECT_TRUE(back->isEqual(style));
}

TEST(NSParagraphStyle, KeepsItsTableInArchives)
{
    const auto table = std::make_shared<NSTextTable>();
    table->setNumberOfColumns(2);
    NSMutableParagraphStyle style;
    style.setTextBlocks({std::make_shared<const NSTextTableBlock>(table, 1, 1, 0, 2)});
    const auto back = throughArchive(style.copy());
    ASSERT_NE(back, nullptr);
    ASSERT_EQ(back->textBlocks().size(), 1U);
    const auto cell = std::dynamic_pointer_cast<const NSTextTableBlock>(back->textBlocks()[0]);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->startingRow(), 1);
    EXPECT_EQ(cell->columnSpan(), 2);
    ASSERT_NE(cell->table(), nullptr);
    EXPECT_EQ(cell->table()->numberOfColumns(), 2U);
}
