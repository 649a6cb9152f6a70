#include "attachments/CVLDividerTextAttachment.h"

#include "attachments/AttachmentClasses.h"
#include "cells/CVLDividerTextAttachmentCell.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSParagraphStyle.h"
#include "styles/CVLNoteTextStyle.h"
#include "tests/support/HostTextView.h"

#include <gtest/gtest.h>

namespace {

std::shared_ptr<CVLDividerTextAttachmentCell> cellOf(CVLDividerTextAttachment& divider)
{
    return std::dynamic_pointer_cast<CVLDividerTextAttachmentCell>(divider.attachmentCell());
}

} // namespace

TEST(CVLDividerTextAttachment, HasTheExactConstants)
{
    EXPECT_EQ(CVLDividerTextAttachmentType, u"com.tessel.corvel.note.divider");
    EXPECT_EQ(CVLDividerReplacementString, u"***");
}

TEST(CVLDividerTextAttachment, HasItsTypeAndCellFromTheStart)
{
    const auto divider = CVLDividerTextAttachment::init();
    EXPECT_EQ(divider->fileType(), CVLDividerTextAttachmentType);
    const auto cell = cellOf(*divider);
    ASSERT_TRUE(cell);
    EXPECT_EQ(cell->attachment(), divider.get());
    EXPECT_EQ(cell->textView(), nullptr);
}

TEST(CVLDividerTextAttachment, HandsTheTextViewToItsCell)
{
    const auto view = std::make_shared<HostTextView>(NSSize{300, 100});
    const auto divider = CVLDividerTextAttachment::initWithTextView(view);
    EXPECT_EQ(divider->fileType(), CVLDividerTextAttachmentType);
    EXPECT_EQ(cellOf(*divider)->textView(), view);
}

TEST(CVLDividerTextAttachment, MakesACellOnlyWhenThereIsNone)
{
    CVLDividerTextAttachment divider;
    const auto made = divider.attachmentCell();
    ASSERT_TRUE(std::dynamic_pointer_cast<CVLDividerTextAttachmentCell>(made));
    EXPECT_EQ(divider.attachmentCell(), made);
    const auto other = std::make_shared<NSTextAttachmentCell>();
    divider.setAttachmentCell(other);
    EXPECT_EQ(divider.attachmentCell(), other) << "another kind of cell stays";
}

TEST(CVLDividerTextAttachment, StandsOnALineOfItsOwnInTheBodyStyle)
{
    const auto divider = CVLDividerTextAttachment::init();
    const auto text = divider->attributedString();
    EXPECT_EQ(text.string(), u"\n\uFFFC\n");
    auto expected = CVLNoteTextStyle::bodyNoteTextStyle()->attributes();
    expected[std::u16string(NSForegroundColorAttributeName)] = NSColor::textColor();
    EXPECT_EQ(text.attributesAtIndex(0), expected);
    EXPECT_EQ(text.attributesAtIndex(2), expected);
    expected[std::u16string(NSAttachmentAttributeName)] = divider;
    EXPECT_EQ(text.attributesAtIndex(1), expected);
}

TEST(CVLDividerTextAttachment, IsReplacedByCentredAsterisks)
{
    const auto text = CVLDividerTextAttachment::replacementString();
    EXPECT_EQ(text.string(), u"***");
    auto centred = NSParagraphStyle::defaultParagraphStyle()->mutableCopy();
    centred.setAlignment(NSTextAlignment::Center);
    auto expected = CVLNoteTextStyle::bodyNoteTextStyle()->attributes();
    expected[std::u16string(NSParagraphStyleAttributeName)] = centred.copy();
    NSRange range;
    EXPECT_EQ(text.attributesAtIndex(0, &range), expected);
    EXPECT_EQ(range, (NSRange{0, 3}));
}

TEST(CVLDividerTextAttachment, KeepsItsTypeInAnArchive)
{
    const auto data
        = NSKeyedArchiver::archivedDataWithRootObject(NSAny(CVLDividerTextAttachment::init()), true);
    ASSERT_TRUE(data);
    const auto decoded = NSKeyedUnarchiver::unarchivedObjectOfClass(CVLDividerTextAttachment::classObject(),
                                                                    data->bytes, attachmentClasses())
                             .mutableObject<CVLDividerTextAttachment>();
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->fileType(), CVLDividerTextAttachmentType);
    EXPECT_TRUE(cellOf(*decoded));
}
