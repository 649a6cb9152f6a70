#include "markdown/MarkdownImport.h"

#include "platform/foundation/NSURL.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFontManager.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextAttachment.h"

#include <gtest/gtest.h>

namespace {

NSParagraphStyle::Ref styleAt(const NSAttributedString& text, NSUInteger location)
{
    return text.attribute(NSParagraphStyleAttributeName, location).object<NSParagraphStyle>();
}

unsigned traitsAt(const NSAttributedString& text, NSUInteger location)
{
    const auto font = text.attribute(NSFontAttributeName, location).object<NSFont>();
    return font ? NSFontManager::sharedFontManager().traitsOfFont(*font) : 0;
}

NSUInteger placeOf(const NSAttributedString& text, std::u16string_view words)
{
    return text.string().find(words);
}

MarkdownImportOptions options()
{
    MarkdownImportOptions made;
    made.font = NSFont::fontWithName(u"Helvetica", 10);
    return made;
}

} // namespace

TEST(MarkdownImport, JoinsParagraphsWithLineEnds)
{
    EXPECT_EQ(attributedStringWithMarkdown(u"").length(), 0U);
    EXPECT_EQ(attributedStringWithMarkdown(u"a\nb\n\nc\n").string(), u"a b\nc");
}

TEST(MarkdownImport, SetsParagraphsApartButNotItems)
{
    const auto text = attributedStringWithMarkdown(u"a\n\nb\n\n- c\n- d\n\ne", options());
    EXPECT_EQ(styleAt(text, 0)->paragraphSpacingBefore(), 0);
    EXPECT_EQ(styleAt(text, placeOf(text, u"b"))->paragraphSpacingBefore(), 10);
    EXPECT_EQ(styleAt(text, placeOf(text, u"c"))->paragraphSpacingBefore(), 10);
    EXPECT_EQ(styleAt(text, placeOf(text, u"d"))->paragraphSpacingBefore(), 0);
    EXPECT_EQ(styleAt(text, placeOf(text, u"e"))->paragraphSpacingBefore(), 10);
}

TEST(MarkdownImport, LeavesRoomForWhatKeepsNoSpacingBeforeItself)
{
    const auto text
        = attributedStringWithMarkdown(u"a\n\n- [ ] b\n- [x] c\n\nd\n\n| e |\n|---|\n| f |\n\ng", options());
    const auto spacing = [&text](std::u16string_view word) {
        const auto style = styleAt(text, placeOf(text, word));
        return std::pair(style->paragraphSpacingBefore(), style->paragraphSpacing());
    };
    EXPECT_EQ(spacing(u"a"), std::pair(0.0, 10.0)) << "before boxes";
    EXPECT_EQ(spacing(u"b"), std::pair(0.0, 0.0));
    EXPECT_EQ(spacing(u"c"), std::pair(0.0, 0.0));
    EXPECT_EQ(spacing(u"d"), std::pair(10.0, 10.0)) << "before a table";
    EXPECT_EQ(spacing(u"e"), std::pair(0.0, 0.0));
    EXPECT_EQ(spacing(u"f"), std::pair(0.0, 0.0));
    EXPECT_EQ(spacing(u"g"), std::pair(10.0, 0.0));
    EXPECT_EQ(styleAt(text, placeOf(text, u"a") + 1)->paragraphSpacing(), 10) << "the line end belongs to it";
}

TEST(MarkdownImport, MakesHeadingsBoldLargeAndOfTheirLevel)
{
    const auto text = attributedStringWithMarkdown(u"## a\n\nb", options());
    EXPECT_EQ(styleAt(text, 0)->headerLevel(), 2);
    EXPECT_EQ(text.attribute(NSFontAttributeName, 0).object<NSFont>()->pointSize(), 15);
    EXPECT_TRUE(traitsAt(text, 0) & NSBoldFontMask);
    EXPECT_EQ(styleAt(text, 2)->headerLevel(), 0);
    EXPECT_FALSE(traitsAt(text, 2) & NSBoldFontMask);
}

TEST(MarkdownImport, StylesSpans)
{
    const auto text = attributedStringWithMarkdown(
        u"**b** *i* `c` ~s~ <mark>m</mark> [l](https://a.example/)", options());
    EXPECT_EQ(text.string(), u"b i c s m l");
    EXPECT_EQ(traitsAt(text, 0), static_cast<unsigned>(NSBoldFontMask));
    EXPECT_EQ(traitsAt(text, 2), static_cast<unsigned>(NSItalicFontMask));
    EXPECT_TRUE(traitsAt(text, 4) & NSFixedPitchFontMask);
    EXPECT_EQ(text.attribute(NSStrikethroughStyleAttributeName, 6).integerValue(), 1);
    EXPECT_TRUE(text.attribute(NSTextHighlightStyleAttributeName, 8));
    ASSERT_TRUE(text.attribute(NSLinkAttributeName, 10).url());
    EXPECT_EQ(text.attribute(NSLinkAttributeName, 10).url()->absoluteString(), "https://a.example/");
    EXPECT_FALSE(text.attribute(NSLinkAttributeName, 9));
}

