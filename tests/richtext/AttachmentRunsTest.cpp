#include "richtext/AttachmentRuns.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "richtext/AttachmentFiles.h"
#include "richtext/AttachmentNames.h"
#include "richtext/ChecklistItems.h"
#include "richtext/ChecklistMarkdown.h"
#include "richtext/ChecklistTextLists.h"
#include "richtext/Dividers.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/styles/StyleTest.h"

using namespace DynamicColors;

namespace {

using Strings = std::vector<std::u16string>;

constexpr std::u16string_view kTwice = u"\uFFFC\uFFFC";
constexpr std::u16string_view kOverALineEnd = u"\uFFFC\n\uFFFC";

NSAttributes attachmentAttributes(const NSAny& attachment)
{
    return {{key(NSAttachmentAttributeName), attachment}};
}

/// One attachment over all of these characters, between two texts.
NSMutableAttributedString spread(std::u16string_view before, const NSAny& attachment,
                                 std::u16string_view characters, std::u16string_view behind)
{
    return NoteText().add(before).add(characters, attachmentAttributes(attachment)).add(behind).text();
}

/// Two boxes on a line, the second over its end too, and a line behind that.
NSMutableAttributedString boxAndBoxOverALineEnd()
{
    NSMutableParagraphStyle style;
    style.setHeadIndent(20);
    NSMutableAttributedString text(NoteText()
                                       .addAttachment(makeBox(false))
                                       .add(u"x")
                                       .add(kOverALineEnd, attachmentAttributes(makeBox(true)))
                                       .add(u"a\nb")
                                       .text());
    text.addAttribute(NSParagraphStyleAttributeName, style.copy(), {0, text.length()});
    return text;
}

/// An attachment over several characters is one attachment.
class SpreadAttachments : public StyleTest { };

class AttachmentRuns : public StyleTest { };

} // namespace

TEST_F(SpreadAttachments, AreOneItemOfALists)
{
    auto text = spread(u"x\n", makeBox(true), kTwice, u"a\nb");
    convertChecklistAttachmentsToTextLists(text);
    EXPECT_EQ(text.string(), u"x\n\t\u2713\ta\nb");
    EXPECT_TRUE(listsAt(text, 0).empty());
    for (NSUInteger index = 2; index < 7; ++index)
        EXPECT_EQ(listsAt(text, index).size(), 1U) << index;
    EXPECT_TRUE(listsAt(text, 7).empty());
    EXPECT_TRUE(attachmentsAreInPlace(text));
}

TEST_F(SpreadAttachments, JoinTheLinesTheyStandOnAsListsDo)
{
    auto text = boxAndBoxOverALineEnd();
    convertChecklistAttachmentsToTextLists(text);
    EXPECT_EQ(text.string(), u"\t\u25E6\tx\t\u2713\ta\nb");
    for (NSUInteger index = 0; index < 9; ++index) {
        ASSERT_EQ(listsAt(text, index).size(), 1U) << index;
        EXPECT_EQ(listsAt(text, index)[0]->markerFormat(), NSTextListMarkerCheck) << index;
    }
    EXPECT_EQ(styleAt(text, 9)->headIndent(), 20);
    EXPECT_TRUE(attachmentsAreInPlace(text));
}

TEST_F(SpreadAttachments, AreOneItemOfMarkdown)
{
    auto text = spread(u"x\n", makeBox(true), kTwice, u"a\nb");
    convertChecklistAttachmentsToMarkdownSyntax(text);
    EXPECT_EQ(text.string(), u"x\n- [x] a\nb");
    EXPECT_TRUE(attachmentsAreInPlace(text));
}

TEST_F(SpreadAttachments, JoinTheLinesTheyStandOnInMarkdown)
{
    auto text = boxAndBoxOverALineEnd();
    convertChecklistAttachmentsToMarkdownSyntax(text);
    EXPECT_EQ(text.string(), u"- [ ] x- [x] a\nb");
    for (NSUInteger index = 0; index < 15; ++index)
        EXPECT_EQ(styleAt(text, index)->headIndent(), 0) << index;
    EXPECT_EQ(styleAt(text, 15)->headIndent(), 20);
    EXPECT_TRUE(attachmentsAreInPlace(text));
}

