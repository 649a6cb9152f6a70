// Where attachments stand in their lines.

#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLDividerTextAttachment.h"
#include "platform/drawing/NSImage.h"
#include "platform/layout/AttachmentRoom.h"
#include "tests/layout/SampleLayout.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

class AttachmentLayout : public ::testing::Test {
protected:
    void SetUp() override { SKIP_WITHOUT_KNOWN_FONT(); }
};

/// A cell of a size that lies `baseline` above the baseline.
class SizedCell final : public NSTextAttachmentCell {
public:
    explicit SizedCell(NSRect frame)
        : m_frame(frame)
    {
    }

    [[nodiscard]] NSSize cellSize() override { return m_frame.size; }

    [[nodiscard]] NSPoint cellBaselineOffset() override { return m_frame.origin; }

private:
    NSRect m_frame;
};

NSAttributedString attachmentText(const std::shared_ptr<NSTextAttachment>& attachment)
{
    return NSAttributedString::attributedStringWithAttachment(
        NSAny(attachment), {{std::u16string(NSFontAttributeName), knownFont()}});
}

NSAttributedString sizedAttachment(NSRect frame)
{
    const auto attachment = std::make_shared<NSTextAttachment>();
    attachment->setAttachmentCell(std::make_shared<SizedCell>(frame));
    return attachmentText(attachment);
}

NSAttributedString joined(std::u16string_view before, const NSAttributedString& attachment,
                          std::u16string_view behind)
{
    auto text = styledText(before);
    text.appendAttributedString(attachment);
    text.appendAttributedString(styledText(behind));
    return text.copy();
}

AttachmentImage picture(NSSize size)
{
    const auto image = NSImage::imageWithSize(size, Flipped::Yes, [](NSGraphicsContext&) {});
    return [image](const NSTextAttachment&) { return image; };
}

/// One item: a box, then words.
NSAttributedString checklistItem(NSUInteger level, std::u16string_view words)
{
    const auto box = CVLChecklistTextAttachment::init();
    box->setIndentationLevel(level);
    auto text = NSMutableAttributedString(box->attributedString());
    text.appendAttributedString(styledText(words));
    text.addAttribute(NSParagraphStyleAttributeName, box->checklistParagraphStyle(), {0, text.length()});
    return text.copy();
}

TEST_F(AttachmentLayout, GivesACellTheRoomThatItAsksFor)
{
    const Laid laid(joined(u"a", sizedAttachment({{0, -5}, {30, 50}}), u"a"), 300);
    ASSERT_EQ(laid.attachments.size(), 1U);
    // 45 above the baseline, 5 below it.
    EXPECT_NEAR(laid.height(0), 50, kTolerance);
    EXPECT_NEAR(laid.lines[0].baseline, 45, kTolerance);
    EXPECT_NEAR(laid.attachments[0].origin.x, kLetter, kTolerance);
    EXPECT_NEAR(laid.attachments[0].origin.y, 0, kTolerance);
    EXPECT_EQ(laid.attachments[0].size, NSMakeSize(30, 50));
    EXPECT_NEAR(laid.right(0), 2 * kLetter + 30, kTolerance);
}

TEST_F(AttachmentLayout, BreaksTheLineBeforeWhatDoesNotFit)
{
    auto text = NSMutableAttributedString(sizedAttachment({{}, {60, 20}}));
    text.appendAttributedString(sizedAttachment({{}, {60, 20}}));
    const Laid laid(text.copy(), 100);
    ASSERT_EQ(laid.attachments.size(), 2U);
    EXPECT_EQ(laid.lines.size(), 2U);
    EXPECT_EQ(laid.attachments[1].origin.x, 0);
}

TEST_F(AttachmentLayout, StandsTextOfAChecklistItemAtTheHeadIndentOnEveryLine)
{
    for (const NSUInteger level : {0U, 1U, 2U, 5U}) {
        const auto head = 20 + 18 * static_cast<double>(level);
        const Laid laid(checklistItem(level, u"aaaa aaaa aaaa aaaa"), 200);
        ASSERT_EQ(laid.attachments.size(), 1U);
        const auto& frame = laid.attachments[0];
        EXPECT_NEAR(frame.origin.x + frame.size.width, head, kTolerance);
        EXPECT_EQ(frame.size.width, 20 + 20 * static_cast<double>(level));
        ASSERT_GE(laid.lines.size(), 2U);
        EXPECT_NEAR(laid.left(1), head, kTolerance);
    }
}

