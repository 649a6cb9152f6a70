#include "platform/foundation/MessageCatalogue.h"

#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <bit>
#include <cstdint>
#include <utility>
#include <vector>

namespace {

using Messages = std::vector<std::pair<std::string, std::string>>;

constexpr std::string_view kHeader = "Content-Type: text/plain; charset=UTF-8\n";

void appendNumber(std::string& bytes, std::uint32_t number, std::endian order)
{
    for (int position = 0; position < 4; ++position) {
        const int shift = 8 * (order == std::endian::little ? position : 3 - position);
        bytes += static_cast<char>((number >> static_cast<unsigned>(shift)) & 0xFFU);
    }
}

/// A catalogue as the GNU gettext manual's chapter "The Format of GNU MO Files" describes it.
std::string catalogueBytes(const Messages& messages, std::endian order = std::endian::little)
{
    const auto count = static_cast<std::uint32_t>(messages.size());
    std::string tables;
    std::string texts;
    const auto append = [&](const std::string& text) {
        appendNumber(tables, static_cast<std::uint32_t>(text.size()), order);
        appendNumber(tables, static_cast<std::uint32_t>(28 + 16 * count + texts.size()), order);
        texts += text + '\0';
    };
    for (const auto& [key, translation] : messages)
        append(key);
    for (const auto& [key, translation] : messages)
        append(translation);
    std::string bytes;
    for (const std::uint32_t number : {0x950412DEU, 0U, count, 28U, 28 + 8 * count, 0U, 28 + 16 * count})
        appendNumber(bytes, number, order);
    return bytes + tables + texts;
}

Messages someMessages()
{
    return {{"", std::string(kHeader)}, {"Blue", "Blau"}, {"Green", "Gr\xC3\xBCn"}};
}

TEST(MessageCatalogue, GivesTranslationsByKey)
{
    for (const auto order : {std::endian::little, std::endian::big}) {
        const auto catalogue = MessageCatalogue::readBytes(catalogueBytes(someMessages(), order));
        ASSERT_TRUE(catalogue);
        ASSERT_TRUE(catalogue->translationOf(u"Green"));
        EXPECT_EQ(*catalogue->translationOf(u"Green"), u"Gr\u00FCn");
        EXPECT_EQ(catalogue->translationOf(u"Pink"), nullptr);
    }
}

TEST(MessageCatalogue, KeepsItsDescriptionToItself)
{
    const auto catalogue = MessageCatalogue::readBytes(catalogueBytes(someMessages()));
    ASSERT_TRUE(catalogue);
    EXPECT_EQ(catalogue->translationOf(u""), nullptr);
}

TEST(MessageCatalogue, LeavesOutWhatHasNoTranslation)
{
    const auto catalogue
        = MessageCatalogue::readBytes(catalogueBytes({{"", std::string(kHeader)}, {"Blue", ""}}));
    ASSERT_TRUE(catalogue);
    EXPECT_EQ(catalogue->translationOf(u"Blue"), nullptr);
}

TEST(MessageCatalogue, TakesTheFirstOfPluralForms)
{
    using namespace std::string_literals;
    const auto catalogue = MessageCatalogue::readBytes(catalogueBytes({{"day\0days"s, "Tag\0Tage"s}}));
    ASSERT_TRUE(catalogue);
    ASSERT_TRUE(catalogue->translationOf(u"day"));
    EXPECT_EQ(*catalogue->translationOf(u"day"), u"Tag");
}

TEST(MessageCatalogue, RefusesOtherEncodings)
{
    EXPECT_FALSE(
        MessageCatalogue::readBytes(catalogueBytes({{"", "Content-Type: text/plain; charset=KOI8-R\n"}})));
    EXPECT_FALSE(
        MessageCatalogue::readBytes(catalogueBytes({{"", std::string(kHeader)}, {"Green", "Gr\xFCn"}})));
}

TEST(MessageCatalogue, RefusesEveryTruncation)
{
    const auto bytes = catalogueBytes(someMessages());
    // The last byte is the NUL behind the last text, which no length counts.
    for (std::size_t length = 0; length + 1 < bytes.size(); ++length)
        EXPECT_FALSE(MessageCatalogue::readBytes(std::string_view(bytes).substr(0, length))) << length;
}

TEST(MessageCatalogue, SurvivesEveryChangedByte)
{
    const auto bytes = catalogueBytes(someMessages());
    for (std::size_t position = 0; position < bytes.size(); ++position) {
        for (const char value : {'\0', '\x7F', '\x80', '\xFF'}) {
            auto changed = bytes;
            changed[position] = value;
            const auto catalogue = MessageCatalogue::readBytes(changed);
            EXPECT_TRUE(!catalogue || catalogue->translations().size() <= 3);
        }
    }
}

TEST(MessageCatalogue, SaysWhyAFileGivesNone)
{
    const TemporaryFolder folder;
    NSError error;
    EXPECT_FALSE(MessageCatalogue::readFile(folder.file("absent.mo"), &error));
    EXPECT_EQ(error.domain(), NSPOSIXErrorDomain);
    EXPECT_EQ(error.code(), ENOENT);
    EXPECT_FALSE(
        MessageCatalogue::readFile(folder.write("text.mo", "no catalogue at all, but long"), &error));
    EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
    EXPECT_THAT(error.localizedDescription(), testing::HasSubstr("text.mo"));
}

} // namespace
