#include "platform/foundation/FileDescriptor.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

TEST(FileDescriptor, ClosesWhatItOwns)
{
    const TemporaryFolder folder;
    const auto path = folder.write("a", "text");
    int number = -1;
    {
        const auto file = FileDescriptor::openForReading(path);
        ASSERT_TRUE(file.isValid());
        number = file.get();
    }
    EXPECT_EQ(::fcntl(number, F_GETFD), -1);
}

TEST(FileDescriptor, SwapsInAssignmentAndIsEmptyAfterAMove)
{
    const TemporaryFolder folder;
    auto first = FileDescriptor::openForReading(folder.write("a", "text"));
    FileDescriptor second = std::move(first);
    EXPECT_TRUE(second.isValid());
    EXPECT_FALSE(first.isValid()); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move): what a
                                   // move leaves is the promise
}

TEST(FileDescriptor, DoesNotWaitForAFIFO)
{
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo(folder.file("fifo").c_str(), 0600), 0);
    const auto file = FileDescriptor::openForReading(folder.file("fifo"));
    EXPECT_FALSE(readFile(file.get(), 10));
    EXPECT_EQ(errno, EINVAL);
}

TEST(ReadFile, ReadsUpToItsBound)
{
    const TemporaryFolder folder;
    const std::string content(200'000, 'x');
    const auto file = FileDescriptor::openForReading(folder.write("a", content));
    EXPECT_EQ(readFile(file.get(), 1'000'000), content);
    EXPECT_EQ(readFile(file.get(), 200'000), content);
    EXPECT_EQ(readFile(file.get(), 100)->size(), 100U);
    EXPECT_EQ(readFile(file.get(), 0), "");
}

TEST(ReadFile, TakesNoMoreRoomThanTheFile)
{
    constexpr std::size_t kByteCount = 1'000'000;
    const TemporaryFolder folder;
    const auto file = FileDescriptor::openForReading(folder.write("file", std::string(kByteCount, 'x')));
    const auto bytes = readFile(file.get(), 2 * kByteCount);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(bytes->size(), kByteCount);
    EXPECT_LE(bytes->capacity(), kByteCount + 1);
}

TEST(ReadFile, RefusesFoldersAndBadDescriptors)
{
    const TemporaryFolder folder;
    const auto directory = FileDescriptor::openForReading(folder.path().native());
    EXPECT_FALSE(readFile(directory.get(), 10));
    EXPECT_EQ(errno, EISDIR);
    EXPECT_FALSE(readFile(-1, 10));
}

TEST(ReadFile, ReadsFilesThatSayTheyAreEmpty)
{
    const auto file = FileDescriptor::openForReading("/proc/self/status");
    ASSERT_TRUE(file.isValid());
    EXPECT_GT(readFile(file.get(), 100'000)->size(), 100U);
}

TEST(WriteAll, TellsWhenItCannot)
{
    const TemporaryFolder folder;
    const auto readOnly = FileDescriptor::openForReading(folder.write("a", "x"));
    EXPECT_FALSE(writeAll(readOnly.get(), "y"));
    EXPECT_TRUE(writeAll(readOnly.get(), ""));
}

} // namespace
