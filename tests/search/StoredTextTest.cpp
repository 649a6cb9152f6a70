#include "platform/search/StoredText.h"

#include <gtest/gtest.h>

#include <random>

namespace {

std::string noise(std::size_t length)
{
    std::mt19937 random(7);
    std::string bytes(length, '\0');
    for (auto& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

TEST(StoredText, ComesBackAsItWas)
{
    for (const auto& text : {std::string(), std::string("short"), std::string(100'000, 'x'), noise(10'000)})
        EXPECT_EQ(StoredText::unpack(StoredText::pack(text)), text);
}

TEST(StoredText, PacksWhatRepeats)
{
    EXPECT_LT(StoredText::pack(std::string(100'000, 'x')).size(), 1000U);
    EXPECT_EQ(StoredText::pack(noise(1000)).size(), 1001U);
}

TEST(StoredText, RefusesDamagedRecords)
{
    EXPECT_FALSE(StoredText::unpack(""));
    EXPECT_FALSE(StoredText::unpack("\x02text"));
    auto record = StoredText::pack(std::string(1000, 'x'));
    EXPECT_FALSE(StoredText::unpack(record.substr(0, record.size() - 1)));
    EXPECT_FALSE(StoredText::unpack(record.substr(0, 1)));
    record[record.size() / 2] = static_cast<char>(record[record.size() / 2] ^ 0x55);
    EXPECT_NE(StoredText::unpack(record), std::string(1000, 'x'));
}

TEST(StoredText, RefusesAFrameThatClaimsTooMuch)
{
    // A zstd frame header of a single segment with an 8-byte content size of 2^40.
    const std::string claim("\x01\x28\xB5\x2F\xFD\xE0\x00\x00\x00\x00\x00\x01\x00\x00", 14);
    EXPECT_FALSE(StoredText::unpack(claim));
}

} // namespace