TEST(MarkdownImport, PutsItemsIntoLists)
{
    const auto text = attributedStringWithMarkdown(u"- a\n    1. b\n    2. c\n- d");
    EXPECT_EQ(text.string(), u"\t\u2022\ta\n\t1.\tb\n\t2.\tc\n\t\u2022\td");
    const auto& outer = styleAt(text, placeOf(text, u"a"))->textLists();
    const auto& inner = styleAt(text, placeOf(text, u"b"))->textLists();
    ASSERT_EQ(outer.size(), 1U);
    ASSERT_EQ(inner.size(), 2U);
    EXPECT_EQ(inner[0], outer[0]);
    EXPECT_EQ(styleAt(text, placeOf(text, u"c"))->textLists(), inner);
    EXPECT_EQ(styleAt(text, placeOf(text, u"d"))->textLists(), outer);
    EXPECT_EQ(outer[0]->markerFormat(), NSTextListMarkerDisc);
    EXPECT_EQ(inner[1]->markerFormat(), u"{decimal}.");
    EXPECT_EQ(styleAt(text, placeOf(text, u"b"))->headIndent(), 72);
    EXPECT_EQ(styleAt(text, placeOf(text, u"b"))->firstLineHeadIndent(), 36);
}

TEST(MarkdownImport, MakesBoxesOfChecklistItems)
{
    const auto text = attributedStringWithMarkdown(u"- [ ] a\n- [x] b\n- c");
    EXPECT_EQ(text.string(), u"\t\u25E6\ta\n\t\u2713\tb\n\t\u2022\tc");
    EXPECT_EQ(styleAt(text, 0)->textLists().back()->markerFormat(), NSTextListMarkerCircle);
    EXPECT_EQ(styleAt(text, placeOf(text, u"b"))->textLists().back()->markerFormat(), NSTextListMarkerCheck);
    EXPECT_EQ(styleAt(text, placeOf(text, u"c"))->textLists().back()->markerFormat(), NSTextListMarkerDisc);
}

TEST(MarkdownImport, PutsItemsIntoTheChecklistAroundThem)
{
    const auto text = attributedStringWithMarkdown(u"- [x] a\n    - [ ] b\n- [ ] c");
    const auto& outer = styleAt(text, placeOf(text, u"a"))->textLists();
    const auto& inner = styleAt(text, placeOf(text, u"b"))->textLists();
    ASSERT_EQ(inner.size(), 2U);
    EXPECT_EQ(inner.front(), outer.front());
    EXPECT_EQ(inner.front()->markerFormat(), NSTextListMarkerCheck);
    EXPECT_EQ(inner.back()->markerFormat(), NSTextListMarkerCircle);
}

TEST(MarkdownImport, SetsFurtherParagraphsOfAnItemIn)
{
    const auto text = attributedStringWithMarkdown(u"- a\n\n  b");
    const auto style = styleAt(text, placeOf(text, u"b"));
    EXPECT_TRUE(style->textLists().empty());
    EXPECT_EQ(style->headIndent(), 36);
    EXPECT_EQ(style->firstLineHeadIndent(), 36);
}

TEST(MarkdownImport, PutsQuotesIntoBlocks)
{
    const auto text = attributedStringWithMarkdown(u"> a\n>\n> b\n>> c\n\nd");
    const auto outer = styleAt(text, 0)->textBlocks();
    ASSERT_EQ(outer.size(), 1U);
    EXPECT_EQ(styleAt(text, placeOf(text, u"b"))->textBlocks(), outer);
    ASSERT_EQ(styleAt(text, placeOf(text, u"c"))->textBlocks().size(), 2U);
    EXPECT_EQ(styleAt(text, placeOf(text, u"c"))->textBlocks().front(), outer.front());
    EXPECT_TRUE(styleAt(text, placeOf(text, u"d"))->textBlocks().empty());
}

TEST(MarkdownImport, KeepsTheLinesOfCode)
{
    const auto text = attributedStringWithMarkdown(u"```\na *b*\n\n  c\n```");
    EXPECT_EQ(text.string(), u"a *b*\u2028\u2028  c");
    EXPECT_EQ(text.runCount(), 1U);
    EXPECT_TRUE(traitsAt(text, 0) & NSFixedPitchFontMask);
}

TEST(MarkdownImport, MakesRulesCentredAsterisks)
{
    const auto text = attributedStringWithMarkdown(u"a\n\n---\n\nb");
    EXPECT_EQ(text.string(), u"a\n***\nb");
    EXPECT_EQ(styleAt(text, 2)->alignment(), NSTextAlignment::Center);
    EXPECT_EQ(styleAt(text, 6)->alignment(), NSTextAlignment::Natural);
}

TEST(MarkdownImport, AsksForTheFilesOfImages)
{
    auto made = options();
    made.fileForImage = [](std::u16string_view target) -> NSFileWrapper::Ref {
        return target == u"a.png" ? NSFileWrapper::initRegularFileWithContents(NSData{"x"}) : nullptr;
    };
    const auto text = attributedStringWithMarkdown(u"![p](a.png) ![q](b.png)", made);
    EXPECT_EQ(text.string(), u"\uFFFC q");
    EXPECT_TRUE(text.attribute(NSAttachmentAttributeName, 0).object<NSTextAttachment>());
    EXPECT_TRUE(text.attribute(NSLinkAttributeName, 2));
}

TEST(MarkdownImport, LetsNoTextPassForAnAttachment)
{
    EXPECT_EQ(attributedStringWithMarkdown(u"a\uFFFCb\n\n```\nc\uFFFC\n```").string(), u"ab\nc");
}