TEST_F(AttachmentLayout, BeginsAtTheEdgeForANegativeIndentWithoutABox)
{
    NSMutableParagraphStyle style;
    style.setHeadIndent(20);
    style.setFirstLineHeadIndent(-20);
    EXPECT_EQ(Laid(styledText(u"a", style), 200).left(0), 0);
}

TEST_F(AttachmentLayout, MakesADividerAsWideAsTheColumn)
{
    const Laid laid(attachmentText(CVLDividerTextAttachment::init()), 250);
    ASSERT_EQ(laid.attachments.size(), 1U);
    EXPECT_EQ(laid.attachments[0].origin.x, 0);
    EXPECT_EQ(laid.attachments[0].size, NSMakeSize(250, 15));
}

TEST_F(AttachmentLayout, ShowsPicturesInTheirNaturalSizeOrTheirBounds)
{
    const auto attachment = std::make_shared<NSTextAttachment>();
    const auto text = joined(u"a", attachmentText(attachment), u"");
    EXPECT_EQ(Laid(text, 300, picture({80, 40})).attachments.at(0).size, NSMakeSize(80, 40));
    attachment->setBounds({{0, -10}, {40, 30}});
    const Laid laid(text, 300, picture({80, 40}));
    EXPECT_EQ(laid.attachments.at(0).size, NSMakeSize(40, 30));
    EXPECT_NEAR(laid.attachments.at(0).origin.y, laid.lines[0].baseline - 20, kTolerance);
}

TEST_F(AttachmentLayout, ShrinksPicturesToTheColumnInProportion)
{
    const auto text = attachmentText(std::make_shared<NSTextAttachment>());
    EXPECT_EQ(Laid(text, 100, picture({400, 80})).attachments.at(0).size, NSMakeSize(100, 20));
}

TEST_F(AttachmentLayout, KeepsASmallBoxForWhatCannotBeShown)
{
    const auto text = attachmentText(std::make_shared<NSTextAttachment>());
    const NSSize box{kMissingAttachmentSide, kMissingAttachmentSide};
    EXPECT_EQ(Laid(text, 100).attachments.at(0).size, box);
    EXPECT_EQ(Laid(text, 100, [](const NSTextAttachment&) { return nullptr; }).attachments.at(0).size, box);
}

TEST_F(AttachmentLayout, DoesNotMultiplyTheHeightOfPictures)
{
    NSMutableParagraphStyle style;
    style.setLineHeightMultiple(2);
    auto text = NSMutableAttributedString(sizedAttachment({{}, {30, 200}}));
    text.addAttribute(NSParagraphStyleAttributeName, style.copy(), {0, 1});
    EXPECT_NEAR(Laid(text.copy(), 300).height(0), 200, kTolerance);
}

TEST_F(AttachmentLayout, GivesNoRoomToTheCharacterAlone)
{
    const Laid laid(styledText(u"a\uFFFCa"), 300);
    EXPECT_TRUE(laid.attachments.empty());
    EXPECT_NEAR(laid.right(0), 2 * kLetter, kTolerance);
}

TEST_F(AttachmentLayout, StandsCellsWithoutMeasure)
{
    constexpr auto kNaN = std::numeric_limits<double>::quiet_NaN();
    for (const auto value : {kNaN, 1e300, -1e300}) {
        const Laid laid(joined(u"a", sizedAttachment({{value, value}, {value, value}}), u"a"), 300);
        EXPECT_LT(laid.manager.usedRect().size.height, 1e6);
    }
}

TEST_F(AttachmentLayout, LaysOutManyAttachmentsInOneLine)
{
    NSMutableAttributedString text;
    for (int i = 0; i < 20000; ++i)
        text.appendAttributedString(CVLChecklistTextAttachment::init()->attributedString());
    EXPECT_EQ(Laid(text.copy(), 400).attachments.size(), 20000U);
}

} // namespace
