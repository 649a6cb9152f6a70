#include "platform/search/IndexFile.h"

#include "tests/search/IndexFixture.h"

#include <sqlite3.h>

#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::string bytesOf(const std::string& path)
{
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

void overwrite(const std::string& path, std::streamoff offset, std::string_view bytes)
{
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(offset);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void runForeignSQL(const std::string& path, const char* sql)
{
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(database);
    EXPECT_EQ(sqlite3_close(database), SQLITE_OK);
}

class IndexFileTest : public IndexFixture {
protected:
    void expectRefused(const std::string& path, IndexFile::Error code) const
    {
        const auto before = bytesOf(path);
        for (const auto access : {SKIndexAccess::Write, SKIndexAccess::Read}) {
            NSError error;
            EXPECT_FALSE(SKIndex::openWithURL(NSURL::fileURLWithPath(path), access, &error));
            EXPECT_EQ(error.domain(), "SKIndexErrorDomain");
            EXPECT_EQ(error.code(), static_cast<int>(code)) << error.localizedDescription();
            EXPECT_NE(error.localizedDescription().find(path), std::string::npos);
        }
        EXPECT_EQ(bytesOf(path), before);
        EXPECT_FALSE(std::filesystem::exists(path + "-wal"));
        EXPECT_FALSE(std::filesystem::exists(path + "-shm"));
    }
};

TEST_F(IndexFileTest, RefusesAFileThatIsNoIndex)
{
    expectRefused(m_folder.write("empty", ""), IndexFile::Error::NotAnIndex);
    expectRefused(m_folder.write("text", std::string(5000, 'x')), IndexFile::Error::NotAnIndex);
    expectRefused(m_folder.write("short", "SQLite format 3"), IndexFile::Error::NotAnIndex);
}

TEST_F(IndexFileTest, RefusesAForeignDatabase)
{
    const auto path = m_folder.file("foreign.db");
    runForeignSQL(path, "PRAGMA journal_mode = WAL; CREATE TABLE t(x)");
    expectRefused(path, IndexFile::Error::NotAnIndex);
}

TEST_F(IndexFileTest, LeavesTheJournalOfAForeignDatabaseAlone)
{
    const auto path = m_folder.file("foreign.db");
    runForeignSQL(path, "CREATE TABLE t(x)");
    const auto journal = m_folder.write("foreign.db-journal", "half of a transaction");
    expectRefused(path, IndexFile::Error::NotAnIndex);
    EXPECT_EQ(bytesOf(journal), "half of a transaction");
}

TEST_F(IndexFileTest, RefusesANewerFormat)
{
    m_index.reset();
    overwrite(indexPath(), 60, std::string("\0\0\0\2", 4));
    expectRefused(indexPath(), IndexFile::Error::NewerFormat);
}

TEST_F(IndexFileTest, RefusesADamagedHead)
{
    m_index.reset();
    overwrite(indexPath(), 100, std::string(300, '\xA5'));
    expectRefused(indexPath(), IndexFile::Error::Damaged);
}

TEST_F(IndexFileTest, RefusesAnIndexWithoutItsTables)
{
    const auto path = m_folder.file("hollow");
    runForeignSQL(path, "PRAGMA application_id = 0x4372766C; PRAGMA user_version = 1; CREATE TABLE t(x)");
    expectRefused(path, IndexFile::Error::Damaged);
}

TEST_F(IndexFileTest, RefusesAnIndexWithOtherColumns)
{
    m_index.reset();
    runForeignSQL(indexPath(),
                  "PRAGMA journal_mode = DELETE; ALTER TABLE node RENAME COLUMN document TO other");
    NSError error;
    EXPECT_FALSE(SKIndex::openWithURL(indexURL(), SKIndexAccess::Write, &error));
    EXPECT_EQ(error.code(), static_cast<int>(IndexFile::Error::Damaged));
}

TEST_F(IndexFileTest, RefusesWhatIsNoFile)
{
    NSError error;
    EXPECT_FALSE(SKIndex::openWithURL(m_folder.url("absent"), SKIndexAccess::Write, &error));
    EXPECT_EQ(error.code(), static_cast<int>(IndexFile::Error::CannotOpen));
    EXPECT_FALSE(std::filesystem::exists(m_folder.file("absent")));
    EXPECT_FALSE(
        SKIndex::openWithURL(NSURL::fileURLWithPath(m_folder.path().native()), SKIndexAccess::Write, &error));
    ASSERT_EQ(::mkfifo(m_folder.file("fifo").c_str(), 0600), 0);
    EXPECT_FALSE(SKIndex::openWithURL(m_folder.url("fifo"), SKIndexAccess::Write, &error));
    EXPECT_FALSE(SKIndex::openWithURL(NSURL::URLWithString("https://host/index").value(), SKIndexAccess::Read,
                                      &error));
    EXPECT_FALSE(
        SKIndex::openWithURL(NSURL::URLWithString("file:///a%00b").value(), SKIndexAccess::Read, &error));
}

// In a process of its own that is not root, for whom nothing is read-only.
TEST_F(IndexFileTest, OpensOnlyForReadingWhatItMayNotWrite)
{
    constexpr uid_t kNobody = 65534;
    ASSERT_TRUE(add("/a", "word"));
    ASSERT_TRUE(m_index->flush());
    m_index.reset();
    ASSERT_EQ(::chmod(indexPath().c_str(), 0444), 0);
    ASSERT_EQ(::chmod(m_folder.path().c_str(), 0555), 0);
    const auto before = bytesOf(indexPath());
    const pid_t process = ::fork();
    ASSERT_GE(process, 0);
    if (process == 0) {
        if (::geteuid() == 0 && ::setresuid(kNobody, kNobody, kNobody) != 0)
            ::_exit(3);
        NSError error;
        const bool refused = !SKIndex::openWithURL(indexURL(), SKIndexAccess::Write, &error)
            && error.code() == static_cast<int>(IndexFile::Error::CannotOpen);
        const auto reader = SKIndex::openWithURL(indexURL(), SKIndexAccess::Read, &error);
        ::_exit(!refused ? 1 : reader && found(*reader, "word").size() == 1 ? 0 : 2);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(process, &status, 0), process);
    ASSERT_EQ(::chmod(m_folder.path().c_str(), 0755), 0);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(bytesOf(indexPath()), before);
}

TEST_F(IndexFileTest, OpensThroughALinkAndUnderAnOddName)
{
    m_index.reset();
    std::filesystem::create_symlink(indexPath(), m_folder.file("link"));
    EXPECT_TRUE(SKIndex::openWithURL(m_folder.url("link"), SKIndexAccess::Write));
    NSError error;
    EXPECT_TRUE(SKIndex::createWithURL(m_folder.url("100%?mode=ro&#.index"), &error))
        << error.localizedDescription();
    EXPECT_TRUE(std::filesystem::exists(m_folder.file("100%?mode=ro&#.index")));
}

TEST_F(IndexFileTest, IsOneFileWhenNobodyHasItOpen)
{
    ASSERT_TRUE(add("/a", "word"));
    ASSERT_TRUE(m_index->flush());
    m_index.reset();
    EXPECT_FALSE(std::filesystem::exists(indexPath() + "-wal"));
    std::filesystem::copy_file(indexPath(), m_folder.file("copy"));
    EXPECT_EQ(found(*SKIndex::openWithURL(m_folder.url("copy"), SKIndexAccess::Read), "word"), (Paths{"/a"}));
}

TEST_F(IndexFileTest, IsOneFileAlsoWhenTheReaderClosesLast)
{
    const auto reader = open(SKIndexAccess::Read);
    ASSERT_TRUE(add("/a", "word"));
    ASSERT_TRUE(m_index->flush());
    m_index.reset();
    EXPECT_EQ(found(*reader, "word"), (Paths{"/a"}));
}

TEST_F(IndexFileTest, RefusesChangesThroughAReader)
{
    reopen(SKIndexAccess::Read);
    EXPECT_THROW((void)add("/a", "word"), SKIndexException);
    EXPECT_EQ(m_index->documentCount(), 0);
}

TEST_F(IndexFileTest, LeavesNoRemovedTextInTheFile)
{
    // Mixed words, so that the text is stored as it is in at least one place of the pages.
    const std::string secret = "correcthorsebatterystaple";
    ASSERT_TRUE(add("/a", secret));
    ASSERT_TRUE(m_index->flush());
    m_index.reset();
    EXPECT_NE(bytesOf(indexPath()).find(secret), std::string::npos);
    m_index = open(SKIndexAccess::Write);
    ASSERT_TRUE(m_index->removeDocument(document("/a")));
    ASSERT_TRUE(add("/b", "other"));
    ASSERT_TRUE(m_index->flush());
    ASSERT_TRUE(m_index->compact());
    m_index.reset();
    EXPECT_EQ(bytesOf(indexPath()).find(secret), std::string::npos);
}

} // namespace
