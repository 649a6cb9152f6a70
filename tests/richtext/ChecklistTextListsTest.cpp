#include "richtext/ChecklistTextLists.h"

#include "paragraphs/ParagraphStyles.h"
#include "platform/text/NSTextTable.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/styles/StyleTest.h"

#include <algorithm>
#include <array>
#include <random>

using namespace DynamicColors;

namespace {

using Items = std::vector<ChecklistItem>;

NSMutableParagraphStyle inLists(std::u16string_view innermostFormat, NSUInteger depth = 1)
{
    NSParagraphStyle::TextLists lists;
    for (NSUInteger level = 1; level < depth; ++level)
        lists.push_back(makeList(NSTextListMarkerDisc));
    lists.push_back(makeList(innermostFormat));
    return styleInLists(lists);
}

/// What text lists become.
NSMutableAttributedString withBoxes(const NSAttributedString& text)
{
    NSMutableAttributedString converted(text);
    convertTextListsToChecklistAttachments(converted);
    EXPECT_TRUE(attachmentsAreInPlace(converted));
    return converted;
}

NSMutableAttributedString withBoxes(std::u16string_view characters, const NSMutableParagraphStyle& style)
{
    return withBoxes(NoteText().add(characters, style).text());
}

/// What boxes become.
NSMutableAttributedString withLists(const NSAttributedString& text)
{
    NSMutableAttributedString converted(text);
    convertChecklistAttachmentsToTextLists(converted);
    EXPECT_TRUE(attachmentsAreInPlace(converted));
    return converted;
}

/// The style's lists at the start of each line.
std::vector<NSParagraphStyle::TextLists> listsOfLines(const NSAttributedString& text)
{
    std::vector<NSParagraphStyle::TextLists> lists;
    for (NSUInteger location = 0; location < text.length();
         location = NSMaxRange(text.lineRangeAtIndex(location)))
        lists.push_back(listsAt(text, location));
    return lists;
}

/// The numbers of lists that items of these levels are in.
std::vector<std::size_t> depthsOf(std::initializer_list<NSUInteger> levels)
{
    Items items;
    for (const auto level : levels)
        items.push_back({false, level, u"x"});
    std::vector<std::size_t> depths;
    for (const auto& lists : listsOfLines(withLists(checklistText(items))))
        depths.push_back(lists.size());
    return depths;
}

class ChecklistsFromTextLists : public StyleTest { };

class ChecklistsToTextLists : public StyleTest { };

class ChecklistRoundTrips : public StyleTest { };

} // namespace

TEST_F(ChecklistsFromTextLists, HaveABoxInPlaceOfTheMarker)
{
    const auto ticked = withBoxes(u"\t\u2713\tMilk\n", inLists(NSTextListMarkerCheck));
    EXPECT_EQ(ticked.string(), u"\uFFFCMilk\n");
    EXPECT_EQ(itemsOf(ticked), (Items{{true, 0, u"Milk"}}));
    const auto open = withBoxes(u"\t\u25E6\tMilk\n", inLists(NSTextListMarkerCircle));
    EXPECT_EQ(open.string(), u"\uFFFCMilk\n");
    EXPECT_EQ(itemsOf(open), (Items{{false, 0, u"Milk"}}));
}

TEST_F(ChecklistsFromTextLists, TickALineOfACheckListWithoutAMarkerAndKeepItsText)
{
    EXPECT_EQ(itemsOf(withBoxes(u"Milk\nBread", inLists(NSTextListMarkerCheck))),
              (Items{{true, 0, u"Milk"}, {true, 0, u"Bread"}}));
}

TEST_F(ChecklistsFromTextLists, TakeALineOfACircleListWithoutAMarkerForOpen)
{
    EXPECT_EQ(itemsOf(withBoxes(u"Milk", inLists(NSTextListMarkerCircle))), (Items{{false, 0, u"Milk"}}));
}

