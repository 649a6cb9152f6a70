#include "richtext/ChecklistItems.h"

#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/styles/StyleTest.h"

using namespace DynamicColors;

namespace {

using Strings = std::vector<std::u16string>;

class ChecklistItems : public StyleTest { };

} // namespace

TEST_F(ChecklistItems, AreListedByTheirStatesInTheTextsOrder)
{
    const auto text = checklistText({{true, 0, u"a"}, {false, 1, u"b"}, {true, 2, u"c"}, {false, 0, u"d"}});
    EXPECT_EQ(completedChecklistItems(text), (Strings{u"\uFFFCa", u"\uFFFCc"}));
    EXPECT_EQ(outstandingChecklistItems(text), (Strings{u"\uFFFCb", u"\uFFFCd"}));
}

TEST_F(ChecklistItems, AreTrimmed)
{
    const auto text = NoteText().add(u" \t").addAttachment(makeBox(true)).add(u" Milk \u00A0\r\n").text();
    EXPECT_EQ(completedChecklistItems(text), (Strings{u"\uFFFC Milk"}));
}

TEST_F(ChecklistItems, AreTheWholeLineOfABoxInItsMiddle)
{
    const auto text = NoteText().add(u"x\na").addAttachment(makeBox(false)).add(u"b\ny").text();
    EXPECT_EQ(outstandingChecklistItems(text), (Strings{u"a\uFFFCb"}));
}

TEST_F(ChecklistItems, AreListedWithNothingButTheirBox)
{
    EXPECT_EQ(outstandingChecklistItems(NoteText().addAttachment(makeBox(false)).text()),
              (Strings{u"\uFFFC"}));
    EXPECT_EQ(outstandingChecklistItems(checklistText({{false, 0, u""}, {false, 0, u""}})),
              (Strings{u"\uFFFC", u"\uFFFC"}));
}

TEST_F(ChecklistItems, AreListedForEachBoxOfALine)
{
    const auto text = NoteText().addAttachment(makeBox(true)).addAttachment(makeBox(true)).add(u"a").text();
    EXPECT_EQ(completedChecklistItems(text), (Strings{u"\uFFFC\uFFFCa", u"\uFFFC\uFFFCa"}));
}

TEST_F(ChecklistItems, AreNoneWithoutBoxes)
{
    const auto text = NoteText().add(u"- [x] a\n").addAttachment(makeAttachment(u"a.png")).text();
    EXPECT_TRUE(completedChecklistItems(text).empty());
    EXPECT_TRUE(outstandingChecklistItems(text).empty());
    EXPECT_TRUE(completedChecklistItems(NSAttributedString()).empty());
}

TEST_F(ChecklistItems, EndWhereALineOfNothingButBoxesWouldFillTheMemory)
{
    NoteText text;
    for (int count = 0; count < 20'000; ++count)
        text.addAttachment(makeBox(true));
    // 20,000 times 20,000 units; there is room for 52 items in 1,048,576 units.
    EXPECT_EQ(completedChecklistItems(text.text()).size(), 52U);
}
