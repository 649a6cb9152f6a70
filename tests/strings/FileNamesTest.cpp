#include "strings/FileNames.h"

#include "platform/foundation/NSStringPaths.h"
#include "platform/foundation/Unicode.h"
#include "tests/strings/RandomText.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using namespace TSExtensions;

namespace {

// What names may not have, what is trimmed, and what is cut within.
constexpr std::u16string_view kHostileAlphabet
    = u"a.b/:~\t\n\r\u0085\u2028\u2029 \u00A0\u2026\\\"'\u0301\uFFFC\U0001F600\xD83D\xDE00\u0001";

std::u16string filled(std::size_t length, char16_t unit = u'n')
{
    return std::u16string(length, unit);
}

TEST(StringSanitizedForFileName, ReplacesWhatIsUnsafe)
{
    EXPECT_EQ(stringSanitizedForFileName(u"a/b:c~d"), u"a-b-c-d");
    EXPECT_EQ(stringSanitizedForFileName(u"a\tb"), u"a-b");
    EXPECT_EQ(stringSanitizedForFileName(u"a\\b|c?"), u"a\\b|c?");
}

TEST(StringSanitizedForFileName, LetsNoNameStartWithADot)
{
    EXPECT_EQ(stringSanitizedForFileName(u".hidden"), u"-hidden");
    EXPECT_EQ(stringSanitizedForFileName(u"..x"), u"--x");
    EXPECT_EQ(stringSanitizedForFileName(u".."), u"--");
    EXPECT_EQ(stringSanitizedForFileName(u" \u2026.x"), u"-x");
    EXPECT_EQ(stringSanitizedForFileName(u"x.y."), u"x.y.");
}

TEST(StringSanitizedForFileName, TrimsBlanksLineEndsAndEllipses)
{
    EXPECT_EQ(stringSanitizedForFileName(u"\u2026 \n name \t\u2028\u2026"), u"name");
    EXPECT_EQ(stringSanitizedForFileName(u" \u2026\n"), u"");
    EXPECT_EQ(stringSanitizedForFileName(u""), u"");
}

TEST(StringSanitizedForFileName, RemovesLineEndsAndKeepsTheBlanksAroundThem)
{
    EXPECT_EQ(stringSanitizedForFileName(u"a\r\nb\u2029c"), u"abc");
    EXPECT_EQ(stringSanitizedForFileName(u"a \n b"), u"a  b");
}

TEST(StringSanitizedForFileName, CutsFrom256UnitsOn)
{
    EXPECT_EQ(stringSanitizedForFileName(filled(255)), filled(255));
    EXPECT_EQ(stringSanitizedForFileName(filled(256)), filled(255));
    EXPECT_EQ(stringSanitizedForFileName(filled(251) + u".txt"), filled(251) + u".txt");
}

TEST(StringSanitizedForFileName, KeepsTheExtensionOfWhatItCuts)
{
    EXPECT_EQ(stringSanitizedForFileName(filled(300) + u".txt"), filled(251) + u".txt");
    // Of an extension of 253 units, one unit of the name is left; of 254, none, and the name has the room.
    EXPECT_EQ(stringSanitizedForFileName(filled(300) + u"." + filled(253, u'e')), u"n." + filled(253, u'e'));
    EXPECT_EQ(stringSanitizedForFileName(filled(300) + u"." + filled(254, u'e')), filled(255));
    EXPECT_EQ(stringSanitizedForFileName(u"n." + filled(300, u'e')), u"n");
}

TEST(StringSanitizedForFileName, TrimsWhatItHasCut)
{
    EXPECT_EQ(stringSanitizedForFileName(filled(250) + u"     tail"), filled(250));
    EXPECT_EQ(stringSanitizedForFileName(filled(254) + u"\u2026" + filled(9)), filled(254));
}

TEST(StringSanitizedForFileName, CountsUnitsWhereItCuts)
{
    const auto name = stringSanitizedForFileName(filled(254) + u"\U0001F600");
    EXPECT_EQ(name, filled(254) + char16_t{0xD83D});
}

TEST(StringSanitizedForFileName, KeepsItsPromisesForEveryText)
{
    RandomText texts(1);
    for (int count = 0; count < 20'000; ++count) {
        const auto text = texts.next(kHostileAlphabet, count % 20 ? 12 : 400);
        const auto name = stringSanitizedForFileName(text);
        ASSERT_EQ(name.find_first_of(u"/:~\t\n\r\u0085\u2028\u2029\v\f"), std::u16string::npos)
            << UTF8FromUTF16(text);
        ASSERT_FALSE(name.starts_with(u'.')) << UTF8FromUTF16(text);
        ASSERT_LE(name.size(), 255U) << UTF8FromUTF16(text);
    }
}

TEST(StringSanitizedForFileName, TakesHugeTexts)
{
    EXPECT_EQ(stringSanitizedForFileName(filled(10'000'000, u'.')), filled(255, u'-'));
    EXPECT_EQ(stringSanitizedForFileName(filled(10'000'000, u' ')), u"");
    EXPECT_EQ(stringSanitizedForFileName(u"a" + filled(10'000'000, u'\n') + u"b"), u"ab");
}

TEST(MakeFilenameUnique, LeavesAFreeNameAsItIs)
{
    const TemporaryFolder folder;
    EXPECT_EQ(makeFilenameUniqueInDirectoryAtURL(u"Report.pdf", folder.url("")), u"Report.pdf");
    EXPECT_EQ(makeFilenameUniqueInDirectoryAtURL(u"a:b~ ", folder.url("")), u"a:b~ ");
    EXPECT_EQ(makeFilenameUniqueInDirectoryAtURL(u"Report.pdf", folder.url("missing")), u"Report.pdf");
}

TEST(MakeFilenameUnique, TakesTheFirstNumberThatIsFree)
{
    const TemporaryFolder folder;
    folder.write("Report.pdf", "");
    EXPECT_EQ(makeFilenameUniqueInDirectoryAtURL(u"Report.pdf", folder.url("")), u"Report 1.pdf");
    // Made safe only after the asking, a name may come out as one that is there.
    folder.write("a:b.txt", "");
    folder.write("a-b 1.txt", "");
    EXPECT_EQ(makeFilenameUniqueInDirectoryAtURL(u"a:b.txt", folder.url("")), u"a-b 1.txt");
    folder.write("Report 1.pdf", "");
    EXPECT_EQ(makeFilenameUniqueInDirectoryAtURL(u"Report.pdf", folder.url("")), u"Report 2.pdf");
    folder.write("Report 3.pdf", "");
    EXPECT_EQ(makeFilenameUniqueInDirectoryAtURL(u"Report.pdf", folder.url("")), u"Report 2.pdf");
    EXPECT_EQ(makeFilenameUniqueInDirectoryAtURL(u"Report 1.pdf", folder.url("")), u"Report 1 1.pdf");
}

TEST(MakeFilenameUnique, NumbersNamesWithoutAnExtension)
{
    const TemporaryFolder folder;
    folder.write("Report", "");
    folder.write(".profile", "");
    EXPECT_EQ(makeFilenameUniqueInDirectoryAtURL(u"Report", folder.url("")), u"Report 1");
    EXPECT_EQ(makeFilenameUniqueInDirectoryAtURL(u".profile", folder.url("")), u"-profile 1");
}

TEST(MakeFilenameUnique, CountsFoldersAndLinksToNothing)
{
    const TemporaryFolder folder;
    folder.write("Reports/x", "");
    std::filesystem::create_symlink("missing", folder.file("link"));
    EXPECT_EQ(makeFilenameUniqueInDirectoryAtURL(u"Reports", folder.url("")), u"Reports 1");
    EXPECT_EQ(makeFilenameUniqueInDirectoryAtURL(u"link", folder.url("")), u"link 1");
}

TEST(MakeFilenameUnique, SanitizesWhatItMakes)
{
    const TemporaryFolder folder;
    folder.write("a:b.txt", "");
    EXPECT_EQ(makeFilenameUniqueInDirectoryAtURL(u"a:b.txt", folder.url("")), u"a-b 1.txt");
}

TEST(MakeFilenameUnique, NeverGivesASafeNameThatIsTaken)
{
    const TemporaryFolder folder;
    RandomText texts(2);
    for (int count = 0; count < 300; ++count) {
        const auto wanted = stringSanitizedForFileName(texts.next(u"ab.1 \u00E9", 4));
        if (wanted.empty())
            continue;
        const auto name = UTF8FromUTF16(makeFilenameUniqueInDirectoryAtURL(wanted, folder.url("")));
        ASSERT_FALSE(std::filesystem::exists(folder.file(name))) << name;
        folder.write(name, "");
    }
}

TEST(StringByTruncatingMiddle, KeepsBothEnds)
{
    EXPECT_EQ(stringByTruncatingMiddleWithMaxLength(u"abcdefgh", 4), u"ab\u2026gh");
    EXPECT_EQ(stringByTruncatingMiddleWithMaxLength(u"abcdefgh", 5), u"ab\u2026gh");
    EXPECT_EQ(stringByTruncatingMiddleWithMaxLength(u"abcdefgh", 1), u"\u2026");
    EXPECT_EQ(stringByTruncatingMiddleWithMaxLength(u"abcdefgh", 0), u"\u2026");
    EXPECT_EQ(stringByTruncatingMiddleWithMaxLength(u"abcdefgh", 7), u"abc\u2026fgh");
}

TEST(StringByTruncatingMiddle, LeavesWhatIsShortEnough)
{
    EXPECT_EQ(stringByTruncatingMiddleWithMaxLength(u"abcd", 4), u"abcd");
    EXPECT_EQ(stringByTruncatingMiddleWithMaxLength(u"", 0), u"");
    EXPECT_EQ(stringByTruncatingMiddleWithMaxLength(u"abcd", SIZE_MAX), u"abcd");
}

TEST(StringByTruncatingMiddle, IsOneUnitLongerForAnEvenLength)
{
    const auto text = filled(100);
    for (std::size_t length = 0; length < 100; ++length)
        EXPECT_EQ(stringByTruncatingMiddleWithMaxLength(text, length).size(),
                  length % 2 == 0 ? length + 1 : length);
}

TEST(IsEqualToFilename, IgnoresCaseDiacriticsAndWidth)
{
    EXPECT_TRUE(isEqualToFilename(u"Caf\u00E9.TXT", u"cafe\u0301.txt"));
    EXPECT_TRUE(isEqualToFilename(u"cafe", u"CAF\u00C9"));
    EXPECT_TRUE(isEqualToFilename(u"\uFF21bc", u"abc"));
    EXPECT_FALSE(isEqualToFilename(u"abc", u"abd"));
    EXPECT_FALSE(isEqualToFilename(u"abc", u"abc "));
    EXPECT_TRUE(isEqualToFilename(u"", u""));
}

TEST(IsCaseInsensitiveEqualToString, IgnoresDiacriticsAndWidthToo)
{
    EXPECT_TRUE(isCaseInsensitiveEqualToString(u"\uFF23af\u00E9", u"cAFE"));
    EXPECT_FALSE(isCaseInsensitiveEqualToString(u"a", u"b"));
}

TEST(FileSystemRepresentationString, IsWhatTheFileSystemGivesBack)
{
    EXPECT_EQ(fileSystemRepresentationString(u"caf\u00E9"), u"caf\u00E9");
    EXPECT_EQ(fileSystemRepresentationString(u"cafe\u0301"), u"cafe\u0301");
    EXPECT_EQ(fileSystemRepresentationString(std::u16string_view(u"a\0b", 3)), u"a");
    EXPECT_EQ(fileSystemRepresentationString(filled(1, 0xD83D)), u"\uFFFD");
}

TEST(FileDisplayName, IsTheLastComponent)
{
    EXPECT_EQ(fileDisplayName(u"/home/me/Report.pdf"), u"Report.pdf");
    EXPECT_EQ(fileDisplayName(u"/"), u"/");
}

} // namespace