TEST_F(SpreadAttachments, AreListedOnceAsTheLineBehindThem)
{
    const auto box = makeBox(true);
    EXPECT_EQ(completedChecklistItems(spread(u"x", box, kTwice, u"a\nb")), (Strings{u"x\uFFFC\uFFFCa"}));
    EXPECT_EQ(completedChecklistItems(spread(u"x", box, kOverALineEnd, u"a\nb")), (Strings{u"\uFFFCa"}));
    EXPECT_EQ(completedChecklistItems(spread(u"x", box, u"\uFFFC\n", u"a\nb")), (Strings{u"a"}));
    EXPECT_EQ(completedChecklistItems(spread(u"x", box, u"\uFFFC\n", u"")), Strings());
}

TEST_F(SpreadAttachments, AreOneDivider)
{
    for (const auto characters : {kTwice, kOverALineEnd}) {
        auto text = spread(u"abcd", CVLDividerTextAttachment::init(), characters, u"e");
        convertDividersToText(text);
        EXPECT_EQ(text.string(), u"abcd***e");
        EXPECT_TRUE(attachmentsAreInPlace(text));
    }
}

TEST_F(SpreadAttachments, ComeOfNoAsterisksThatCarryOne)
{
    auto text = spread(u"", makeAttachment(u"a.txt"), u"***", u"\nb");
    convertTextToDividers(text);
    EXPECT_EQ(text.string(), u"\n\uFFFC\n\nb");
    EXPECT_TRUE(text.attribute(NSAttachmentAttributeName, 1).object<CVLDividerTextAttachment>());
    EXPECT_TRUE(attachmentsAreInPlace(text));
}

TEST_F(SpreadAttachments, AreOneName)
{
    const auto file = makeAttachment(u"a.txt");
    for (const auto characters : {kTwice, kOverALineEnd}) {
        const auto text = spread(u"x", file, characters, u"y");
        const auto named = attributedStringByReplacingAttachmentsWithNames(text);
        EXPECT_EQ(named.string(), u"x[a.txt]y");
        EXPECT_TRUE(attachmentsAreInPlace(named));
        EXPECT_EQ(attributedStringWithoutAttachments(text).string(), u"xy");
        EXPECT_EQ(generateName(text), u"xa y");
    }
}

TEST_F(SpreadAttachments, AreOneFile)
{
    const TemporaryFolder folder;
    const auto attachment = makeAttachment(u"a.txt");
    for (const auto characters : {kTwice, kOverALineEnd}) {
        const auto text = spread(u"x", attachment, characters, u"y");
        EXPECT_TRUE(containsFileAttachments(text));
        EXPECT_EQ(fileAttachments(text), (std::vector<NSFileWrapper::Ref>{attachment->fileWrapper()}));
    }
    EXPECT_EQ(
        fileURLsForNonImageAttachmentsWrittenToURL(spread(u"x", attachment, kTwice, u"y"), folder.url("")),
        (std::vector<NSURL>{folder.url("a.txt")}));
}

TEST_F(AttachmentRuns, AreVisitedWhetherTheirAttachmentMayChangeOrNot)
{
    const std::shared_ptr<const NSTextAttachment> file = makeAttachment(u"a.txt");
    const std::shared_ptr<const CVLChecklistTextAttachment> box = makeBox(true);
    NSMutableAttributedString text(NoteText().addAttachment(file).addAttachment(box).add(u"b").text());
    EXPECT_TRUE(containsFileAttachments(text));
    EXPECT_EQ(fileAttachments(text).size(), 1U);
    EXPECT_EQ(completedChecklistItems(text), (Strings{u"\uFFFC\uFFFCb"}));
    EXPECT_EQ(attributedStringWithoutAttachments(text).string(), u"b");
    convertChecklistAttachmentsToMarkdownSyntax(text);
    EXPECT_EQ(text.string(), u"\uFFFC- [x] b");
}

TEST_F(AttachmentRuns, AreThoseOfTheClassAskedFor)
{
    const auto text = NoteText()
                          .addAttachment(makeBox(true))
                          .add(u"a")
                          .addAttachment(makeAttachment(u"a.txt"))
                          .add(u"b", attachmentAttributes(u"no attachment"))
                          .text();
    std::vector<NSUInteger> boxes;
    enumerateAttachments<CVLChecklistTextAttachment>(
        text, [&boxes](const auto&, NSRange range) { boxes.push_back(range.location); });
    EXPECT_EQ(boxes, (std::vector<NSUInteger>{0}));
    std::vector<NSUInteger> all;
    enumerateAttachments<NSTextAttachment>(
        text, {.reverse = true}, [&all](const auto&, NSRange range) { all.push_back(range.location); });
    EXPECT_EQ(all, (std::vector<NSUInteger>{2, 0}));
}
