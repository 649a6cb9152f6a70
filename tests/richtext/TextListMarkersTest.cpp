#include "richtext/TextListMarkers.h"

#include "tests/richtext/NoteText.h"

#include <gtest/gtest.h>

#include <random>

using namespace DynamicColors;

namespace {

/// The text system keeps markers out of texts.
class TextListMarkers : public testing::Test {
protected:
    TextListMarkers() { NSTextList::setIncludesTextListMarkers(false); }

    ~TextListMarkers() override { NSTextList::setIncludesTextListMarkers(true); }

    static std::u16string marked(const NSAttributedString& text)
    {
        return std::u16string(stringWithTextListMarkers(text).string());
    }

    const NSMutableParagraphStyle m_discs = styleInLists({makeList(NSTextListMarkerDisc)});
    const NSMutableParagraphStyle m_numbers = styleInLists({makeList(u"{decimal}.")});
};

} // namespace

TEST_F(TextListMarkers, AreWrittenBeforeEachItem)
{
    EXPECT_EQ(marked(NoteText().add(u"a\nb", m_discs).text()), u"\t\u2022\ta\n\t\u2022\tb");
    EXPECT_EQ(marked(NoteText().add(u"a\nb\n", m_numbers).text()), u"\t1.\ta\n\t2.\tb\n");
}

TEST_F(TextListMarkers, AreNotWrittenWhereTextsHoldThem)
{
    NSTextList::setIncludesTextListMarkers(true);
    EXPECT_EQ(marked(NoteText().add(u"a\nb", m_numbers).text()), u"a\nb");
}

TEST_F(TextListMarkers, AreNotWrittenTwice)
{
    const auto once = stringWithTextListMarkers(NoteText().add(u"a\n\t2.\tb\nc", m_numbers).text());
    EXPECT_EQ(once.string(), u"\t1.\ta\n\t2.\tb\n\t3.\tc");
    EXPECT_EQ(stringWithTextListMarkers(once), once);
}

TEST_F(TextListMarkers, AreWrittenBeforeTheMarkerOfAnotherNumber)
{
    EXPECT_EQ(marked(NoteText().add(u"\t2.\ta", m_numbers).text()), u"\t1.\t\t2.\ta");
}

TEST_F(TextListMarkers, AreThoseOfTheInnermostList)
{
    const auto nested = styleInLists({makeList(NSTextListMarkerDisc), makeList(u"{decimal})")});
    EXPECT_EQ(marked(NoteText().add(u"a", nested).text()), u"\t1)\ta");
}

TEST_F(TextListMarkers, CountOnThroughAListOfAnotherKind)
{
    const auto text = NoteText()
                          .add(u"a\nb\n", m_numbers)
                          .add(u"c\n", m_discs)
                          .add(u"d\n", styleInLists({makeList(u"{decimal}.")}))
                          .text();
    EXPECT_EQ(marked(text), u"\t1.\ta\n\t2.\tb\n\t\u2022\tc\n\t4.\td\n");
}

TEST_F(TextListMarkers, CountAnewBehindALineInNoList)
{
    const auto text = NoteText()
                          .add(u"a\n", m_numbers)
                          .add(u"plain\n", NSMutableParagraphStyle())
                          .add(u"b\n", m_numbers)
                          .add(u"none\n")
                          .add(u"c", m_numbers)
                          .text();
    EXPECT_EQ(marked(text), u"\t1.\ta\nplain\n\t1.\tb\nnone\n\t1.\tc");
}

TEST_F(TextListMarkers, CountFrom1WhateverTheListsStartingNumber)
{
    const auto list = std::make_shared<const NSTextList>(u"{decimal}.", 0, 12);
    EXPECT_EQ(marked(NoteText().add(u"a", styleInLists({list})).text()), u"\t1.\ta");
}

TEST_F(TextListMarkers, HaveTheParagraphStyleAndNothingElse)
{
    auto attributes = withFont(u"Menlo-Regular", 12);
    const std::u16string name(NSParagraphStyleAttributeName);
    const NSAny style = m_discs.copy();
    attributes.emplace(name, style);
    const auto text = stringWithTextListMarkers(NoteText().add(u"a", attributes).text());
    EXPECT_EQ(text.attributesAtIndex(0), (NSAttributes{{name, style}}));
    EXPECT_EQ(text.attributesAtIndex(2), (NSAttributes{{name, style}}));
    EXPECT_EQ(text.attributesAtIndex(3), attributes);
}

TEST_F(TextListMarkers, MayHoldLineEnds)
{
    const auto odd = styleInLists({makeList(u"x\n{decimal}")});
    EXPECT_EQ(marked(NoteText().add(u"a\nb", odd).text()), u"\tx\n1\ta\n\tx\n2\tb");
}

TEST_F(TextListMarkers, AreWhatTheRulesSayLineByLine)
{
    std::mt19937 random(23);
    for (int round = 0; round < 300; ++round) {
        NoteText text;
        std::u16string expected;
        int count = 0;
        for (auto left = random() % 9; left > 0; --left) {
            const auto kind = random() % 3;
            count = kind == 0 ? 0 : count + 1;
            text.add(u"x\n", kind == 0 ? NSMutableParagraphStyle() : kind == 1 ? m_discs : m_numbers);
            const auto number = u'0' + count;
            if (kind == 1)
                expected += u"\t\u2022\t";
            else if (kind == 2)
                expected += std::u16string(u"\t") + static_cast<char16_t>(number) + u".\t";
            expected += u"x\n";
        }
        ASSERT_EQ(marked(text.text()), expected);
    }
}

TEST_F(TextListMarkers, LeaveTheCopiedTextAsItIs)
{
    const auto text = NoteText().add(u"a", m_discs).text();
    (void)stringWithTextListMarkers(text);
    EXPECT_EQ(text.string(), u"a");
}