TEST_F(ChecklistsFromTextLists, TakeTheMarkersOfAnyListForItems)
{
    EXPECT_EQ(itemsOf(withBoxes(u"\t\u25E6\tMilk", inLists(NSTextListMarkerDisc))),
              (Items{{false, 0, u"Milk"}}));
    EXPECT_EQ(itemsOf(withBoxes(u"\t\u2713\tMilk", inLists(NSTextListMarkerDisc))),
              (Items{{true, 0, u"Milk"}}));
    EXPECT_EQ(itemsOf(withBoxes(u"\t\u2713\tMilk", NSMutableParagraphStyle())), (Items{{true, 0, u"Milk"}}));
    EXPECT_EQ(itemsOf(withBoxes(NoteText().add(u"\t\u25E6\tMilk").text())), (Items{{false, 0, u"Milk"}}));
}

TEST_F(ChecklistsFromTextLists, BelieveTheCheckFormatBeforeTheMarkerAndTheMarkerBeforeTheCircleFormat)
{
    EXPECT_EQ(itemsOf(withBoxes(u"\t\u25E6\tMilk", inLists(NSTextListMarkerCheck))),
              (Items{{true, 0, u"Milk"}}));
    EXPECT_EQ(itemsOf(withBoxes(u"\t\u2713\tMilk", inLists(NSTextListMarkerCircle))),
              (Items{{true, 0, u"Milk"}}));
}

TEST_F(ChecklistsFromTextLists, GoByTheInnermostList)
{
    const auto outer = styleInLists({makeList(NSTextListMarkerCheck), makeList(NSTextListMarkerDisc)});
    EXPECT_TRUE(itemsOf(withBoxes(u"Milk", outer)).empty());
}

TEST_F(ChecklistsFromTextLists, LeaveOtherLinesAlone)
{
    for (const auto* line : {u"\t\u2022\tMilk", u"\u2713\tMilk", u"\t\u2713 Milk", u" \t\u2713\tMilk"}) {
        const auto text = NoteText().add(line, inLists(NSTextListMarkerDisc)).text();
        EXPECT_EQ(withBoxes(text), text);
    }
    EXPECT_EQ(withBoxes(NSAttributedString()), NSAttributedString());
}

TEST_F(ChecklistsFromTextLists, AreOneLevelLessThanTheirListsAndAtMostAt5)
{
    const std::array<NSUInteger, 8> levels{0, 0, 1, 2, 3, 4, 5, 5};
    for (NSUInteger depth = 1; depth < levels.size(); ++depth)
        EXPECT_EQ(itemsOf(withBoxes(u"x", inLists(NSTextListMarkerCheck, depth)))[0].level, levels[depth]);
    EXPECT_EQ(itemsOf(withBoxes(u"\t\u2713\tx", NSMutableParagraphStyle()))[0].level, levels[0]);
}

TEST_F(ChecklistsFromTextLists, HaveTheBoxesStyleButKeepTheOldOneOnTheLineEnd)
{
    const auto text = withBoxes(u"\t\u2713\tMilk\r\nBread\n", inLists(NSTextListMarkerCheck, 2));
    ASSERT_EQ(text.string(), u"\uFFFCMilk\r\n\uFFFCBread\n");
    for (const NSUInteger index : {0U, 1U, 4U, 7U, 12U})
        EXPECT_EQ(styleAt(text, index)->headIndent(), 38) << index;
    for (const NSUInteger index : {5U, 6U, 13U})
        EXPECT_EQ(listsAt(text, index).size(), 2U) << index;
}

TEST_F(ChecklistsFromTextLists, EndWithTheirLinesWhateverEndsThem)
{
    for (const std::u16string lineEnd : {u"\r\n", u"\u2028", u"\u2029"}) {
        const auto text = withBoxes(u"\t\u2713\ta" + lineEnd + u"\t\u25E6\tb" + lineEnd,
                                    inLists(NSTextListMarkerDisc, 2));
        ASSERT_EQ(text.string(), u"\uFFFCa" + lineEnd + u"\uFFFCb" + lineEnd);
        EXPECT_EQ(itemsOf(text), (Items{{true, 1, u"a"}, {false, 1, u"b"}}));
        for (NSUInteger index = 2; index < 2 + lineEnd.size(); ++index)
            EXPECT_EQ(listsAt(text, index).size(), 2U) << index;
        for (auto index = 4 + lineEnd.size(); index < text.length(); ++index)
            EXPECT_EQ(listsAt(text, index).size(), 2U) << index;
    }
}

