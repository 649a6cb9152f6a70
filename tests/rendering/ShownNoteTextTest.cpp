#include "rendering/ShownNoteText.h"

#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "cells/CVLFileAttachmentCell.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSTextAttachment.h"
#include "tests/rendering/SampleNotes.h"

#include <gtest/gtest.h>

namespace {

constexpr PictureOptions kOptions{.highest = 1000, .pixelsPerPoint = 1};

std::shared_ptr<NSTextAttachment> attachmentOfFile(std::u16string name, std::string bytes)
{
    auto file = NSFileWrapper::initRegularFileWithContents({std::move(bytes)});
    file->setPreferredFilename(std::move(name));
    return NSTextAttachment::initWithFileWrapper(std::move(file));
}

/// What is shown for a text of this attachment alone.
std::shared_ptr<NSTextAttachment> shown(const std::shared_ptr<NSTextAttachment>& attachment)
{
    const auto text
        = shownNoteText(NSAttributedString::attributedStringWithAttachment(NSAny(attachment)), kOptions);
    EXPECT_EQ(text.length(), 1U);
    return text.attribute(NSAttachmentAttributeName, 0).mutableObject<NSTextAttachment>();
}

std::shared_ptr<NotePictureCell> pictureCell(const std::shared_ptr<NSTextAttachment>& attachment)
{
    return std::dynamic_pointer_cast<NotePictureCell>(shown(attachment)->attachmentCell());
}

TEST(ShownNoteText, GivesImagesACellThatDrawsThem)
{
    const auto cell = pictureCell(attachmentOfFile(u"a.png", landscapePNG(30, 20)));
    ASSERT_TRUE(cell);
    EXPECT_EQ(cell->cellSize(), NSMakeSize(30, 20));
}

TEST(ShownNoteText, TakesImagesOfContentsWithoutAFile)
{
    EXPECT_TRUE(pictureCell(NSTextAttachment::initWithData(NSData{landscapePNG(3, 2)}, u"public.png")));
}

TEST(ShownNoteText, KnowsImagesByTheirBytesWhateverTheirNames)
{
    EXPECT_TRUE(pictureCell(attachmentOfFile(u"picture", landscapePNG(3, 2))));
}

TEST(ShownNoteText, ShowsWhatCannotBeReadAsAFileWithItsName)
{
    const auto attachment = shown(attachmentOfFile(u"broken.png", "nothing"));
    const auto cell = std::dynamic_pointer_cast<CVLFileAttachmentCell>(attachment->attachmentCell());
    ASSERT_TRUE(cell);
    EXPECT_EQ(cell->filenameString().string(), u"broken.png");
}

TEST(ShownNoteText, ShowsMoviesAndDocumentsAsFiles)
{
    for (const auto* name : {u"film.mp4", u"paper.pdf", u"a.txt"})
        EXPECT_TRUE(std::dynamic_pointer_cast<CVLFileAttachment>(shown(attachmentOfFile(name, "bytes"))));
}

TEST(ShownNoteText, ShowsAFolderAndNoFileAtAllAsAFile)
{
    auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->setPreferredFilename(u"folder");
    EXPECT_TRUE(
        std::dynamic_pointer_cast<CVLFileAttachment>(shown(NSTextAttachment::initWithFileWrapper(folder))));
    EXPECT_TRUE(std::dynamic_pointer_cast<CVLFileAttachment>(shown(std::make_shared<NSTextAttachment>())));
}

TEST(ShownNoteText, KeepsWhatDrawsItself)
{
    const std::vector<std::shared_ptr<NSTextAttachment>> kept
        = {CVLChecklistTextAttachment::init(), CVLDividerTextAttachment::init(),
           std::make_shared<CVLFileAttachment>()};
    for (const auto& attachment : kept)
        EXPECT_EQ(shown(attachment), attachment);
}

TEST(ShownNoteText, LeavesTheNotesOwnTextAlone)
{
    const auto attachment = attachmentOfFile(u"a.png", landscapePNG(3, 2));
    const auto text = NSAttributedString::attributedStringWithAttachment(NSAny(attachment));
    (void)shownNoteText(text, kOptions); // Only what it does to the text is looked at.
    EXPECT_EQ(text.attribute(NSAttachmentAttributeName, 0).mutableObject<NSTextAttachment>(), attachment);
    EXPECT_EQ(attachment->attachmentCell(), nullptr);
}

} // namespace
