#include "platform/images/ImageFile.h"

#include "platform/media/ContentLimits.h"
#include "tests/images/ImageBytes.h"

#include <gmock/gmock.h>

#include <string>

namespace {

constexpr std::uint32_t kRed = 0xffff0000;
constexpr std::uint32_t kBlue = 0xff0000ff;

ImageError errorOf(const std::string& bytes)
{
    NSError error;
    EXPECT_EQ(imageWithData(bytes, {}, &error), nullptr);
    EXPECT_EQ(error.domain(), ImageErrorDomain);
    EXPECT_FALSE(error.localizedDescription().empty());
    NSError ofSize;
    (void)sizeOfImage(bytes, &ofSize);
    return static_cast<ImageError>(error.code());
}

TEST(ImageFile, DecodesEachKindThatHasAnEncoderHere)
{
    for (const auto* encoder : {"png", "bmp", "tiff", "ico"}) {
        const auto image = imageWithData(twoColouredImage(encoder, 6, 4));
        ASSERT_TRUE(image) << encoder;
        EXPECT_EQ(image->size(), NSMakeSize(6, 4)) << encoder;
        EXPECT_EQ(image->pixels().front(), kRed) << encoder;
        EXPECT_EQ(image->pixels().back(), kBlue) << encoder;
    }
}

TEST(ImageFile, KnowsTheSizeWithoutDecoding)
{
    EXPECT_EQ(sizeOfImage(twoColouredImage("png", 30, 20)), NSMakeSize(30, 20));
    // There are no pixels in it that could be decoded.
    EXPECT_EQ(sizeOfImage(pngThatClaims(5000, 4000)), NSMakeSize(5000, 4000));
}

TEST(ImageFile, DecodesFewerPixelsOfAnImageThatIsShownSmall)
{
    const auto image = imageWithData(twoColouredImage("png", 400, 200), {40, 100});
    EXPECT_EQ(image->size(), NSMakeSize(400, 200));
    EXPECT_EQ(image->pixelsWide(), 40U);
    EXPECT_EQ(image->pixelsHigh(), 20U);
    EXPECT_EQ(image->pixels().front(), kRed);
}

TEST(ImageFile, DecodesNoPixelMoreThanTheSideHoldsWhateverTheProportion)
{
    // In floating point some of these, times 50 divided by themselves, are a little more than 50.
    for (const int high : {51, 199, 769, 1000}) {
        const auto image = imageWithData(twoColouredImage("png", 1, high), {50, 50});
        ASSERT_TRUE(image);
        EXPECT_EQ(image->pixelsHigh(), 50U) << high;
    }
}

TEST(ImageFile, NeverMakesAnImageLarger)
{
    EXPECT_EQ(imageWithData(twoColouredImage("png", 4, 2), {40, 100})->pixelsWide(), 4U);
}

TEST(ImageFile, TakesASideOfZeroForAnyLength)
{
    EXPECT_EQ(imageWithData(twoColouredImage("png", 400, 200), {0, 50})->pixelsWide(), 100U);
}

TEST(ImageFile, ShowsImagesOfCamerasUpright)
{
    const auto turned = withOrientation(twoColouredImage("jpeg", 64, 32), 6);
    EXPECT_EQ(sizeOfImage(turned), NSMakeSize(32, 64));
    const auto image = imageWithData(turned);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), NSMakeSize(32, 64));
    EXPECT_EQ(image->pixelsWide(), 32U);
    // What is above in the file is at the right.
    const auto right = image->pixels()[32 * 32 + 30];
    const auto left = image->pixels()[32 * 32 + 1];
    EXPECT_GT(right >> 16U & 0xFFU, 200U);
    EXPECT_GT(left & 0xFFU, 200U);
}

TEST(ImageFile, FitsTurnedImagesAsTheyAreShown)
{
    const auto image = imageWithData(withOrientation(twoColouredImage("jpeg", 64, 32), 8), {16, 0});
    EXPECT_EQ(image->pixelsWide(), 16U);
    EXPECT_EQ(image->pixelsHigh(), 32U);
}

