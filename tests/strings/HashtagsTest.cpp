#include "strings/Hashtags.h"

#include "platform/foundation/NSRegularExpression.h"
#include "platform/foundation/NSUserDefaults.h"
#include "platform/foundation/Unicode.h"
#include "tests/strings/RandomText.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace TSExtensions;

namespace {

using Names = std::vector<std::u16string>;
using Ranges = std::vector<NSRange>;

Names namesIn(std::u16string_view text, NumericHashtags numeric = NumericHashtags::Rejected)
{
    return tagNamesAndRangesFromHashtags(text, nullptr, numeric);
}

Ranges rangesIn(std::u16string_view text, NumericHashtags numeric = NumericHashtags::Rejected)
{
    Ranges ranges = {{99, 99}};
    (void)tagNamesAndRangesFromHashtags(text, &ranges, numeric); // The ranges are what is asked for.
    return ranges;
}

TEST(Hashtags, BeginTheTextOrStandBehindABlank)
{
    EXPECT_EQ(namesIn(u"#tag"), Names{u"tag"});
    EXPECT_EQ(namesIn(u"x #tag\n#other\u2029#third\u00A0#fourth"),
              (Names{u"tag", u"other", u"third", u"fourth"}));
    EXPECT_EQ(namesIn(u"x#tag"), Names());
    EXPECT_EQ(namesIn(u"(#tag"), Names());
    EXPECT_EQ(namesIn(u"a#b#c #d"), Names{u"d"});
}

TEST(Hashtags, FollowOneAnother)
{
    EXPECT_EQ(namesIn(u"#a#b"), (Names{u"a", u"b"}));
    EXPECT_EQ(rangesIn(u"#one#two"), (Ranges{{0, 4}, {4, 4}}));
    EXPECT_EQ(namesIn(u"##"), Names());
    EXPECT_EQ(namesIn(u"#"), Names());
    EXPECT_EQ(rangesIn(u"##a"), (Ranges{{1, 2}}));
}

TEST(Hashtags, EndBeforeWhatIsNotAllowed)
{
    EXPECT_EQ(namesIn(u"#milk, eggs"), Names{u"milk"});
    EXPECT_EQ(rangesIn(u"#milk, eggs"), (Ranges{{0, 5}}));
    EXPECT_EQ(namesIn(u"#a,b#c-d"), (Names{u"a", u"c"}));
    EXPECT_EQ(rangesIn(u"#a,b#c-d"), (Ranges{{0, 2}, {4, 2}}));
    EXPECT_EQ(namesIn(u"#,a"), Names());
    EXPECT_EQ(namesIn(u"#\u00E9te\u0301\u4E2D\U00020000\U0001F600x"),
              Names{u"\u00E9te\u0301\u4E2D\U00020000"});
    EXPECT_EQ(namesIn(u"#a" + std::u16string(1, 0xD83D) + u"b"), Names{u"a"});
}

TEST(Hashtags, SpellSpacesAsUnderscores)
{
    EXPECT_EQ(namesIn(u"#to_do"), Names{u"to do"});
    EXPECT_EQ(rangesIn(u"see #to_do"), (Ranges{{4, 6}}));
    EXPECT_EQ(namesIn(u"#_"), Names{u" "});
}

TEST(Hashtags, AreNoNumbersUnlessAllowed)
{
    EXPECT_EQ(namesIn(u"#2024"), Names());
    EXPECT_EQ(namesIn(u"#2024", NumericHashtags::Allowed), Names{u"2024"});
    EXPECT_EQ(namesIn(u"#2024,a"), Names());
    for (const auto numeric : {NumericHashtags::Rejected, NumericHashtags::Allowed}) {
        EXPECT_EQ(namesIn(u"#2024a", numeric), Names{u"2024a"});
        EXPECT_EQ(namesIn(u"#\u0662\u0660", numeric), Names{u"\u0662\u0660"});
        EXPECT_EQ(namesIn(u"##,", numeric), Names());
    }
}

TEST(Hashtags, AskTheUsersDefaultsAboutNumbers)
{
    const TemporaryFolder folder;
    NSUserDefaults defaults(folder.file("defaults.plist"));
    const NSUserDefaultsReplacement replacement(defaults);
    EXPECT_EQ(tagNamesAndRangesFromHashtags(u"#2024"), Names());
    defaults.setObject(NSAny(true), u"CVLAllowNumericHashtags");
    EXPECT_EQ(tagNamesAndRangesFromHashtags(u"#2024"), Names{u"2024"});
    EXPECT_EQ(uniqueTagNamesFromHashtags(u"#2024"), std::set<std::u16string>{u"2024"});
}

TEST(Hashtags, AreUniqueWhenAskedFor)
{
    EXPECT_EQ(uniqueTagNamesFromHashtags(u"#b #a #b #a_b", NumericHashtags::Rejected),
              (std::set<std::u16string>{u"a", u"a b", u"b"}));
    EXPECT_EQ(namesIn(u"#b #a #b"), (Names{u"b", u"a", u"b"}));
}

TEST(Hashtags, StandWhereThePatternMatches)
{
    const auto pattern = NSRegularExpression::regularExpressionWithPattern(u"#\\S+");
    RandomText texts(4);
    for (int count = 0; count < 5'000; ++count) {
        const auto text = texts.next(u"##ab_1,\n \u00A0\v\u0085\u200B\u0301\U0001F600\xD83D", 14);
        Ranges ranges;
        const auto names = tagNamesAndRangesFromHashtags(text, &ranges, NumericHashtags::Allowed);
        ASSERT_EQ(names.size(), ranges.size());
        const auto matches = pattern->matchesInString(text);
        for (const auto range : ranges) {
            ASSERT_EQ(text[range.location], u'#') << UTF8FromUTF16(text);
            ASSERT_LE(NSMaxRange(range), text.size());
            const bool isInMatch = std::any_of(matches.begin(), matches.end(), [range](const auto& match) {
                return NSIntersectionRange(match.range(), range) == range;
            });
            ASSERT_TRUE(isInMatch) << UTF8FromUTF16(text);
        }
    }
}

TEST(Hashtags, TakeHugeTexts)
{
    constexpr std::size_t kLength = 10'000'000;
    EXPECT_EQ(namesIn(std::u16string(kLength, u'#')), Names());
    EXPECT_EQ(rangesIn(u"#" + std::u16string(kLength, u'a')), (Ranges{{0, kLength + 1}}));
    EXPECT_EQ(namesIn(u"x" + std::u16string(kLength, u'#')), Names());
    EXPECT_EQ(namesIn(std::u16string(kLength, u'\0')), Names());
}

} // namespace
