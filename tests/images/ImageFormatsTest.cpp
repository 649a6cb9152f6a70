#include "platform/images/ImageFormats.h"

#include "platform/types/UTType.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace std::string_literals;

std::string_view typeOf(const std::string& bytes)
{
    const auto* format = imageFormatOfBytes(bytes);
    return format ? format->typeIdentifier : "";
}

TEST(ImageFormats, KnowsKindsByTheirFirstBytes)
{
    EXPECT_EQ(typeOf("\x89PNG\r\n\x1a\n..."), "public.png");
    EXPECT_EQ(typeOf("\xff\xd8\xff\xe0..."), "public.jpeg");
    EXPECT_EQ(typeOf("GIF89a..."), "com.compuserve.gif");
    EXPECT_EQ(typeOf("II*\0..."s), "public.tiff");
    EXPECT_EQ(typeOf("MM\0*..."s), "public.tiff");
    EXPECT_EQ(typeOf("BM1234\0\0\0\0..."s), "com.microsoft.bmp");
    EXPECT_EQ(typeOf("RIFF1234WEBPVP8 "), "org.webmproject.webp");
    EXPECT_EQ(typeOf("RIFF1234WAVEfmt "), "");
}

TEST(ImageFormats, FindsTheElementOfAScalableImage)
{
    EXPECT_EQ(typeOf("<svg/>"), "public.svg-image");
    EXPECT_EQ(typeOf("\xEF\xBB\xBF \n<?xml version='1.0'?><!-- a --><svg/>"), "public.svg-image");
    EXPECT_EQ(typeOf("text with <svg/> in it"), "");
    EXPECT_EQ(typeOf("<a>" + std::string(5000, ' ') + "<svg/>"), "");
}

TEST(ImageFormats, NamesDeclaredTypesOfImages)
{
    for (const auto& format : imageFormats()) {
        const auto type = UTType::typeWithIdentifier(format.typeIdentifier);
        ASSERT_TRUE(type) << format.typeIdentifier;
        EXPECT_TRUE(type->conformsToType(kUTTypeImage)) << format.typeIdentifier;
    }
}

} // namespace
