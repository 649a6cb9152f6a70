#include "platform/text/NSAttributedStringBuilder.h"

#include <gtest/gtest.h>

namespace {

SharedAttributes attributesWith(const char16_t* value)
{
    return std::make_shared<const NSAttributes>(NSAttributes{{u"key", value}});
}

} // namespace

TEST(NSAttributedStringBuilder, GivesItsPiecesInOrder)
{
    NSAttributedStringBuilder builder;
    builder.append(u"one", attributesWith(u"a"));
    builder.append(u"two", attributesWith(u"b"));
    EXPECT_EQ(builder.length(), 6U);
    const auto text = builder.finish();
    EXPECT_EQ(text.string(), u"onetwo");
    EXPECT_EQ(text.attribute(u"key", 2), NSAny(u"a"));
    EXPECT_EQ(text.attribute(u"key", 3), NSAny(u"b"));
}

TEST(NSAttributedStringBuilder, MakesOneRunOfNeighboursThatAreEqual)
{
    NSAttributedStringBuilder builder;
    builder.append(u"one", attributesWith(u"a"));
    builder.append(u"", attributesWith(u"b"));
    builder.append(u"two", attributesWith(u"a"));
    EXPECT_EQ(builder.finish().runCount(), 1U);
}

TEST(NSAttributedStringBuilder, BeginsAnewAfterItsTextIsTaken)
{
    NSAttributedStringBuilder builder;
    builder.append(u"one", attributesWith(u"a"));
    const auto first = builder.finish();
    builder.append(u"two", attributesWith(u"a"));
    EXPECT_EQ(first.string(), u"one");
    EXPECT_EQ(builder.finish().string(), u"two");
}

TEST(NSAttributedStringBuilder, GivesAnEmptyTextWithoutPieces)
{
    EXPECT_EQ(NSAttributedStringBuilder().finish(), NSAttributedString());
}
