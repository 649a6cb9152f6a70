#include "platform/foundation/NSURLBookmark.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <random>

namespace {

std::string bookmarkOf(const NSURL& url)
{
    const auto data = bookmarkDataForURL(url);
    EXPECT_TRUE(data);
    return data.value_or("");
}

} // namespace

TEST(NSURLBookmark, ResolvesToTheFileItWasMadeFor)
{
    const TemporaryFolder folder;
    folder.write("Größe \xFF.txt", "x");
    const auto url = folder.url("Größe \xFF.txt");
    EXPECT_EQ(URLByResolvingBookmarkData(bookmarkOf(url)), url);
}

TEST(NSURLBookmark, FollowsARenamedFolder)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("before"));
    const auto data = bookmarkOf(folder.url("before"));
    std::filesystem::rename(folder.file("before"), folder.file("after"));
    std::filesystem::create_directory(folder.file("before"));
    EXPECT_EQ(URLByResolvingBookmarkData(data), folder.url("after"));
}

TEST(NSURLBookmark, TakesWhatIsAtThePathWhenTheFileIsGone)
{
    const TemporaryFolder folder;
    const TemporaryFolder elsewhere;
    folder.write("a", "x");
    const auto data = bookmarkOf(folder.url("a"));
    std::filesystem::rename(folder.file("a"), elsewhere.file("a"));
    folder.write("a", "y");
    EXPECT_EQ(URLByResolvingBookmarkData(data), folder.url("a"));
}

TEST(NSURLBookmark, FailsWhenNothingIsLeft)
{
    const TemporaryFolder folder;
    folder.write("a/b", "x");
    const auto data = bookmarkOf(folder.url("a/b"));
    std::filesystem::remove_all(folder.file("a"));
    NSError error;
    EXPECT_FALSE(URLByResolvingBookmarkData(data, &error));
    EXPECT_EQ(error.code(), ENOENT);
    EXPECT_FALSE(bookmarkDataForURL(folder.url("a"), &error));
    EXPECT_FALSE(bookmarkDataForURL(*NSURL::URLWithString("http://host/a")));
}

TEST(NSURLBookmark, RefusesWhatIsNoBookmark)
{
    NSError error;
    for (const std::string& data : {std::string(), std::string("bplist00"), std::string("<plist/>"),
                                    std::string("bplist00") + std::string(100'000, 'x')}) {
        EXPECT_FALSE(URLByResolvingBookmarkData(data, &error));
        EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
    }
}

TEST(NSURLBookmark, SurvivesDamagedBytes)
{
    const TemporaryFolder folder;
    folder.write("a", "x");
    const auto sound = bookmarkOf(folder.url("a"));
    std::minstd_rand random(7);
    for (int round = 0; round < 20'000; ++round) {
        auto damaged = sound;
        for (unsigned count = 0; count < 1 + random() % 4; ++count)
            damaged[random() % damaged.size()] = static_cast<char>(random() % 256);
        if (round % 3 == 0)
            damaged.resize(random() % damaged.size());
        const auto url = URLByResolvingBookmarkData(damaged);
        EXPECT_TRUE(!url || url->isFileURL());
    }
}
