#include "platform/text/NSAttributedString.h"

#include "platform/text/NSAttributeNames.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Runs = std::vector<std::pair<NSRange, NSAny>>;

NSMutableAttributedString sample()
{
    NSMutableAttributedString text(u"0123456789");
    text.addAttribute(u"A", 1, {0, 4});
    text.addAttribute(u"A", 2, {6, 2});
    text.addAttribute(u"B", u"b", {2, 6});
    return text;
}

Runs runsOf(const NSAttributedString& text, std::u16string_view name, NSRange range,
            NSEnumerationOptions options = {})
{
    Runs runs;
    text.enumerateAttribute(name, range, options, [&runs](const NSAny& value, NSRange run, bool& /*stop*/) {
        runs.emplace_back(run, value);
    });
    return runs;
}

Runs runsOf(const NSAttributedString& text, std::u16string_view name)
{
    return runsOf(text, name, {0, text.length()});
}

} // namespace

TEST(NSAttributedString, IsEmptyWhenMadeOfNothing)
{
    const NSAttributedString text;
    EXPECT_EQ(text.length(), 0U);
    EXPECT_EQ(text.string(), u"");
    EXPECT_EQ(text.runCount(), 0U);
    EXPECT_TRUE(text.attribute(u"A", 0).isNil());
    EXPECT_EQ(text.lineRangeAtIndex(0), NSRange());
    EXPECT_EQ(text, NSAttributedString(u""));
}

TEST(NSAttributedString, GivesTheAttributesItWasMadeWithToEveryUnit)
{
    const NSAttributedString text(u"Text", {{u"A", 1}});
    NSRange range;
    EXPECT_EQ(text.attribute(u"A", 3, &range), NSAny(1));
    EXPECT_EQ(range, NSMakeRange(0, 4));
    EXPECT_EQ(text.attributesAtIndex(0), (NSAttributes{{u"A", 1}}));
}

TEST(NSAttributedString, FindsTheValueAndItsRange)
{
    const auto text = sample();
    NSRange range;
    EXPECT_EQ(text.attribute(u"A", 3, &range), NSAny(1));
    EXPECT_EQ(range, NSMakeRange(2, 2));
    EXPECT_EQ(text.attribute(u"A", 3, &range, {0, 10}), NSAny(1));
    EXPECT_EQ(range, NSMakeRange(0, 4));
    EXPECT_EQ(text.attribute(u"B", 3, &range, {3, 3}), NSAny(u"b"));
    EXPECT_EQ(range, NSMakeRange(3, 3));
    EXPECT_TRUE(text.attribute(u"A", 5, &range).isNil());
    EXPECT_EQ(range, NSMakeRange(4, 2));
}

TEST(NSAttributedString, HasNoAttributesAtOrBehindItsEnd)
{
    const auto text = sample();
    NSRange range{1, 1};
    EXPECT_TRUE(text.attribute(u"A", 10, &range).isNil());
    EXPECT_EQ(range, NSMakeRange(10, 0));
    EXPECT_TRUE(text.attributesAtIndex(11).empty());
    EXPECT_EQ(text.characterAtIndex(10), u'\0');
}

TEST(NSAttributedString, VisitsTheLongestRunsOfOneAttribute)
{
    const Runs expected{{{0, 4}, 1}, {{4, 2}, {}}, {{6, 2}, 2}, {{8, 2}, {}}};
    EXPECT_EQ(runsOf(sample(), u"A"), expected);
}

TEST(NSAttributedString, VisitsStoredRunsWhenTheLongestAreNotAskedFor)
{
    const Runs expected{{{0, 2}, 1}, {{2, 2}, 1}, {{4, 2}, {}}, {{6, 2}, 2}, {{8, 2}, {}}};
    EXPECT_EQ(runsOf(sample(), u"A", {0, 10}, {.longestEffectiveRangeNotRequired = true}), expected);
}

TEST(NSAttributedString, VisitsInReverse)
{
    const Runs expected{{{8, 1}, {}}, {{6, 2}, 2}, {{4, 2}, {}}, {{1, 3}, 1}};
    EXPECT_EQ(runsOf(sample(), u"A", {1, 8}, {.reverse = true}), expected);
}

TEST(NSAttributedString, CutsTheVisitToTheRange)
{
    const Runs expected{{{3, 1}, 1}, {{4, 2}, {}}, {{6, 1}, 2}};
    EXPECT_EQ(runsOf(sample(), u"A", {3, 4}), expected);
    EXPECT_TRUE(runsOf(sample(), u"A", {10, 5}).empty());
    EXPECT_EQ(runsOf(sample(), u"A", {8, 500}), (Runs{{{8, 2}, {}}}));
}

TEST(NSAttributedString, StopsWhenTheVisitorSaysSo)
{
    int visits = 0;
    sample().enumerateAttribute(u"A", [&visits](const NSAny&, NSRange, bool& stop) { stop = ++visits == 2; });
    EXPECT_EQ(visits, 2);
}

