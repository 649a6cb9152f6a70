#include "strings/FilenameGeneration.h"

#include "platform/foundation/Unicode.h"
#include "tests/strings/RandomText.h"

#include <gtest/gtest.h>

#include <string>

using namespace TSExtensions;

namespace {

std::u16string toPeriod(std::u16string_view text)
{
    return generateFilenameTruncatingToPeriod(text, true);
}

std::u16string wholeSentence(std::u16string_view text)
{
    return generateFilenameTruncatingToPeriod(text, false);
}

std::u16string repeated(std::u16string_view text, std::size_t count)
{
    std::u16string result;
    for (; count > 0; --count)
        result += text;
    return result;
}

TEST(GenerateFilename, TruncatesToThePeriod)
{
    EXPECT_EQ(generateFilename(u"Meeting notes. Agenda follows"), u"Meeting notes");
    EXPECT_EQ(wholeSentence(u"Meeting notes. Agenda follows"), u"Meeting notes.");
    EXPECT_EQ(toPeriod(u"3.5 litres"), u"3");
}

TEST(GenerateFilename, TakesTheFirstLine)
{
    EXPECT_EQ(toPeriod(u"Groceries\nmilk"), u"Groceries");
    EXPECT_EQ(wholeSentence(u"One. Two.\u2028Three"), u"One. Two.");
    EXPECT_EQ(wholeSentence(u"\n \nGroceries\r\nmilk"), u"Groceries");
}

TEST(GenerateFilename, RemovesTheNumberOfAListWithPeriods)
{
    EXPECT_EQ(toPeriod(u"12. Groceries\nmilk"), u"Groceries");
    EXPECT_EQ(wholeSentence(u"12. Groceries\nmilk"), u"12. Groceries");
    EXPECT_EQ(toPeriod(u"1. Groceries"), u"Groceries");
    EXPECT_EQ(toPeriod(u"999. Groceries"), u"Groceries");
    EXPECT_EQ(toPeriod(u"0. Groceries"), u"0");
    EXPECT_EQ(toPeriod(u"1000. Groceries"), u"1000");
    EXPECT_EQ(toPeriod(u"1.Groceries"), u"1");
    EXPECT_EQ(toPeriod(u"1. 2. Groceries"), u"2");
}

TEST(GenerateFilename, RemovesEachBulletOnceInAFixedOrder)
{
    for (const std::u16string_view bullet : {u"\u2022 ", u"\u2022\u00A0", u"- ", u"* ", u"+ "}) {
        EXPECT_EQ(toPeriod(std::u16string(bullet) + u"Milk"), u"Milk");
        EXPECT_EQ(wholeSentence(std::u16string(bullet) + u"Milk"), u"Milk");
    }
    EXPECT_EQ(toPeriod(u"\u2022 - Milk"), u"Milk");
    EXPECT_EQ(toPeriod(u"- \u2022 Milk"), u"\u2022 Milk");
    EXPECT_EQ(toPeriod(u"+ - Milk"), u"- Milk");
    EXPECT_EQ(toPeriod(u"- - Milk"), u"- Milk");
    EXPECT_EQ(toPeriod(u"-Milk"), u"-Milk");
    EXPECT_EQ(toPeriod(u"7. * Milk"), u"Milk");
}

TEST(GenerateFilename, DropsAttachmentsTabsAndWhatSurroundsTheText)
{
    EXPECT_EQ(toPeriod(u"\uFFFC\uFFFC Harbour\uFFFC\tlights"), u"Harbour lights");
    EXPECT_EQ(toPeriod(u"\u0001 \u200B...Harbour...\u0002"), u"Harbour");
    EXPECT_EQ(wholeSentence(u"\u0001...Harbour...\u0002"),
              u"--"
              u"-Harbour...");
    EXPECT_EQ(toPeriod(u""), u"");
    EXPECT_EQ(toPeriod(u" \n.\t\uFFFC"), u"");
}

TEST(GenerateFilename, TakesALongSentenceWholeUntilSanitizingCutsIt)
{
    const std::u16string sentence(300, u'a');
    EXPECT_EQ(toPeriod(sentence), sentence.substr(0, 255));
    EXPECT_EQ(wholeSentence(sentence), sentence.substr(0, 255));
    const auto words = repeated(u"word ", 40);
    EXPECT_EQ(toPeriod(words), words.substr(0, words.size() - 1));
}

TEST(GenerateFilename, LooksForLineEndsAndPeriodsInTheFirst128UnitsOnly)
{
    const std::u16string start(127, u'a');
    EXPECT_EQ(toPeriod(start + u".b"), start);
    EXPECT_EQ(toPeriod(start + u"a.b"), start + u"a.b");
    EXPECT_EQ(toPeriod(start + u"a\nb"), start + u"a");
    EXPECT_EQ(wholeSentence(start + u"a! Bcd"), start + u"a!");
}

TEST(GenerateFilename, CutsBehindAWordWhereThereIsNoSentence)
{
    const auto faces = repeated(u"\U0001F600\U0001F600\U0001F600 ", 40);
    // A word and its blank are 7 units; the nineteenth begins at 126, before the limit, and ends at 132.
    EXPECT_EQ(toPeriod(faces), faces.substr(0, 132));
    EXPECT_EQ(toPeriod(u"\U0001F600 \U0001F600"), u"\U0001F600 \U0001F600");
    EXPECT_EQ(toPeriod(u"-- \u0001\u0001 --"), u"-- \u0001\u0001 --");
    const std::u16string controls(300, u'\u0001');
    EXPECT_EQ(toPeriod(u"-" + controls + u"-").size(), 128U);
}

TEST(GenerateFilename, GivesSafeNames)
{
    EXPECT_EQ(toPeriod(u"AC/DC: Live~"), u"AC-DC- Live-");
    EXPECT_EQ(wholeSentence(u".hidden"), u"-hidden");
    EXPECT_EQ(toPeriod(u"To be continued\u2026"), u"To be continued");
}

TEST(GenerateFilename, KeepsItsPromisesForEveryText)
{
    RandomText texts(3);
    for (int count = 0; count < 10'000; ++count) {
        const auto text = texts.next(u"aB1.-*+\u2022\u00A0 \t\n/:~!?\u2026\uFFFC\u0001\U0001F600\u0301",
                                     count % 10 ? 12 : 400);
        for (const bool truncates : {true, false}) {
            const auto name = generateFilenameTruncatingToPeriod(text, truncates);
            ASSERT_EQ(name.find_first_of(u"/:~\t\n\uFFFC"), std::u16string::npos) << UTF8FromUTF16(text);
            ASSERT_FALSE(name.starts_with(u'.') || name.starts_with(u' ')) << UTF8FromUTF16(text);
            ASSERT_LE(name.size(), 255U) << UTF8FromUTF16(text);
        }
    }
}

TEST(GenerateFilename, TakesHugeTexts)
{
    for (const char16_t unit : std::u16string(u"a \n.\uFFFC\u0001-\0\xD83D\xDE00", 10)) {
        const std::u16string text(10'000'000, unit);
        EXPECT_LE(toPeriod(text).size(), 255U) << static_cast<int>(unit);
        EXPECT_LE(wholeSentence(text).size(), 255U) << static_cast<int>(unit);
    }
}

} // namespace