TEST(ImageFile, MultipliesColoursByAlpha)
{
    // A pixel of red that is half there, drawn by this program's own surfaces.
    const DrawingSurface surface{{1, 1}};
    const auto bytes = surface.PNGRepresentation([](NSGraphicsContext& context) {
        context.fillRect({{}, {1, 1}}, *NSColor::colorWithRed(1, 0, 0, 0.5));
    });
    EXPECT_EQ(imageWithData(bytes->bytes)->pixels().front(), 0x80800000U);
}

TEST(ImageFile, GivesTheFirstPictureOfAnAnimation)
{
    const auto image = imageWithData(animation());
    ASSERT_TRUE(image);
    EXPECT_EQ(image->pixels(), std::vector<std::uint32_t>{kRed});
}

TEST(ImageFile, DrawsScalableImagesWhereTheirDecoderIsInstalled)
{
    const auto types = readableImageTypeIdentifiers();
    if (std::find(types.begin(), types.end(), "public.svg-image") == types.end())
        GTEST_SKIP() << "there is no decoder for SVG";
    const std::string svg = "<?xml version='1.0'?><svg xmlns='http://www.w3.org/2000/svg' width='40' "
                            "height='20'><rect width='40' height='20' fill='#ff0000'/></svg>";
    EXPECT_EQ(sizeOfImage(svg), NSMakeSize(40, 20));
    EXPECT_EQ(imageWithData(svg, {20, 0})->pixelsWide(), 20U);
    EXPECT_EQ(imageWithData(svg)->pixels().front(), kRed);
}

TEST(ImageFile, SaysThatOtherDataAreNoImage)
{
    for (const auto* bytes : {"", "P", "%PDF-1.4", "some text", "BM and so on", "/* XPM */ static char"})
        EXPECT_EQ(errorOf(bytes), ImageError::UnknownFormat) << bytes;
}

TEST(ImageFile, RefusesTooManyPixelsBeforeItDecodes)
{
    EXPECT_EQ(errorOf(pngThatClaims(7072, 7072)), ImageError::TooLarge);
    EXPECT_EQ(errorOf(pngThatClaims(900'000, 900'000)), ImageError::TooLarge);
}

TEST(ImageFile, TakesAsManyPixelsAsTheLimitAllows)
{
    const ContentLimits limits;
    ASSERT_EQ(limits.imagePixels, 50'000'000U);
    EXPECT_TRUE(sizeOfImage(pngThatClaims(10'000, 5'000)));
    EXPECT_FALSE(sizeOfImage(pngThatClaims(10'000, 5'001)));
}

TEST(ImageFile, RefusesTooManyBytes)
{
    const ContentLimits limits;
    auto png = twoColouredImage("png", 2, 2);
    png.resize(limits.imageBytes + 1);
    EXPECT_EQ(errorOf(png), ImageError::TooLarge);
    EXPECT_EQ(errorOf("<svg>" + std::string(limits.vectorImageBytes, ' ')), ImageError::TooLarge);
}

TEST(ImageFile, SaysWhatIsBroken)
{
    EXPECT_EQ(errorOf(twoColouredImage("png", 20, 20).substr(0, 20)), ImageError::Broken);
    EXPECT_EQ(errorOf(twoColouredImage("jpeg", 20, 20).substr(0, 12)), ImageError::Broken);
    EXPECT_EQ(errorOf(std::string("\x89PNG\r\n\x1a\n") + "nonsense behind"), ImageError::Broken);
}

TEST(ImageFile, ListsTheKindsThatAreAlwaysThere)
{
    EXPECT_THAT(readableImageTypeIdentifiers(),
                testing::IsSupersetOf({"public.png", "public.jpeg", "com.compuserve.gif"}));
}

TEST(ImageFile, ListsEachKindOnce)
{
    auto types = readableImageTypeIdentifiers();
    std::sort(types.begin(), types.end());
    EXPECT_EQ(std::adjacent_find(types.begin(), types.end()), types.end());
}

} // namespace
