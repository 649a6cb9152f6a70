#include "platform/media/LegacyWordReader.h"

#include "tests/support/CompoundFileBytes.h"
#include "tests/support/ReadWith.h"

#include <gtest/gtest.h>

namespace {

constexpr std::size_t kTextOffset = 1024;
constexpr std::uint64_t kCompressed = 0x4000'0000;

struct Piece {
    std::string bytes;
    std::size_t characterCount;
    bool isWide;
};

Piece narrow(const std::string& bytes)
{
    return {bytes, bytes.size(), false};
}

Piece wide(const std::u16string& text)
{
    std::string bytes;
    for (const auto unit : text)
        bytes += {static_cast<char>(unit & 0xFFU), static_cast<char>(unit >> 8U)};
    return {bytes, text.size(), true};
}

struct WordStreams {
    std::string document;
    std::string table;

    [[nodiscard]] std::string file() const
    {
        return compoundFileOf({{"WordDocument", document}, {"1Table", table}});
    }
};

WordStreams word97(const std::vector<Piece>& pieces)
{
    WordStreams streams;
    std::string positions;
    std::string descriptors;
    putLittleEndian(positions, 0, 0, 4);
    std::size_t characters = 0;
    streams.document.resize(kTextOffset);
    for (const auto& piece : pieces) {
        const auto offset = streams.document.size();
        streams.document += piece.bytes;
        characters += piece.characterCount;
        putLittleEndian(positions, positions.size(), characters, 4);
        const auto descriptor = descriptors.size();
        putLittleEndian(descriptors, descriptor + 2, piece.isWide ? offset : (offset * 2 | kCompressed), 4);
        descriptors.resize(descriptor + 8);
    }
    // A list of properties stands before the pieces, as fast saving leaves it.
    streams.table = std::string("\x01\x04\x00grpl\x02", 8);
    putLittleEndian(streams.table, 8, positions.size() + descriptors.size(), 4);
    streams.table += positions + descriptors;
    putLittleEndian(streams.document, 0, 0xA5EC, 2);
    putLittleEndian(streams.document, 2, 0xC1, 2);
    putLittleEndian(streams.document, 0x0A, 0x0200, 2);
    putLittleEndian(streams.document, 0x1A2, 0, 4);
    putLittleEndian(streams.document, 0x1A6, streams.table.size(), 4);
    return streams;
}

std::string word6(std::string_view text, std::uint64_t language)
{
    std::string document(kTextOffset, '\0');
    document += text;
    putLittleEndian(document, 0, 0xA5DC, 2);
    putLittleEndian(document, 2, 104, 2);
    putLittleEndian(document, 6, language, 2);
    putLittleEndian(document, 0x18, kTextOffset, 4);
    putLittleEndian(document, 0x1C, kTextOffset + text.size(), 4);
    return document;
}

} // namespace

TEST(LegacyWordReader, PutsPiecesOfBothWidthsTogether)
{
    const auto content = readWith(
        readLegacyWord,
        word97({narrow("caf\xE9 \x93quoted\x94 "), wide(u"中文 \xD83D"), wide(u"x\r"), narrow("end")})
            .file());
    EXPECT_EQ(content.status, ContentStatus::Read) << content.reason;
    EXPECT_EQ(content.text, "café “quoted” 中文 \uFFFDx\nend");
}

TEST(LegacyWordReader, KeepsResultsOfFieldsOnly)
{
    const std::string text = "See \x13 HYPERLINK \"http://a\" \x01\x14the page\x15, \x13 IF \x13 DATE "
                             "\x14today\x15 = 1 \x14yes\x15.\r";
    EXPECT_EQ(readWith(readLegacyWord, word97({narrow(text)}).file()).text, "See the page, yes.\n");
}

TEST(LegacyWordReader, LosesOneParagraphToAFieldWithoutEnd)
{
    EXPECT_EQ(readWith(readLegacyWord, word97({narrow("a \x13 PAGE b\rc\x15 d\x14 e")}).file()).text,
              "a \nc d e");
}

TEST(LegacyWordReader, MapsWordsOwnCharacters)
{
    EXPECT_EQ(readWith(readLegacyWord,
                       word97({narrow("cell\x07next\x0Bline\x0Cpage\tnon\x1Estop so\x1F"
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
    EXPECT_EQ(readWith(readLegacyWord, inCompoundFile(word6("\xCF\xF0\xE8\xE2\xE5\xF2\r", kRussian))).text,
              "Привет\n");
    EXPECT_EQ(readWith(readLegacyWord, inCompoundFile(word6("caf\xE9\r", kEnglish))).text, "café\n");
}

TEST(LegacyWordReader, ReadsTheOldestFilesWithoutContainer)
{
    auto document = word6("plain old text\r", 0x0409);
    putLittleEndian(document, 0, 0xA5DB, 2);
    EXPECT_EQ(readWith(readLegacyWord, document).text, "plain old text\n");
}

TEST(LegacyWordReader, TellsEncryptedDocuments)
{
    auto streams = word97({narrow("secret")});
    putLittleEndian(streams.document, 0x0A, 0x0300, 2);
    const auto content = readWith(readLegacyWord, streams.file());
    EXPECT_EQ(content.status, ContentStatus::Locked);
    EXPECT_EQ(content.text, "");
    EXPECT_EQ(readWith(readLegacyWord, compoundFileOf({{"EncryptedPackage", "x"}})).status,
              ContentStatus::Locked);
}

TEST(LegacyWordReader, ReportsDamage)
{
    auto streams = word97({narrow("text that is there")});
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
    const auto streams = word97({narrow("one"), wide(u"two")});
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