TEST_F(ChecklistsFromTextLists, KeepTheOtherAttributesOfTheText)
{
    auto attributes = withFont(u"Menlo-Regular", 12);
    attributes.emplace(NSParagraphStyleAttributeName, inLists(NSTextListMarkerCheck).copy());
    const auto text = withBoxes(NoteText().add(u"Milk", attributes).text());
    EXPECT_TRUE(fontAt(text, 1));
    EXPECT_FALSE(fontAt(text, 0));
}

TEST_F(ChecklistsFromTextLists, HaveABoxOnEmptyLinesOfACheckList)
{
    EXPECT_EQ(withBoxes(u"\n\n", inLists(NSTextListMarkerCheck)).string(), u"\uFFFC\n\uFFFC\n");
    EXPECT_EQ(withBoxes(u"\t\u25E6\t\n", inLists(NSTextListMarkerDisc)).string(), u"\uFFFC\n");
}

TEST_F(ChecklistsFromTextLists, AreConvertedOnceEachInALongList)
{
    std::u16string list;
    std::u16string expected;
    for (int number = 0; number < 500; ++number) {
        list += number % 3 == 0 ? u"\t\u2713\tx\n" : number % 3 == 1 ? u"\t\u25E6\tx\u2028" : u"x\r\n";
        expected += number % 3 == 0 ? u"\uFFFCx\n" : number % 3 == 1 ? u"\uFFFCx\u2028" : u"\uFFFCx\r\n";
    }
    const auto text = withBoxes(list, inLists(NSTextListMarkerCheck));
    EXPECT_EQ(text.string(), expected);
    EXPECT_EQ(itemsOf(text).size(), 500U);
}

TEST_F(ChecklistsFromTextLists, AreConvertedOnceWhereAStyleBeginsWithinALine)
{
    const auto text = NoteText()
                          .add(u"\t\u2713\ton", inLists(NSTextListMarkerDisc))
                          .add(u"e\ntwo", inLists(NSTextListMarkerCheck))
                          .text();
    EXPECT_EQ(withBoxes(text).string(), u"\uFFFCone\n\uFFFCtwo");
}

TEST_F(ChecklistsFromTextLists, AreWhatTheRulesSayLineByLine)
{
    std::mt19937 random(17);
    const std::array<std::u16string_view, 4> formats{NSTextListMarkerCheck, NSTextListMarkerCircle,
                                                     NSTextListMarkerDisc, u"{decimal}."};
    const std::array<std::u16string, 4> markers{u"\t\u2713\t", u"\t\u25E6\t", u"\t\u2022\t", u""};
    for (int round = 0; round < 300; ++round) {
        NoteText text;
        std::u16string expected;
        Items items;
        for (auto left = random() % 8; left > 0; --left) {
            const auto format = random() % formats.size();
            const auto marker = random() % markers.size();
            const auto depth = 1 + random() % 8;
            text.add(markers[marker] + u"words\n", inLists(formats[format], depth));
            const bool isItem = format < 2 || marker < 2;
            expected += isItem ? u"\uFFFC" + (marker < 2 ? u"" : markers[marker]) : markers[marker];
            expected += u"words\n";
            if (isItem)
                items.push_back({format == 0 || marker == 0, std::min<NSUInteger>(depth - 1, 5),
                                 (marker < 2 ? u"" : markers[marker]) + u"words"});
        }
        const auto boxes = withBoxes(text.text());
        ASSERT_EQ(boxes.string(), expected);
        ASSERT_EQ(itemsOf(boxes), items);
    }
}

TEST_F(ChecklistsToTextLists, HaveAMarkerInPlaceOfTheBox)
{
    const auto text = withLists(checklistText({{true, 0, u"Milk"}, {false, 0, u"Bread"}}));
    EXPECT_EQ(text.string(), u"\t\u2713\tMilk\n\t\u25E6\tBread\n");
    const auto lists = listsOfLines(text);
    ASSERT_EQ(lists[0].size(), 1U);
    EXPECT_EQ(lists[0][0]->markerFormat(), NSTextListMarkerCheck);
    EXPECT_EQ(lists[0][0]->listOptions(), 0U);
    ASSERT_EQ(lists[1].size(), 1U);
    EXPECT_EQ(lists[1][0]->markerFormat(), NSTextListMarkerCircle);
}

