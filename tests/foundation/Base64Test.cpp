#include "platform/foundation/Base64.h"

#include <gtest/gtest.h>

namespace {

struct Pair {
    std::string_view bytes;
    std::string_view text;
};

// The published test vectors of the encoding.
constexpr Pair kVectors[] = {{"", ""},
                             {"f", "Zg=="},
                             {"fo", "Zm8="},
                             {"foo", "Zm9v"},
                             {"foob", "Zm9vYg=="},
                             {"fooba", "Zm9vYmE="},
                             {"foobar", "Zm9vYmFy"},
                             {"\xFB\xFF\xBF", "+/+/"}};

} // namespace

TEST(Base64, EncodesAndDecodesThePublishedVectors)
{
    for (const auto& [bytes, text] : kVectors) {
        EXPECT_EQ(base64EncodedString(bytes), text);
        EXPECT_EQ(bytesFromBase64(text), bytes);
    }
}

TEST(Base64, SkipsWhiteSpaceAndTakesMissingPadding)
{
    EXPECT_EQ(bytesFromBase64(" Zm9v\r\n Ym"), "foob"); // The last digit's spare bits mean nothing.
    EXPECT_EQ(bytesFromBase64("Zg"), "f");
    EXPECT_EQ(bytesFromBase64("Zg= =\n"), "f");
}

TEST(Base64, RefusesWhatIsNoDigit)
{
    EXPECT_FALSE(bytesFromBase64("Zm9v!"));
    EXPECT_FALSE(bytesFromBase64("Zm=9v"));
    EXPECT_FALSE(bytesFromBase64("Zm9vY"));
}
