#include "platform/images/BitmapHeader.h"

#include "platform/images/ImageFile.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

std::string number(std::uint32_t value, int byteCount = 4)
{
    std::string bytes;
    for (int i = 0; i < byteCount; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
    return bytes;
}

/// One black pixel, whose header says how many bits it has and how many colours there are to choose from.
std::string bitmap(std::uint32_t bits, std::uint32_t colourCount, std::uint32_t headerLength = 40)
{
    const std::uint32_t pixelsOffset = 14 + 40 + 4 * 2;
    return "BM" + number(pixelsOffset + 4) + number(0) + number(pixelsOffset) + number(headerLength)
        + number(1) + number(1) + number(1, 2) + number(bits, 2) + number(0) + number(4) + number(0)
        + number(0) + number(colourCount) + number(0) + number(0) + number(0xFFFFFF) + number(0);
}

} // namespace

TEST(BitmapHeader, MayCountAsManyColoursAsPixelsTellApart)
{
    EXPECT_FALSE(overstatesBitmapHeader(bitmap(1, 2)));
    EXPECT_TRUE(overstatesBitmapHeader(bitmap(1, 3)));
    EXPECT_FALSE(overstatesBitmapHeader(bitmap(8, 256)));
    EXPECT_TRUE(overstatesBitmapHeader(bitmap(8, 257)));
    EXPECT_TRUE(overstatesBitmapHeader(bitmap(8, 0xFF000006)));
}

TEST(BitmapHeader, MayLeaveTheCountOut)
{
    EXPECT_FALSE(overstatesBitmapHeader(bitmap(4, 0)));
}

TEST(BitmapHeader, MayCountColoursOfWidePixels)
{
    EXPECT_FALSE(overstatesBitmapHeader(bitmap(24, 0xFF000006)));
}

TEST(BitmapHeader, CountsNothingInTheOldestForm)
{
    EXPECT_FALSE(overstatesBitmapHeader(bitmap(8, 0xFF000006, 12)));
}

TEST(BitmapHeader, IsNotReadBehindTheEnd)
{
    const auto whole = bitmap(8, 257);
    EXPECT_TRUE(overstatesBitmapHeader(whole.substr(0, 50)));
    EXPECT_FALSE(overstatesBitmapHeader(whole.substr(0, 49)));
    EXPECT_FALSE(overstatesBitmapHeader("BM"));
}

TEST(BitmapHeader, MayBeAsLongAsTheLongestForm)
{
    EXPECT_FALSE(overstatesBitmapHeader(bitmap(8, 256, 124)));
    EXPECT_TRUE(overstatesBitmapHeader(bitmap(8, 256, 125)));
    EXPECT_TRUE(overstatesBitmapHeader(bitmap(24, 0, 0xE007F800)));
    EXPECT_TRUE(overstatesBitmapHeader(bitmap(24, 0, 0xE007F800).substr(0, 18)));
}

TEST(BitmapHeader, OfEndlessLengthIsRefusedBeforeItIsDecoded)
{
    NSError error;
    EXPECT_FALSE(sizeOfImage(bitmap(24, 0, 0xE007F800), &error));
    EXPECT_NE(error.localizedDescription().find("header claims too much"), std::string::npos);
}

TEST(BitmapHeader, OfTooManyColoursIsRefusedBeforeItIsDecoded)
{
    EXPECT_TRUE(sizeOfImage(bitmap(1, 2)));
    EXPECT_TRUE(imageWithData(bitmap(1, 2)));
    NSError error;
    EXPECT_FALSE(sizeOfImage(bitmap(1, 0xFF000006), &error));
    EXPECT_EQ(error.code(), static_cast<int>(ImageError::Broken));
    EXPECT_FALSE(imageWithData(bitmap(1, 0xFF000006)));
}
