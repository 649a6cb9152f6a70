#include "platform/search/EmbeddedIndex.h"
#include "tests/search/IndexFixture.h"

#include <atomic>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

class ConcurrencyTest : public IndexFixture { };

TEST_F(ConcurrencyTest, AReaderSeesWhatWasFlushedWhileAWriterGoesOn)
{
    const auto reader = open(SKIndexAccess::Read);
    ASSERT_TRUE(add("/a", "word"));
    EXPECT_EQ(found(*reader, "word"), Paths());
    ASSERT_TRUE(m_index->flush());
    ASSERT_TRUE(add("/b", "word"));
    EXPECT_EQ(found(*reader, "word"), (Paths{"/a"}));
}

TEST_F(ConcurrencyTest, ASecondWriterWaitsForABoundedTimeAndThenFails)
{
    ASSERT_TRUE(add("/a", "word"));
    const auto second
        = EmbeddedIndex::open(indexURL(), SKIndexAccess::Write, std::chrono::milliseconds(30), nullptr);
    ASSERT_TRUE(second);
    EXPECT_FALSE(second->addDocumentWithText(document("/b"), "word", SKReplace::Yes));
    EXPECT_FALSE(second->removeDocument(document("/not-there")));
    ASSERT_TRUE(m_index->flush());
    EXPECT_TRUE(second->addDocumentWithText(document("/b"), "word", SKReplace::Yes));
    EXPECT_TRUE(second->flush());
    EXPECT_EQ(found("word"), (Paths{"/a", "/b"}));
    expectSound();
}

TEST_F(ConcurrencyTest, ARemovalThatHasToGiveUpSaysSo)
{
    ASSERT_TRUE(add("/a", "word"));
    ASSERT_TRUE(m_index->flush());
    ASSERT_TRUE(add("/b", "word"));
    const auto second
        = EmbeddedIndex::open(indexURL(), SKIndexAccess::Write, std::chrono::milliseconds(30), nullptr);
    EXPECT_THROW((void)second->removeDocument(document("/a")), SKIndexException);
}

TEST_F(ConcurrencyTest, WritersInOneProcessTakeTurns)
{
    constexpr int kThreads = 4;
    constexpr int kDocuments = 40;
    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    for (int number = 0; number < kThreads; ++number) {
        threads.emplace_back([this, number, &failures] {
            for (int count = 0; count < kDocuments; ++count) {
                const auto index = SKIndex::openWithURL(indexURL(), SKIndexAccess::Write);
                const auto path = "/" + std::to_string(number) + "/" + std::to_string(count);
                if (!index || !index->addDocumentWithText(document(path), "word " + path, SKReplace::Yes)
                    || !index->flush())
                    ++failures;
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(m_index->documentCount(), kThreads * kDocuments);
    expectSound();
}

// A writer that dies at any moment leaves an index that holds what was flushed and nothing else.
TEST_F(ConcurrencyTest, AWriterThatIsKilledLosesNothingThatWasFlushed)
{
    m_index.reset();
    for (int round = 0; round < 10; ++round) {
        int answers[2];
        ASSERT_EQ(::pipe(answers), 0);
        const pid_t writer = ::fork();
        ASSERT_GE(writer, 0);
        if (writer == 0) {
            for (int number = 0;; ++number) {
                const auto index = SKIndex::openWithURL(indexURL(), SKIndexAccess::Write);
                const auto path = "/" + std::to_string(round) + "/" + std::to_string(number);
                const bool done = index && index->addDocumentWithText(document(path), "word", SKReplace::Yes)
                    && index->flush();
                if (!done || ::write(answers[1], "+", 1) != 1)
                    ::_exit(1);
            }
        }
        ::close(answers[1]);
        std::string answered;
        char buffer[64];
        while (answered.size() < static_cast<std::size_t>(20 + round)) {
            const auto count = ::read(answers[0], buffer, sizeof(buffer));
            ASSERT_GT(count, 0);
            answered.append(buffer, static_cast<std::size_t>(count));
        }
        ::kill(writer, SIGKILL);
        for (auto count = ::read(answers[0], buffer, sizeof(buffer)); count > 0;
             count = ::read(answers[0], buffer, sizeof(buffer)))
            answered.append(buffer, static_cast<std::size_t>(count));
        ::close(answers[0]);
        ASSERT_EQ(::waitpid(writer, nullptr, 0), writer);
        m_index = open(SKIndexAccess::Write);
        for (std::size_t number = 0; number < answered.size(); ++number) {
            const auto path = "/" + std::to_string(round) + "/" + std::to_string(number);
            EXPECT_EQ(m_index->documentState(document(path)), SKDocumentState::Indexed) << path;
        }
        expectSound();
        m_index.reset();
    }
}

// To open and close the file behind the file layer's back would drop every lock of the process.
TEST_F(ConcurrencyTest, OpeningASecondTimeDropsNoLock)
{
    ASSERT_TRUE(add("/a", "word"));
    {
        const auto other = open(SKIndexAccess::Read);
    }
    const pid_t process = ::fork();
    ASSERT_GE(process, 0);
    if (process == 0) {
        const auto second
            = EmbeddedIndex::open(indexURL(), SKIndexAccess::Write, std::chrono::milliseconds(30), nullptr);
        ::_exit(second && second->addDocumentWithText(document("/b"), "x", SKReplace::Yes) ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(process, &status, 0), process);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    ASSERT_TRUE(m_index->flush());
    expectSound();
}

} // namespace
