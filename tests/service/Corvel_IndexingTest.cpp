#include "service/Corvel_Indexing.h"

#include "platform/foundation/NSURLBookmark.h"
#include "tests/service/RequestTest.h"

#include <gmock/gmock.h>

namespace {

using Corvel_IndexingTest = RequestTest;

} // namespace

TEST_F(Corvel_IndexingTest, LoadsTheExtractorsForEveryObject)
{
    const auto before = SKDefaultExtractorPlugInLoadCount();
    const Corvel_Indexing first(environment);
    const Corvel_Indexing second(environment);
    EXPECT_EQ(SKDefaultExtractorPlugInLoadCount(), before + 2);
}

TEST_F(Corvel_IndexingTest, KeepsTheCustomFolder)
{
    Corvel_Indexing service(environment);
    EXPECT_FALSE(service.customFolderURL());
    std::filesystem::create_directory(folder.file("custom"));
    service.setCustomFolderBookmarkData(bookmarkDataForURL(folder.url("custom")).value());
    EXPECT_EQ(service.customFolderURL(), folder.url("custom"));
    EXPECT_TRUE(log.empty());
}

TEST_F(Corvel_IndexingTest, ForgetsTheCustomFolderWhenABookmarkCannotBeResolved)
{
    Corvel_Indexing service(environment);
    service.setCustomFolderBookmarkData(bookmarkDataForURL(folder.url("")).value());
    ASSERT_TRUE(service.customFolderURL());
    service.setCustomFolderBookmarkData("nonsense");
    EXPECT_FALSE(service.customFolderURL());
    ASSERT_EQ(log.size(), 1U);
    EXPECT_THAT(log[0], testing::StartsWith("Error resolving custom folder URL: "));
}

TEST_F(Corvel_IndexingTest, TwoObjectsAreIndependent)
{
    Corvel_Indexing first(environment);
    const Corvel_Indexing second(environment);
    first.setCustomFolderBookmarkData(bookmarkDataForURL(folder.url("")).value());
    EXPECT_TRUE(first.customFolderURL());
    EXPECT_FALSE(second.customFolderURL());
}
