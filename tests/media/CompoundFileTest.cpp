#include "platform/media/CompoundFile.h"

#include "platform/media/LittleEndian.h"
#include "tests/support/CompoundFileBytes.h"

#include <gtest/gtest.h>

namespace {

std::optional<CompoundFile> open(std::string_view bytes)
{
    ContentSource source;
    source.bytes = bytes;
    const auto sourceBytes = SourceBytes::open(source);
    return sourceBytes ? CompoundFile::open(*sourceBytes) : std::nullopt;
}

std::string numbers(std::size_t byteCount)
{
    std::string bytes;
    while (bytes.size() < byteCount)
        bytes += std::to_string(bytes.size()) + " ";
    bytes.resize(byteCount);
    return bytes;
}

constexpr std::size_t kWholeStream = 1'000'000;

} // namespace

TEST(CompoundFile, ReadsStreamsInLargeAndInSmallSectors)
{
    const auto large = numbers(5000);
    const auto small = numbers(100);
    for (const std::uint32_t cutoff : {0U, 4096U}) {
        const auto bytes = compoundFileOf({{"Large", large}, {"Small", small}}, cutoff);
        auto file = open(bytes);
        ASSERT_TRUE(file) << cutoff;
        EXPECT_EQ(file->read("Large", 0, kWholeStream), large) << cutoff;
        EXPECT_EQ(file->read("Small", 0, kWholeStream), small) << cutoff;
    }
}

TEST(CompoundFile, ReadsPartsOfStreams)
{
    const auto large = numbers(5000);
    const auto bytes = compoundFileOf({{"Large", large}, {"Small", "0123456789"}, {"Empty", ""}}, 4096);
    auto file = open(bytes);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->read("Large", 510, 600), large.substr(510, 600));
    EXPECT_EQ(file->read("Large", 4990, 600), large.substr(4990));
    EXPECT_EQ(file->read("Small", 3, 4), "3456");
    EXPECT_EQ(file->read("Small", 10, 1), "");
    EXPECT_EQ(file->read("Empty", 0, 1), "");
}

TEST(CompoundFile, FindsNamesByAnyCase)
{
    const auto bytes = compoundFileOf({{"WordDocument", "text"}});
    auto file = open(bytes);
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->hasStream("WORDDOCUMENT"));
    EXPECT_EQ(file->read("worddocument", 0, kWholeStream), "text");
    EXPECT_FALSE(file->hasStream("Other"));
}

TEST(CompoundFile, ReadsWhatIsLeftOfACutFile)
{
    const auto bytes = compoundFileOf({{"Stream", numbers(5000)}}, 4096);
    for (std::size_t length = 0; length < bytes.size(); length += 13) {
        auto file = open(std::string_view(bytes).substr(0, length));
        EXPECT_LE(file ? file->read("Stream", 0, kWholeStream).size() : 0U, 5000U);
    }
}

TEST(CompoundFile, EndsChainsThatRunInACircle)
{
    auto bytes = compoundFileOf({{"Stream", numbers(5000)}});
    constexpr std::size_t kTable = 512;
    putLittleEndian(bytes, kTable + std::size_t{3} * 4, 2, 4); // Sector 3 goes back to sector 2.
    auto file = open(bytes);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->read("Stream", 0, kWholeStream).size(), 5000U);

    constexpr std::size_t kDirectoryField = 48;
    const auto directory = littleEndian32(bytes, kDirectoryField);
    putLittleEndian(bytes, kTable + std::size_t{directory} * 4, directory, 4);
    EXPECT_TRUE(open(bytes));
}

TEST(CompoundFile, WalksADirectoryOfLinksAsDeepAsTheFile)
{
    std::vector<CompoundStream> streams(300);
    for (std::size_t index = 0; index < streams.size(); ++index)
        streams[index].name = "Stream " + std::to_string(index);
    const auto bytes = compoundFileOf(streams);
    const auto file = open(bytes);
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->hasStream("Stream 299"));
}

TEST(CompoundFile, SurvivesAnyChangedByteOfItsTables)
{
    const auto bytes = compoundFileOf({{"Large", numbers(3000)}, {"Small", numbers(100)}}, 1000);
    for (std::size_t place = 8; place < bytes.size(); ++place) {
        for (const char value : {'\x00', '\x01', '\x7F', '\xFF'}) {
            auto changed = bytes;
            changed[place] = value;
            auto file = open(changed);
            if (!file)
                continue;
            EXPECT_LE(file->read("Large", 0, 100'000).size(), 100'000U);
            EXPECT_LE(file->read("Small", 0, 100'000).size(), 100'000U);
        }
    }
}
