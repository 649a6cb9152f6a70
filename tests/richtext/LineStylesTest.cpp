#include "richtext/LineStyles.h"

#include "tests/richtext/NoteText.h"

#include <gtest/gtest.h>

TEST(LineStyles, AreThoseAtALocation)
{
    NSMutableParagraphStyle style;
    style.setHeadIndent(7);
    const auto text = NoteText().add(u"a").add(u"b", style).text();
    EXPECT_FALSE(paragraphStyleAtIndex(text, 0));
    ASSERT_TRUE(paragraphStyleAtIndex(text, 1));
    EXPECT_EQ(paragraphStyleAtIndex(text, 1)->headIndent(), 7);
    EXPECT_FALSE(paragraphStyleAtIndex(text, 2));
    EXPECT_FALSE(paragraphStyleAtIndex(NSAttributedString(), 0));
}

TEST(LineStyles, AreNoneWhereTheValueIsNoStyle)
{
    const auto text = NoteText().add(u"a", {{std::u16string(NSParagraphStyleAttributeName), 1}}).text();
    EXPECT_FALSE(paragraphStyleAtIndex(text, 0));
}

TEST(LineStyles, HaveTheirLastListInnermost)
{
    const auto outer = makeList(NSTextListMarkerDisc);
    const auto inner = makeList(NSTextListMarkerCheck);
    EXPECT_EQ(innermostTextList(styleInLists({outer, inner}).copy()), inner);
    EXPECT_EQ(innermostTextList(styleInLists({outer}).copy()), outer);
    EXPECT_FALSE(innermostTextList(NSParagraphStyle::defaultParagraphStyle()));
    EXPECT_FALSE(innermostTextList(nullptr));
}

TEST(TextListMarkerCharacters, StandBetweenTabs)
{
    EXPECT_EQ(textListMarker(NSTextList(NSTextListMarkerCheck), 0), u"\t\u2713\t");
    EXPECT_EQ(textListMarker(NSTextList(NSTextListMarkerCircle), 0), u"\t\u25E6\t");
    EXPECT_EQ(textListMarker(NSTextList(u"{decimal}."), 12), u"\t12.\t");
}
