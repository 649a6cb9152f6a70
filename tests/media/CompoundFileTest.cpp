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

TEST(CompoundFile, ReadsStreamsLargeAndSmall)
{
    const auto large = numbers(5000);
    const auto small = numbers(100);
    for (const std::uint32_t cutoff : {0U, 4096U}) {
        const auto bytes = compoundFileOf({{"Large", large}, {"Small", small}, {"Empty", ""}}, cutoff);
        auto file = open(bytes);
        ASSERT_TRUE(file) << cutoff;
        EXPECT_EQ(file->read("large", 0, kWholeStream), large) << cutoff;
        EXPECT_EQ(file->read("SMALL", 0, kWholeStream), small) << cutoff;
        EXPECT_EQ(file->read("Large", 510, 600), large.substr(510, 600)) << cutoff;
        EXPECT_EQ(file->read("Small", 60, 10), small.substr(60, 10)) << cutoff;
        EXPECT_EQ(file->read("Empty", 0, 10), "") << cutoff;
        EXPECT_EQ(file->read("Small", 100, 10), "") << cutoff;
        EXPECT_FALSE(file->hasStream("Other")) << cutoff;
    }
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
    putLittleEndian(bytes, kTable + 3 * 4, 2, 4); // Sector 3 goes back to sector 2.
    auto file = open(bytes);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->read("Stream", 0, kWholeStream).size(), 5000U);

    constexpr std::size_t kDirectoryField = 48;
    const auto directory = littleEndian32(bytes, kDirectoryField);
    putLittleEndian(bytes, kTable + directory * 4, directory, 4);
    EXPECT_TRUE(open(bytes));
}

TEST(CompoundFile, WalksADirectoryOfLinksAsDeepAsTheFile)
{
    std::vector<CompoundStream> streams;
    for (int index = 0; index < 300; ++index)
        streams.push_back({"Stream " + std::to_string(index), ""});
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
