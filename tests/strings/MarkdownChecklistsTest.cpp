#include "strings/MarkdownChecklists.h"

#include "strings/MarkdownSyntax.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace CVLMarkdown;
using TSExtensions::getMarkdownChecklistValue;

namespace {

using Items = std::vector<std::u16string>;

TEST(ChecklistItems, AreWhatFollowsTheirBoxes)
{
    const std::u16string_view text = u"- [x] milk\n  * [ ] eggs \n+ [x]\tham\r\nplain\n- [ ] tea";
    EXPECT_EQ(completedChecklistItems(text), (Items{u"milk", u"ham"}));
    EXPECT_EQ(outstandingChecklistItems(text), (Items{u"eggs", u"tea"}));
}

TEST(ChecklistItems, NeedASmallXABulletAndASpace)
{
    for (const std::u16string_view text : {u"- [X] done", u"-[x] done", u"[x] done", u" [x] done",
                                           u". [ ] open", u"- [] open", u"-  [ ] open", u""}) {
        EXPECT_EQ(completedChecklistItems(text), Items());
        EXPECT_EQ(outstandingChecklistItems(text), Items());
    }
    EXPECT_EQ(completedChecklistItems(u"- [x]done"), Items{u"done"});
}

TEST(ChecklistItems, AreNeverEmpty)
{
    EXPECT_EQ(completedChecklistItems(u"- [x] \n- [x]\n- [x] a"), Items{u"a"});
    EXPECT_EQ(outstandingChecklistItems(u"- [ ]"), Items());
}

TEST(ChecklistItems, MayStandAnywhereInALine)
{
    EXPECT_EQ(completedChecklistItems(u"see - [x] a - [x] b"), (Items{u"a - [x] b", u"b"}));
    EXPECT_EQ(outstandingChecklistItems(u"- [ ] a\u2028- [ ] b"), (Items{u"a", u"b"}));
}

TEST(ChecklistItems, AreAllThereWhereALineHasMany)
{
    std::u16string text;
    for (int count = 0; count < 300; ++count)
        text += u"- [x] a ";
    EXPECT_EQ(completedChecklistItems(text).size(), 300U);
}

TEST(ChecklistItems, EndWhereALineRepeatsItselfWithoutEnd)
{
    std::u16string text;
    for (int count = 0; count < 300'000; ++count)
        text += u"- [x] ";
    std::size_t total = 0;
    for (const auto& item : completedChecklistItems(text))
        total += item.size();
    EXPECT_GT(total, 10 * text.size());
    EXPECT_LE(total, 16 * text.size());
    for (auto& unit : text)
        unit = unit == u' ' && (&unit - text.data()) % 6 == 5 ? u'\n' : unit;
    EXPECT_EQ(completedChecklistItems(text + u"a"), Items());
}

TEST(GetMarkdownChecklistValue, ReadsTheValue)
{
    bool value = false;
    NSUInteger level = 99;
    EXPECT_TRUE(getMarkdownChecklistValue(u"- [x] milk", &value, &level));
    EXPECT_TRUE(value);
    EXPECT_EQ(level, 0U);
    EXPECT_TRUE(getMarkdownChecklistValue(u"- [ ] milk", &value, &level));
    EXPECT_FALSE(value);
    EXPECT_TRUE(getMarkdownChecklistValue(u"* [x]", &value));
    EXPECT_TRUE(value);
    EXPECT_TRUE(getMarkdownChecklistValue(u"+ [ ]\n"));
}

TEST(GetMarkdownChecklistValue, ReadsWhatTheConstantsMake)
{
    std::u16string indentation;
    for (NSUInteger expected = 0; expected < 8; ++expected) {
        for (const auto marker : {CVLMarkdownChecklistOnString, CVLMarkdownChecklistOffString}) {
            bool value = false;
            NSUInteger level = 99;
            EXPECT_TRUE(
                getMarkdownChecklistValue(indentation + std::u16string(marker) + u"a", &value, &level));
            EXPECT_EQ(value, marker == CVLMarkdownChecklistOnString);
            EXPECT_EQ(level, expected);
        }
        indentation += CVLMarkdownChecklistIndentString;
    }
}

TEST(GetMarkdownChecklistValue, CountsWholeLevels)
{
    struct Case {
        std::u16string_view line;
        NSUInteger level;
    };

    for (const auto& example :
         {Case{u"   - [ ] a", 0}, Case{u"      - [ ] a", 1}, Case{u"\t- [ ] a", 1}, Case{u"  \t- [ ] a", 1},
          Case{u"    \t- [ ] a", 2}, Case{u"\t   - [ ] a", 1}}) {
        NSUInteger level = 99;
        EXPECT_TRUE(getMarkdownChecklistValue(example.line, nullptr, &level));
        EXPECT_EQ(level, example.level);
    }
}

TEST(GetMarkdownChecklistValue, TakesNoOtherLine)
{
    bool value = true;
    NSUInteger level = 99;
    for (const std::u16string_view line : {u"", u"    ", u"-", u"- ", u"- [x", u"- [X] a", u"- [x]a",
                                           u"-[x] a", u"a - [x] b", u"[x] a", u"\u00A0- [x] a", u"> - [x] a"})
        EXPECT_FALSE(getMarkdownChecklistValue(line, &value, &level));
    EXPECT_TRUE(value);
    EXPECT_EQ(level, 99U);
}

TEST(GetMarkdownChecklistValue, TakesHugeLines)
{
    NSUInteger level = 0;
    EXPECT_TRUE(getMarkdownChecklistValue(std::u16string(10'000'000, u' ') + u"- [ ] a", nullptr, &level));
    EXPECT_EQ(level, 2'500'000U);
}

} // namespace
