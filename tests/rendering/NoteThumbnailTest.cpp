#include "platform/images/ImageFile.h"
#include "rendering/NoteRendering.h"
#include "tests/rendering/SampleNotes.h"

#include <gtest/gtest.h>

namespace {

NSImage::Ref thumbnail(const CVLNoteFile& note, std::size_t side)
{
    const auto png = thumbnailWithNote(note, side);
    return png ? imageWithData(png->bytes) : nullptr;
}

TEST(NoteThumbnail, IsASquareOfTheSideAsked)
{
    for (const std::size_t side : {16U, 100U, 128U, 256U, 512U, 1024U, 2048U}) {
        const auto image = thumbnail(*groceriesNote(), side);
        ASSERT_TRUE(image) << side;
        EXPECT_EQ(image->pixelsWide(), side);
        EXPECT_EQ(image->pixelsHigh(), side);
    }
}

TEST(NoteThumbnail, IsFilledToItsCornersWithTheBackground)
{
    const auto image = thumbnail(*picturesNote(), 256);
    EXPECT_EQ(image->pixels().front(), 0xfffff5ccU);
    EXPECT_EQ(image->pixels().back(), 0xfffff5ccU);
}

TEST(NoteThumbnail, ShowsTheBeginningOfALongNote)
{
    const auto note = longNote();
    const auto whole = thumbnail(*note, 128);
    note->setNoteText(note->noteText().attributedSubstringFromRange({0, 600}));
    EXPECT_EQ(thumbnail(*note, 128)->pixels(), whole->pixels());
}

TEST(NoteThumbnail, ShowsANoteOfAnyLength)
{
    CVLNoteFile note;
    note.setNoteText(NSAttributedString(std::u16string(1'000'000, u'\n')));
    EXPECT_TRUE(thumbnail(note, 128));
    EXPECT_TRUE(thumbnail(CVLNoteFile(), 128));
}

TEST(NoteThumbnail, RefusesSidesOutsideItsLimits)
{
    for (const std::size_t side : {0U, 15U, 2049U}) {
        NSError error;
        EXPECT_FALSE(thumbnailWithNote(*groceriesNote(), side, NSAppearance::Light, &error));
        EXPECT_EQ(error.code(), static_cast<int>(DrawingError::SizeRefused));
    }
}

} // namespace
