#include "platform/media/LegacyWordReader.h"

#include "tests/support/CompoundFileBytes.h"
#include "tests/support/ReadWith.h"
#include "tests/support/WordBytes.h"

#include <gtest/gtest.h>

TEST(LegacyWordReader, PutsPiecesOfBothWidthsTogether)
{
    const auto content
        = readWith(readLegacyWord,
                   word97Streams({narrowPiece("caf\xE9 \x93quoted\x94 "), widePiece(u"中文 \xD83D"),
                                  widePiece(u"x\r"), narrowPiece("end")})
                       .file());
    EXPECT_EQ(content.status, ContentStatus::Read) << content.reason;
    EXPECT_EQ(content.text, "café “quoted” 中文 \uFFFDx\nend");
}

TEST(LegacyWordReader, KeepsResultsOfFieldsOnly)
{
    const std::string text = "See \x13 HYPERLINK \"http://a\" \x01\x14the page\x15, \x13 IF \x13 DATE "
                             "\x14today\x15 = 1 \x14yes\x15.\r";
    EXPECT_EQ(readWith(readLegacyWord, word97Streams({narrowPiece(text)}).file()).text,
              "See the page, yes.\n");
}

TEST(LegacyWordReader, LosesOneParagraphToAFieldWithoutEnd)
{
    EXPECT_EQ(
        readWith(readLegacyWord, word97Streams({narrowPiece("a \x13 PAGE b\rc\x15 d\x14 e")}).file()).text,
        "a \nc d e");
}

TEST(LegacyWordReader, MapsWordsOwnCharacters)
{
    EXPECT_EQ(readWith(readLegacyWord,
                       word97Streams({narrowPiece("cell\x07next\x0Bline\x0Cpage\tnon\x1Estop so\x1F"
                                                  "ft note\x02 x\x05\x01\x08")})
                           .file())
                  .text,
              "cell\nnext\nline\npage\tnon\u2011stop soft note x");
}

TEST(LegacyWordReader, ReadsTheOlderGenerationByItsLanguage)
{
    constexpr std::uint64_t kRussian = 0x0419;
    constexpr std::uint64_t kEnglish = 0x0409;
    const auto inCompoundFile = [](const std::string& document) {
        return compoundFileOf({{"WordDocument", document}});
    };
    EXPECT_EQ(
        readWith(readLegacyWord, inCompoundFile(word6Stream("\xCF\xF0\xE8\xE2\xE5\xF2\r", kRussian))).text,
        "Привет\n");
    EXPECT_EQ(readWith(readLegacyWord, inCompoundFile(word6Stream("caf\xE9\r", kEnglish))).text, "café\n");
}

TEST(LegacyWordReader, ReadsTheOldestFilesWithoutContainer)
{
    auto document = word6Stream("plain old text\r", 0x0409);
    putLittleEndian(document, 0, 0xA5DB, 2);
    EXPECT_EQ(readWith(readLegacyWord, document).text, "plain old text\n");
}

TEST(LegacyWordReader, TellsEncryptedDocuments)
{
    auto streams = word97Streams({narrowPiece("secret")});
    putLittleEndian(streams.document, 0x0A, 0x0300, 2);
    const auto content = readWith(readLegacyWord, streams.file());
    EXPECT_EQ(content.status, ContentStatus::Locked);
    EXPECT_EQ(content.text, "");
    EXPECT_EQ(readWith(readLegacyWord, compoundFileOf({{"EncryptedPackage", "x"}})).status,
              ContentStatus::Locked);
}

TEST(LegacyWordReader, ReportsDamage)
{
    auto streams = word97Streams({narrowPiece("text that is there")});
    streams.document.resize(streams.document.size() - 5);
    const auto cut = readWith(readLegacyWord, streams.file());
    EXPECT_EQ(cut.status, ContentStatus::Damaged);
    EXPECT_EQ(cut.text, "text that is ");

    streams.table[7] = 3;
    EXPECT_EQ(readWith(readLegacyWord, streams.file()).status, ContentStatus::Damaged);
    EXPECT_EQ(readWith(readLegacyWord, compoundFileOf({{"Workbook", "x"}})).status, ContentStatus::Damaged);
    EXPECT_EQ(readWith(readLegacyWord, std::string(100, '\0')).status, ContentStatus::Damaged);
}

TEST(LegacyWordReader, ReadsXMLUnderWordsName)
{
    const auto content = readWith(
        readLegacyWord,
        "<?xml version='1.0'?><w:wordDocument xmlns:w='w' "
        "xmlns:o='o'><o:DocumentProperties><o:Title>Name</o:Title>"
        "</o:DocumentProperties><w:body><w:p><w:r><w:t>text</w:t></w:r></w:p></w:body></w:wordDocument>");
    EXPECT_EQ(content.status, ContentStatus::Read);
    EXPECT_EQ(content.text, "text\n");
    EXPECT_EQ(fieldOf(content, "title"), "Name");
}

TEST(LegacyWordReader, SurvivesAnyChangedByteOfItsTables)
{
    const auto streams = word97Streams({narrowPiece("one"), widePiece(u"two")});
    ContentLimits limits;
    limits.textBytes = 10'000;
    for (std::size_t place = 0; place < streams.table.size(); ++place) {
        for (const char value : {'\x00', '\x01', '\x02', '\x7F', '\xFF'}) {
            auto changed = streams;
            changed.table[place] = value;
            EXPECT_LE(readWith(readLegacyWord, changed.file(), limits).text.size(), limits.textBytes);
        }
    }
}
