#include "platform/media/ZipWriter.h"

#include "platform/media/ZipContainer.h"

#include <gtest/gtest.h>

#include <map>

namespace {

std::map<std::string, std::string> membersOf(const std::string& file)
{
    ContentSource source;
    source.bytes = file;
    ContentSink sink(ContentLimits{});
    ReadResult failure;
    auto container = ZipContainer::open(source, sink, failure);
    std::map<std::string, std::string> members;
    if (!container)
        return members;
    for (const auto& name : container->memberNames()) {
        auto& bytes = members[std::string(name)];
        EXPECT_EQ(container->readMember(name,
                                        [&bytes](std::string_view piece) {
                                            bytes += piece;
                                            return true;
                                        }),
                  PartStatus::Read);
    }
    return members;
}

} // namespace

TEST(ZipWriter, WritesMembersThatTheReaderReads)
{
    const std::string large(100'000, 'a');
    const auto file = zipFileOf({{"one.xml", large}, {"folder/two.bin", "two", false}, {"empty", ""}});
    ASSERT_TRUE(file);
    EXPECT_LT(file->size(), 10'000U);
    EXPECT_EQ(
        membersOf(*file),
        (std::map<std::string, std::string>{{"one.xml", large}, {"folder/two.bin", "two"}, {"empty", ""}}));
}

TEST(ZipWriter, StoresWhatIsPackedAlready)
{
    const std::string bytes(1'000, 'a');
    const auto file = zipFileOf({{"one", bytes, false}});
    ASSERT_TRUE(file);
    EXPECT_NE(file->find(bytes), std::string::npos);
}

TEST(ZipWriter, GivesTheSameBytesForTheSameMembers)
{
    const auto file = zipFileOf({{"one", "bytes"}});
    ASSERT_TRUE(file);
    EXPECT_EQ(file, zipFileOf({{"one", "bytes"}}));
    // The time, then the date: in two bytes each, the first day of January 1980.
    EXPECT_EQ(file->substr(10, 4), std::string("\0\0\x21\0", 4));
}

TEST(ZipWriter, KeepsTheOrderOfMembers)
{
    const auto file = zipFileOf({{"b", "1"}, {"a", "2"}});
    ASSERT_TRUE(file);
    EXPECT_EQ(file->substr(30, 1), "b");
}