TEST(NSAttributedString, VisitsAllAttributesTogether)
{
    std::vector<std::pair<NSRange, NSAttributes>> runs;
    sample().enumerateAttributesInRange({1, 6}, {},
                                        [&](const NSAttributes& attributes, NSRange range, bool& /*stop*/) {
                                            runs.emplace_back(range, attributes);
                                        });
    ASSERT_EQ(runs.size(), 4U);
    EXPECT_EQ(runs[0], std::pair(NSMakeRange(1, 1), NSAttributes{{u"A", 1}}));
    EXPECT_EQ(runs[1], std::pair(NSMakeRange(2, 2), NSAttributes{{u"A", 1}, {u"B", u"b"}}));
    EXPECT_EQ(runs[2], std::pair(NSMakeRange(4, 2), NSAttributes{{u"B", u"b"}}));
    EXPECT_EQ(runs[3], std::pair(NSMakeRange(6, 1), NSAttributes{{u"A", 2}, {u"B", u"b"}}));
}

TEST(NSAttributedString, CutsOutAPartWithItsAttributes)
{
    const auto part = sample().attributedSubstringFromRange({3, 4});
    EXPECT_EQ(part.string(), u"3456");
    EXPECT_EQ(runsOf(part, u"A"), (Runs{{{0, 1}, 1}, {{1, 2}, {}}, {{3, 1}, 2}}));
    EXPECT_EQ(runsOf(part, u"B"), (Runs{{{0, 4}, u"b"}}));
    EXPECT_EQ(sample().attributedSubstringFromRange({8, 100}).string(), u"89");
}

TEST(NSAttributedString, IsEqualWhenCharactersAndAttributesAre)
{
    EXPECT_EQ(sample(), sample());
    auto other = sample();
    other.addAttribute(u"A", 3, {9, 1});
    EXPECT_NE(sample(), other);
    other.removeAttribute(u"A", {9, 1});
    EXPECT_EQ(sample(), other);
    other.replaceCharactersInRange({0, 1}, u"x");
    EXPECT_NE(sample(), other);
}

TEST(NSAttributedString, CopiesStandForThemselves)
{
    auto text = sample();
    const NSAttributedString copy = text;
    text.replaceCharactersInRange({0, 5}, u"");
    text.addAttribute(u"A", 7, {0, 1});
    EXPECT_EQ(copy, sample());
    EXPECT_EQ(text.string(), u"56789");
}

TEST(NSAttributedString, AnAttachmentIsOneCharacter)
{
    const auto text = NSAttributedString::attributedStringWithAttachment(u"stands for one", {{u"A", 1}});
    EXPECT_EQ(text.string(), std::u16string(1, NSAttachmentCharacter));
    EXPECT_EQ(text.attribute(NSAttachmentAttributeName, 0), NSAny(u"stands for one"));
    EXPECT_EQ(text.attribute(u"A", 0), NSAny(1));
}

TEST(NSAttributedString, AsksForAPrefixAtAnyPlace)
{
    const auto text = sample();
    EXPECT_TRUE(text.hasPrefixAtIndex(u"345", 3));
    EXPECT_FALSE(text.hasPrefixAtIndex(u"346", 3));
    EXPECT_FALSE(text.hasPrefixAtIndex(u"9x", 9));
    EXPECT_TRUE(text.hasPrefixAtIndex(u"", 10));
    EXPECT_FALSE(text.hasPrefixAtIndex(u"", 11));
    EXPECT_EQ(text.substringWithRange({7, 9}), u"789");
}

TEST(NSAttributedString, KnowsEveryLineEnd)
{
    const NSAttributedString text(u"a\nb\rc\r\nd\u0085e\u2028f\u2029g");
    const std::vector<std::pair<NSRange, NSRange>> lines{
        {{0, 2}, {0, 1}}, {{2, 2}, {2, 1}},   {{4, 3}, {4, 1}},   {{7, 2}, {7, 1}},
        {{9, 2}, {9, 1}}, {{11, 2}, {11, 1}}, {{13, 1}, {13, 1}},
    };
    for (const auto& [line, content] : lines) {
        for (auto location = line.location; location < NSMaxRange(line); ++location) {
            EXPECT_EQ(text.lineRangeAtIndex(location), line) << location;
            EXPECT_EQ(text.lineContentRangeAtIndex(location), content) << location;
        }
    }
    EXPECT_EQ(text.lineRangeAtIndex(14), NSMakeRange(13, 1));
    EXPECT_EQ(text.lineRangeAtIndex(99), NSMakeRange(13, 1));
    EXPECT_EQ(NSAttributedString(u"a\n").lineRangeAtIndex(2), NSMakeRange(2, 0));
}

TEST(NSAttributedString, ParagraphsGoOnOverLineSeparators)
{
    const NSAttributedString text(u"a\u2028b\u0085c\u2029d\r\ne");
    EXPECT_EQ(text.paragraphRangeAtIndex(2), NSMakeRange(0, 6));
    EXPECT_EQ(text.paragraphRangeAtIndex(6), NSMakeRange(6, 3));
    EXPECT_EQ(text.paragraphRangeForRange({5, 2}), NSMakeRange(0, 9));
    EXPECT_EQ(text.paragraphRangeForRange({6, 3}), NSMakeRange(6, 3));
    EXPECT_EQ(text.paragraphRangeForRange({9, 0}), NSMakeRange(9, 1));
}