TEST_F(ChecklistsToTextLists, HaveANewListForEachItem)
{
    const auto lists = listsOfLines(withLists(checklistText({{false, 0, u"a"}, {false, 0, u"b"}})));
    ASSERT_EQ(lists[0].size(), 1U);
    ASSERT_EQ(lists[1].size(), 1U);
    EXPECT_NE(lists[0][0], lists[1][0]);
}

TEST_F(ChecklistsToTextLists, NestByTheLevelsOfTheItemsBefore)
{
    EXPECT_EQ(depthsOf({0, 1, 2, 1}), (std::vector<std::size_t>{1, 2, 3, 1}));
    EXPECT_EQ(depthsOf({0, 0}), (std::vector<std::size_t>{1, 1}));
    EXPECT_EQ(depthsOf({0, 1, 1, 1}), (std::vector<std::size_t>{1, 2, 2, 2}));
    EXPECT_EQ(depthsOf({0, 1, 2, 0, 1}), (std::vector<std::size_t>{1, 2, 3, 1, 2}));
    EXPECT_EQ(depthsOf({0, 1, 2, 3, 2}), (std::vector<std::size_t>{1, 2, 3, 4, 2}));
    EXPECT_EQ(depthsOf({3, 3}), (std::vector<std::size_t>{1, 1}));
    EXPECT_EQ(depthsOf({4, 3}), (std::vector<std::size_t>{1, 2}));
}

TEST_F(ChecklistsToTextLists, ShareTheListsAroundWithTheItemBefore)
{
    const auto lists = listsOfLines(
        withLists(checklistText({{false, 0, u"a"}, {true, 1, u"b"}, {false, 1, u"c"}, {false, 2, u"d"}})));
    ASSERT_EQ(lists[1].size(), 2U);
    EXPECT_EQ(lists[1][0], lists[0][0]);
    ASSERT_EQ(lists[2].size(), 2U);
    EXPECT_EQ(lists[2][0], lists[0][0]);
    EXPECT_NE(lists[2][1], lists[1][1]);
    ASSERT_EQ(lists[3].size(), 3U);
    EXPECT_EQ(lists[3][1], lists[2][1]);
}

TEST_F(ChecklistsToTextLists, GoOnBehindWhatStandsBetweenItems)
{
    auto text = checklistText({{false, 0, u"a"}});
    text.appendAttributedString(NoteText().add(u"plain\n").text());
    text.appendAttributedString(checklistText({{false, 1, u"b"}}));
    text.appendAttributedString(NoteText().addAttachment(makeAttachment(u"a.png")).add(u"\n").text());
    text.appendAttributedString(checklistText({{false, 1, u"c"}}));
    text.appendAttributedString(NoteText().addAttachment(makeAttachment(u"a.png")).add(u"\n\n").text());
    text.appendAttributedString(checklistText({{false, 2, u"d"}}));
    const auto lists = listsOfLines(withLists(text));
    ASSERT_EQ(lists.size(), 8U);
    for (const std::size_t between : {1U, 3U, 5U, 6U})
        EXPECT_TRUE(lists[between].empty()) << between;
    ASSERT_EQ(lists[0].size(), 1U);
    ASSERT_EQ(lists[2].size(), 2U);
    EXPECT_EQ(lists[2][0], lists[0][0]);
    ASSERT_EQ(lists[4].size(), 2U);
    EXPECT_EQ(lists[4][0], lists[0][0]);
    ASSERT_EQ(lists[7].size(), 3U);
    EXPECT_EQ(lists[7][0], lists[0][0]);
    EXPECT_EQ(lists[7][1], lists[4][1]);
}

