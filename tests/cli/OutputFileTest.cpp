#include "cli/OutputFile.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <thread>

namespace fs = std::filesystem;

namespace {

std::string contentsOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct OutputFile : testing::Test {
    TemporaryFolder temporary;
    fs::path folder = temporary.path();
    NSError error;

    bool write(const fs::path& path) { return writeOutputFile("new", path.native(), &error); }
};

} // namespace

TEST_F(OutputFile, IsMade)
{
    EXPECT_TRUE(write(folder / "out"));
    EXPECT_EQ(contentsOf(folder / "out"), "new");
}

TEST_F(OutputFile, TakesTheOldFilesPlaceAndKeepsItsPermissions)
{
    std::ofstream(folder / "out") << "something longer that is old";
    fs::permissions(folder / "out", fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_TRUE(write(folder / "out"));
    EXPECT_EQ(contentsOf(folder / "out"), "new");
    EXPECT_EQ(fs::status(folder / "out").permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(OutputFile, IsNeverWrittenInTheFormOfAFolder)
{
    fs::create_directory(folder / "sub");
    std::ofstream(folder / "sub" / "kept") << "kept";
    for (const auto& path : {folder / "sub", folder / "sub/", folder / "sub/."}) {
        EXPECT_FALSE(write(path)) << path;
        EXPECT_EQ(error.code(), EISDIR);
    }
    EXPECT_EQ(contentsOf(folder / "sub" / "kept"), "kept");
}

TEST_F(OutputFile, IsWhereALinkLeads)
{
    std::ofstream(folder / "target") << "old";
    fs::create_symlink("target", folder / "link");
    EXPECT_TRUE(write(folder / "link"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(contentsOf(folder / "target"), "new");
}

TEST_F(OutputFile, MayBeAPipe)
{
    const auto pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::string read;
    std::thread reader([&] { read = contentsOf(pipe); });
    EXPECT_TRUE(write(pipe));
    reader.join();
    EXPECT_EQ(read, "new");
    EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST_F(OutputFile, IsNotWrittenWhereThereIsNoFolder)
{
    EXPECT_FALSE(write(folder / "none" / "out"));
    EXPECT_EQ(error.code(), ENOENT);
}
