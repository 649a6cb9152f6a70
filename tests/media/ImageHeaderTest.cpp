#include "platform/media/ImageHeader.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;

namespace {

void expectHeader(const std::string& bytes, ImageKind kind, double width, double height)
{
    const auto header = imageHeader(bytes);
    ASSERT_TRUE(header);
    EXPECT_EQ(header->kind, kind);
    EXPECT_EQ(header->pixelSize.width, width);
    EXPECT_EQ(header->pixelSize.height, height);
    // Wherever the bytes end, there is an answer, or none.
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        const auto part = imageHeader(bytes.substr(0, length));
        EXPECT_TRUE(!part || part->kind == kind);
    }
}

} // namespace

TEST(ImageHeader, ReadsPNG)
{
    expectHeader("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\x01\x02\0\0\0\x03"s, ImageKind::PNG, 258, 3);
}

TEST(ImageHeader, ReadsGIF)
{
    expectHeader("GIF89a\x02\x01\x03\0"s, ImageKind::GIF, 258, 3);
    expectHeader("GIF87a\x01\0\x01\0"s, ImageKind::GIF, 1, 1);
}

TEST(ImageHeader, ReadsJPEGBehindOtherSegments)
{
    expectHeader("\xFF\xD8\xFF\xE0\0\x04\1\2\xFF\xFF\xC4\0\x02\xFF\xC2\0\x0B\x08\0\x03\x01\x02"s,
                 ImageKind::JPEG, 258, 3);
}

TEST(ImageHeader, FindsNoSizeInADamagedJPEG)
{
    expectHeader("\xFF\xD8\xFF\xE0\0\0\0\0\0\0"s, ImageKind::JPEG, 0, 0);
}

TEST(ImageHeader, ReadsTIFFOfBothByteOrders)
{
    expectHeader("II*\0\x08\0\0\0\x02\0\0\x01\x03\0\x01\0\0\0\x05\0\0\0\x01\x01\x04\0\x01\0\0\0\x06\0\0\0"s,
                 ImageKind::TIFF, 5, 6);
    expectHeader("MM\0*\0\0\0\x08\0\x02\x01\0\0\x03\0\0\0\x01\0\x05\0\0\x01\x01\0\x04\0\0\0\x01\0\0\0\x06"s,
                 ImageKind::TIFF, 5, 6);
}

TEST(ImageHeader, ReadsBMPOfBothHeaders)
{
    expectHeader("BM"s + std::string(12, '\0') + "\x28\0\0\0\x07\0\0\0\xF8\xFF\xFF\xFF\0\0"s, ImageKind::BMP,
                 7, 8);
    expectHeader("BM"s + std::string(12, '\0') + "\x0C\0\0\0\x07\0\x08\0\0\0\0\0\0"s, ImageKind::BMP, 7, 8);
}

TEST(ImageHeader, ReadsWebPOfAllForms)
{
    const auto start = "RIFF\0\0\0\0WEBP"s;
    expectHeader(start + "VP8X\x0A\0\0\0\0\0\0\0\x04\0\0\x05\0\0"s, ImageKind::WebP, 5, 6);
    expectHeader(start + "VP8L\0\0\0\0\x2F\x04\x40\x01\0"s, ImageKind::WebP, 5, 6);
    expectHeader(start + "VP8 \0\0\0\0\0\0\0\x9D\x01\x2A\x05\0\x06\0"s, ImageKind::WebP, 5, 6);
}

TEST(ImageHeader, KnowsSVGByItsElement)
{
    expectHeader("\xEF\xBB\xBF <?xml version='1.0'?><svg>", ImageKind::SVG, 0, 0);
    EXPECT_FALSE(imageHeader("text about <svg>"));
}

TEST(ImageHeader, HasNoneOfOtherBytes)
{
    for (const auto& bytes : {""s, "%PDF-1.4"s, "BM"s, "BMW and other makes of cars, in many words"s,
                              "RIFF\0\0\0\0WAVE"s, "\x89PNG"s})
        EXPECT_FALSE(imageHeader(bytes)) << bytes;
}