TEST_F(ChecklistsToTextLists, TakeTheirLineEndsAlongWhateverTheyAre)
{
    for (const std::u16string lineEnd : {u"\r\n", u"\u2028", u"\u2029"}) {
        const auto text = withLists(NoteText()
                                        .addAttachment(makeBox(true))
                                        .add(u"a" + lineEnd)
                                        .addAttachment(makeBox(false))
                                        .add(u"b" + lineEnd + u"c")
                                        .text());
        ASSERT_EQ(text.string(), u"\t\u2713\ta" + lineEnd + u"\t\u25E6\tb" + lineEnd + u"c");
        const auto second = 4 + lineEnd.size();
        const auto third = 2 * second;
        ASSERT_EQ(listsAt(text, 0).size(), 1U);
        ASSERT_EQ(listsAt(text, second).size(), 1U);
        EXPECT_NE(listsAt(text, second), listsAt(text, 0));
        for (NSUInteger index = 0; index < third; ++index)
            EXPECT_EQ(styleAt(text, index), styleAt(text, index < second ? 0 : second)) << index;
        EXPECT_FALSE(styleAt(text, third));
    }
}

TEST_F(ChecklistsToTextLists, StartAnewWithEachConversion)
{
    EXPECT_EQ(depthsOf({0, 1, 2}), (std::vector<std::size_t>{1, 2, 3}));
    EXPECT_EQ(depthsOf({2}), (std::vector<std::size_t>{1}));
}

TEST_F(ChecklistsToTextLists, AreSetAsListsOneTabStopFurtherIn)
{
    const auto text = withLists(checklistText({{true, 3, u"Milk"}}));
    for (NSUInteger index = 0; index < text.length(); ++index) {
        EXPECT_EQ(styleAt(text, index)->headIndent(), 84);
        EXPECT_EQ(styleAt(text, index)->firstLineHeadIndent(), 48);
        EXPECT_TRUE(CVLExtensions::isListParagraphStyle(*styleAt(text, index)));
        EXPECT_EQ(styleAt(text, index)->tabStops().front()->location(), 11);
    }
}

TEST_F(ChecklistsToTextLists, GiveTheMarkerTheBoxesOtherAttributes)
{
    const auto text
        = withLists(NoteText().addAttachment(makeBox(true), withFont(u"Menlo-Regular", 12)).text());
    EXPECT_EQ(text.string(), u"\t\u2713\t");
    EXPECT_TRUE(fontAt(text, 2));
    EXPECT_FALSE(text.attribute(NSAttachmentAttributeName, 0));
}

TEST_F(ChecklistsToTextLists, StayInTheirTableCells)
{
    const auto cell
        = std::make_shared<const NSTextTableBlock>(std::make_shared<const NSTextTable>(), 0, 1, 0, 1);
    NSMutableParagraphStyle style;
    style.setTextBlocks({cell});
    const NSAttributes attributes{{key(NSParagraphStyleAttributeName), style.copy()}};
    const auto text = withLists(
        NoteText().addAttachment(makeBox(true), attributes).add(u"a\n", attributes).add(u"b\n").text());
    EXPECT_EQ(styleAt(text, 0)->textBlocks(), (NSParagraphStyle::TextBlocks{cell}));
    EXPECT_EQ(styleAt(text, 4)->textBlocks(), (NSParagraphStyle::TextBlocks{cell}));
    EXPECT_FALSE(styleAt(text, 5));
}

TEST_F(ChecklistsToTextLists, TakeTheirLinesIntoTheBlocksTheyStandIn)
{
    const NSTextBlock::Ref first = std::make_shared<const NSTextBlock>();
    const NSTextBlock::Ref second = std::make_shared<const NSTextBlock>();
    NSMutableParagraphStyle start;
    start.setTextBlocks({first});
    NSMutableParagraphStyle middle;
    middle.setTextBlocks({second});
    const auto text
        = withLists(NoteText()
                        .add(u"a", start)
                        .addAttachment(makeBox(true), {{key(NSParagraphStyleAttributeName), middle.copy()}})
                        .add(u"b\n", start)
                        .text());
    ASSERT_EQ(text.string(), u"a\t\u2713\tb\n");
    for (NSUInteger index = 0; index < text.length(); ++index)
        EXPECT_EQ(styleAt(text, index)->textBlocks(), (NSParagraphStyle::TextBlocks{second})) << index;
}

