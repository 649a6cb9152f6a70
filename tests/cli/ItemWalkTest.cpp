#include "cli/ItemWalk.h"

#include "cli/ErrorMessage.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

namespace fs = std::filesystem;

namespace {

struct Found {
    std::vector<std::string> items;
    std::vector<std::pair<std::string, std::string>> skipped;
    std::vector<std::pair<std::string, int>> failures;
};

class RecordingVisitor final : public ItemVisitor {
public:
    explicit RecordingVisitor(Found& found)
        : m_found(found)
    {
    }

    void visitItem(const std::string& path) override { m_found.items.push_back(path); }

    void visitSkipped(const std::string& path, std::string_view why) override
    {
        m_found.skipped.emplace_back(path, why);
    }

    void visitFailure(const std::string& path, const NSError& error) override
    {
        m_found.failures.emplace_back(path, error.code());
    }

private:
    Found& m_found;
};

class ItemWalk : public testing::Test {
protected:
    Found walk(const std::string& path, bool includesHidden = false) const
    {
        Found found;
        RecordingVisitor visitor(found);
        walkItems(path, {includesHidden, m_folder.url("library.index")}, visitor);
        return found;
    }

    Found walkAll() const { return walk(m_folder.path().native()); }

    std::string file(std::string_view name) const { return m_folder.file(name); }

    TemporaryFolder m_folder;
};

TEST_F(ItemWalk, FindsFilesAtAndBelowAFolder)
{
    m_folder.write("a.txt", "a");
    m_folder.write("deep/deeper/b.txt", "b");
    fs::create_directory(file("empty"));
    EXPECT_THAT(walkAll().items, UnorderedElementsAre(file("a.txt"), file("deep/deeper/b.txt")));
}

TEST_F(ItemWalk, TakesAPackageForOneItem)
{
    m_folder.write("one.cvlnote/NoteText", "");
    m_folder.write("two.RTFD/TXT.rtf", "");
    m_folder.write("three.cvlnote-backup/c.txt", "c");
    EXPECT_THAT(
        walkAll().items,
        UnorderedElementsAre(file("one.cvlnote"), file("two.RTFD"), file("three.cvlnote-backup/c.txt")));
    EXPECT_THAT(walk(file("one.cvlnote/")).items, ElementsAre(file("one.cvlnote/")));
}

TEST_F(ItemWalk, LeavesHiddenFilesOutUnlessNamedOrAskedFor)
{
    m_folder.write(".git/config", "");
    m_folder.write(".profile", "");
    EXPECT_THAT(walkAll().items, IsEmpty());
    EXPECT_THAT(walk(file(".profile")).items, ElementsAre(file(".profile")));
    EXPECT_THAT(walk(file(".git")).items, ElementsAre(file(".git/config")));
    EXPECT_THAT(walk(m_folder.path().native(), true).items,
                UnorderedElementsAre(file(".git/config"), file(".profile")));
}

TEST_F(ItemWalk, FollowsOnlyALinkThatIsNamed)
{
    m_folder.write("real/a.txt", "a");
    fs::create_directory_symlink(file("real"), file("link"));
    fs::create_directory_symlink(m_folder.path(), file("real/circle"));
    const auto all = walkAll();
    EXPECT_THAT(all.items, ElementsAre(file("real/a.txt")));
    EXPECT_THAT(all.skipped, IsEmpty());
    EXPECT_THAT(walk(file("link")).items, ElementsAre(file("link/a.txt")));
}

TEST_F(ItemWalk, SkipsTheIndexAndItsCompanions)
{
    m_folder.write("library.index", "");
    m_folder.write("library.index-wal", "");
    m_folder.write("library.index-shm", "");
    m_folder.write("library.index-notes.txt", "");
    m_folder.write("other/library.index", "");
    const auto all = walkAll();
    EXPECT_THAT(all.items,
                UnorderedElementsAre(file("library.index-notes.txt"), file("other/library.index")));
    const auto named = walk(file("library.index"));
    EXPECT_THAT(named.items, IsEmpty());
    EXPECT_THAT(named.skipped, ElementsAre(Pair(file("library.index"), "part of the index")));
}

TEST_F(ItemWalk, SkipsAFifoBelowAFolderAndFailsForOneThatIsNamed)
{
    ASSERT_EQ(::mkfifo(file("fifo").c_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_THAT(walkAll().skipped, ElementsAre(Pair(file("fifo"), "neither a file nor a folder")));
    EXPECT_THAT(walk(file("fifo")).failures,
                ElementsAre(Pair(file("fifo"), static_cast<int>(CommandError::NotAFile))));
}

TEST_F(ItemWalk, LeavesAMissingPathToTheService)
{
    EXPECT_THAT(walk(file("missing")).items, ElementsAre(file("missing")));
}

TEST_F(ItemWalk, ReportsAFolderThatCannotBeReadAndGoesOn)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "root reads every folder";
    m_folder.write("locked/a.txt", "a");
    m_folder.write("open/b.txt", "b");
    fs::permissions(file("locked"), fs::perms::none);
    const auto all = walkAll();
    fs::permissions(file("locked"), fs::perms::owner_all);
    EXPECT_THAT(all.items, ElementsAre(file("open/b.txt")));
    EXPECT_THAT(all.failures, ElementsAre(Pair(file("locked"), EACCES)));
}

TEST_F(ItemWalk, KeepsNamesThatAreNoUTF8)
{
    m_folder.write("bad\xFF.txt", "x");
    EXPECT_THAT(walkAll().items, ElementsAre(file("bad\xFF.txt")));
}

TEST_F(ItemWalk, StopsAtFoldersTooDeepToOpenAndGoesOn)
{
    constexpr int kLevels = 300;
    fs::path deepest = m_folder.path();
    for (int level = 0; level < kLevels; ++level)
        deepest /= "d";
    fs::create_directories(deepest);
    m_folder.write("z.txt", "z");
    const auto all = walkAll();
    EXPECT_THAT(all.items, ElementsAre(file("z.txt")));
    EXPECT_EQ(all.failures.size(), 1U);
}

} // namespace
