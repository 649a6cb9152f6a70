#include "documents/NoteImport.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "colours/ColourEquality.h"
#include "colours/HighlightAttribute.h"
#include "platform/text/NSColor.h"
#include "richtext/WebPageCleanup.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/styles/StyleTest.h"

namespace {

class NoteImport : public StyleTest {
protected:
    static NSAttributedString imported(const NSAttributedString& text, DocumentKind kind)
    {
        return noteTextOfDocument({kind, text, {}});
    }

    static NSAttributedString importedFrom(std::string bytes, DocumentKind kind)
    {
        NSError error;
        const auto document = documentWithData({std::move(bytes)}, kind, &error);
        EXPECT_TRUE(document) << error.localizedDescription();
        return document ? noteTextOfDocument(*document) : NSAttributedString();
    }

    static bool hasDivider(const NSAttributedString& text, NSUInteger location)
    {
        return text.attribute(NSAttachmentAttributeName, location).object<CVLDividerTextAttachment>()
            != nullptr;
    }
};

TEST_F(NoteImport, LeavesTheTextOfANoteAsItIs)
{
    const auto text = NoteText().add(u"a\n***\nb").text();
    EXPECT_EQ(imported(text, DocumentKind::Note), text);
}

TEST_F(NoteImport, MakesChecklistsOfBoxesToTick)
{
    const auto text = importedFrom("- [x] Salt\n    - [ ] Leek\n", DocumentKind::Markdown);
    EXPECT_EQ(itemsOf(text), (std::vector<ChecklistItem>{{true, 0, u"Salt"}, {false, 1, u"Leek"}}));
}

TEST_F(NoteImport, MakesChecklistsOfTheMarkersOfPlainText)
{
    const auto text = importedFrom("\t\u2713\tSalt\n\t\u25E6\tLeek\n", DocumentKind::PlainText);
    EXPECT_EQ(itemsOf(text), (std::vector<ChecklistItem>{{true, 0, u"Salt"}, {false, 0, u"Leek"}}));
}

TEST_F(NoteImport, MakesDividersOfRules)
{
    for (const auto& [bytes, kind] :
         {std::pair{"a\n\n---\n\nb\n", DocumentKind::Markdown}, {"<p>a<hr><p>b", DocumentKind::Page}}) {
        const auto text = importedFrom(bytes, kind);
        EXPECT_TRUE(hasDivider(text, 2)) << bytes;
        EXPECT_EQ(text.string().substr(0, 5), u"a\n\uFFFC\nb") << bytes;
    }
}

TEST_F(NoteImport, LeavesAsterisksOfMarkdownThatAreNoRule)
{
    EXPECT_EQ(importedFrom("a\n\n\\*\\*\\*\n\nb\n", DocumentKind::Markdown).string().substr(0, 5), u"a\n***");
    EXPECT_EQ(importedFrom("<p>a<p>***<p>b", DocumentKind::Page).string().substr(0, 5), u"a\n***");
}

TEST_F(NoteImport, MakesDividersOfEveryLineOfAsterisksInOtherKinds)
{
    EXPECT_EQ(importedFrom("a\n***\nb\n", DocumentKind::PlainText).string(), u"a\n\uFFFC\nb\n");
    EXPECT_EQ(importedFrom("{\\rtf1 a\\par ***\\par b}", DocumentKind::RTF).string(), u"a\n\uFFFC\nb");
}

TEST_F(NoteImport, LeavesAsterisksWithinAParagraph)
{
    const auto text = NoteText().add(u"a\u2028***\n***\u2028b\n*** c").text();
    EXPECT_EQ(imported(text, DocumentKind::Archive).string(), text.string());
}

TEST_F(NoteImport, KeepsTheDividerThatEndsTheText)
{
    const auto text = importedFrom("a\n***", DocumentKind::PlainText);
    EXPECT_EQ(text.string(), u"a\n\uFFFC\n");
    EXPECT_TRUE(hasDivider(text, 2));
}

TEST_F(NoteImport, GivesTheBodyFontWhereThereIsNone)
{
    const auto text = imported(NoteText().add(u"a").add(u"b", withFont(u"Menlo-Regular", 9)).text(),
                               DocumentKind::Archive);
    EXPECT_EQ(fontAt(text, 0)->fontName(), u"HelveticaNeue");
    EXPECT_EQ(fontAt(text, 0)->pointSize(), 12);
    EXPECT_EQ(fontAt(text, 1)->fontName(), u"Menlo-Regular");
}

TEST_F(NoteImport, RaisesSuperscriptsAndLowersSubscripts)
{
    const auto text
        = importedFrom("<p>x<sup>2</sup><sub>3</sub><sup><sup>4</sup></sup>y", DocumentKind::Page);
    ASSERT_EQ(text.string().substr(0, 5), u"x234y");
    const auto offset = [&text](NSUInteger index) {
        return text.attribute(NSBaselineOffsetAttributeName, index).doubleValue();
    };
    const auto size = fontAt(text, 0)->pointSize();
    EXPECT_DOUBLE_EQ(offset(1), size / 3);
    EXPECT_DOUBLE_EQ(offset(2), -size / 5);
    EXPECT_DOUBLE_EQ(offset(3), 2 * size / 3);
    for (const NSUInteger index : {0U, 4U})
        EXPECT_EQ(offset(index), 0) << index;
    for (NSUInteger index = 0; index < 5; ++index) {
        EXPECT_EQ(fontAt(text, index)->pointSize(), index == 0 || index == 4 ? size : size * 0.75) << index;
        EXPECT_FALSE(text.attribute(NSSuperscriptAttributeName, index)) << index;
    }
}

TEST_F(NoteImport, TakesTheBodyFamilyForWhatAPageSays)
{
    const auto text = importedFrom("<p style='font-family: Times; font-size: 20px'>a", DocumentKind::Page);
    EXPECT_EQ(fontAt(text, 0)->familyName(), u"Helvetica Neue");
    EXPECT_EQ(fontAt(text, 0)->pointSize(), 20);
}

TEST_F(NoteImport, CleansPagesUpAsTheUserAsks)
{
    EXPECT_EQ(importedFrom("<p>a<p>b", DocumentKind::Page).string().substr(0, 3), u"a\nb");
    defaults().setObject(true, CVLTextViewCleanUpWebPageNewLines);
    EXPECT_EQ(importedFrom("<p>a<p>b", DocumentKind::Page).string().substr(0, 4), u"a\n\nb");
}

TEST_F(NoteImport, MakesFileAttachmentsOfFilesThatAreNotShown)
{
    const auto text = imported(
        NoteText().addAttachment(makeAttachment(u"a.zip")).addAttachment(makeAttachment(u"a.png")).text(),
        DocumentKind::Archive);
    EXPECT_TRUE(text.attribute(NSAttachmentAttributeName, 0).object<CVLFileAttachment>());
    EXPECT_FALSE(text.attribute(NSAttachmentAttributeName, 1).object<CVLFileAttachment>());
}

TEST_F(NoteImport, MakesTheNotesHighlightsOfMarkedText)
{
    const auto text = importedFrom("<mark>a</mark> b\n", DocumentKind::Markdown);
    EXPECT_EQ(text.attribute(CVLHighlightTextAttributeName, 0).integerValue(), 1);
    EXPECT_FALSE(text.attribute(CVLHighlightTextAttributeName, 2));
}

TEST_F(NoteImport, ShowsTextInTheTextColour)
{
    const auto text = importedFrom("a", DocumentKind::PlainText);
    const auto color = text.attribute(NSForegroundColorAttributeName, 0).object<NSColor>();
    ASSERT_TRUE(color);
    EXPECT_TRUE(CVLExtensions::isEqualToColorCVLVersion(*color, *NSColor::textColor()));
}

TEST_F(NoteImport, PutsAParagraphBehindATableThatEndsTheText)
{
    const auto text = importedFrom("| a |\n| --- |\n| b |\n", DocumentKind::Markdown);
    const auto last = styleAt(text, text.length() - 1);
    EXPECT_TRUE(!last || last->textBlocks().empty());
}

} // namespace