TEST_F(ChecklistsToTextLists, StayInTheirTableCellsWithSeveralOnALine)
{
    const NSTextBlock::Ref block = std::make_shared<const NSTextBlock>();
    NSMutableParagraphStyle style;
    style.setTextBlocks({block});
    const NSAttributes attributes{{key(NSParagraphStyleAttributeName), style.copy()}};
    const auto text = withLists(NoteText()
                                    .addAttachment(makeBox(true), attributes)
                                    .addAttachment(makeBox(false), attributes)
                                    .add(u"a\n", attributes)
                                    .text());
    EXPECT_EQ(styleAt(text, 0)->textBlocks(), (NSParagraphStyle::TextBlocks{block}));
}

TEST_F(ChecklistsToTextLists, StyleTheWholeLineOfABoxInItsMiddle)
{
    const auto text = withLists(NoteText().add(u"a").addAttachment(makeBox(true)).add(u"b\nc").text());
    EXPECT_EQ(text.string(), u"a\t\u2713\tb\nc");
    EXPECT_EQ(listsAt(text, 0).size(), 1U);
    EXPECT_EQ(listsAt(text, 5).size(), 1U);
    EXPECT_TRUE(listsAt(text, 6).empty());
}

TEST_F(ChecklistsToTextLists, LetTheLastOfSeveralBoxesStyleTheLine)
{
    const auto text = withLists(
        NoteText().addAttachment(makeBox(true)).addAttachment(makeBox(false, 1)).add(u"a\nb").text());
    EXPECT_EQ(text.string(), u"\t\u2713\t\t\u25E6\ta\nb");
    ASSERT_EQ(listsAt(text, 0).size(), 2U);
    EXPECT_EQ(listsAt(text, 0)[1]->markerFormat(), NSTextListMarkerCircle);
    EXPECT_EQ(styleAt(text, 7), styleAt(text, 0));
}

TEST_F(ChecklistsToTextLists, LeaveOtherTextAndOtherAttachmentsAlone)
{
    const auto text = NoteText().add(u"a\n").addAttachment(makeAttachment(u"a.png")).add(u"\n").text();
    EXPECT_EQ(withLists(text), text);
    EXPECT_EQ(withLists(NSAttributedString()), NSAttributedString());
}

TEST_F(ChecklistRoundTrips, KeepItemsAndStates)
{
    const Items items{{true, 0, u"a"}, {false, 0, u"b"}, {true, 1, u"c"}, {true, 1, u""}, {false, 2, u"d e"}};
    EXPECT_EQ(itemsOf(withBoxes(withLists(checklistText(items)))), items);
}

TEST_F(ChecklistRoundTrips, ComeBackShallowerOnlyWhereAnItemFollowsADeeperOne)
{
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        Items items;
        Items expected;
        NSUInteger previousLevel = 0;
        NSUInteger previousDepth = 0;
        for (auto left = random() % 12; left > 0; --left) {
            ChecklistItem item{random() % 2 == 0, random() % 6, u"x"};
            items.push_back(item);
            NSUInteger around = previousDepth;
            if (item.level < previousLevel)
                around = item.level == 0 ? 0 : std::min(item.level - 1, previousDepth);
            else if (item.level == previousLevel)
                around = previousDepth >= 2 ? previousDepth - 1 : 0;
            previousLevel = item.level;
            previousDepth = around + 1;
            item.level = std::min<NSUInteger>(around, 5);
            expected.push_back(item);
        }
        ASSERT_EQ(itemsOf(withBoxes(withLists(checklistText(items)))), expected);
    }
}

TEST_F(ChecklistRoundTrips, ComeBackAsTheSameLists)
{
    const auto lists = withLists(checklistText({{true, 0, u"a"}, {false, 1, u"b"}, {false, 2, u"c"}}));
    const auto again = withLists(withBoxes(lists));
    EXPECT_EQ(again.string(), lists.string());
    const auto before = listsOfLines(lists);
    const auto after = listsOfLines(again);
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t line = 0; line < after.size(); ++line) {
        ASSERT_EQ(after[line].size(), before[line].size());
        EXPECT_EQ(after[line].back()->markerFormat(), before[line].back()->markerFormat());
    }
}
