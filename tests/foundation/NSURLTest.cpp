#include "platform/foundation/NSURL.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

NSURL url(std::string_view string)
{
    return NSURL::URLWithString(string).value();
}

TEST(NSURL, IsMadeFromAPath)
{
    struct Row {
        std::string_view path;
        std::string_view string;
    };

    for (const auto& row :
         {Row{"/", "file:///"}, Row{"/a/b", "file:///a/b"}, Row{"/a/b/", "file:///a/b"},
          Row{"/a//b/./c/../d", "file:///a/b/d"}, Row{"/a b/ü?#%", "file:///a%20b/%C3%BC%3F%23%25"},
          Row{"/\xFF", "file:///%FF"}, Row{"/it's(1)~", "file:///it's(1)~"}})
        EXPECT_EQ(NSURL::fileURLWithPath(row.path).absoluteString(), row.string);
}

TEST(NSURL, TakesARelativePathFromTheCurrentFolder)
{
    EXPECT_EQ(NSURL::fileURLWithPath("x").path(), (std::filesystem::current_path() / "x").native());
}

TEST(NSURL, GivesThePathBackByteForByte)
{
    for (const auto* path : {"/a b", "/\xFF\xFE", "/100%", "/日本語/ü", "/a\nb"})
        EXPECT_EQ(NSURL::fileURLWithPath(path).path(), path);
    EXPECT_EQ(url("file:///a/").path(), "/a");
    EXPECT_EQ(url("file:///").path(), "/");
    EXPECT_EQ(url("file://localhost/a?query#fragment").path(), "/a");
    EXPECT_EQ(url("file:///a%00b").path(), "");
}

TEST(NSURL, RefusesWhatIsNoURL)
{
    for (const auto* string :
         {"", "a b", "file:///\xC3\xBC", "file:///%", "file:///%4", "file:///%zz", "a\tb"})
        EXPECT_FALSE(NSURL::URLWithString(string)) << string;
}

TEST(NSURL, KnowsItsScheme)
{
    EXPECT_EQ(url("FILE:///a").scheme(), "file");
    EXPECT_EQ(url("https://host/a:b").scheme(), "https");
    EXPECT_EQ(url("relative/path").scheme(), "");
    EXPECT_EQ(url("1a:b").scheme(), "");
    EXPECT_EQ(url("a/b:c").scheme(), "");
}

TEST(NSURL, KnowsFileURLs)
{
    for (const auto* string : {"file:///a", "file:/a", "file://localhost/a"})
        EXPECT_TRUE(url(string).isFileURL()) << string;
    for (const auto* string : {"file://host/a", "file:a", "https:///a", "/a"})
        EXPECT_FALSE(url(string).isFileURL()) << string;
}

TEST(NSURL, TakesItsPathApart)
{
    EXPECT_EQ(url("file:///a/b%20c.txt").lastPathComponent(), "b c.txt");
    EXPECT_EQ(url("file:///a/b/").lastPathComponent(), "b");
    EXPECT_EQ(url("file:///").lastPathComponent(), "/");
    EXPECT_EQ(url("file:///a.tar.gz").pathExtension(), "gz");
    EXPECT_EQ(url("file:///.hidden").pathExtension(), "");
    EXPECT_EQ(url("file:///a/b").URLByDeletingLastPathComponent().absoluteString(), "file:///a/");
    EXPECT_EQ(url("file:///a/b/").URLByDeletingLastPathComponent().absoluteString(), "file:///a/");
    EXPECT_EQ(url("file:///a?x").URLByDeletingLastPathComponent().absoluteString(), "file:///");
}

TEST(NSURL, AppendsAComponent)
{
    EXPECT_EQ(url("file:///a").URLByAppendingPathComponent("b c").absoluteString(), "file:///a/b%20c");
    EXPECT_EQ(url("file:///a/").URLByAppendingPathComponent("/b/c").absoluteString(), "file:///a/b/c");
    EXPECT_EQ(url("file:///").URLByAppendingPathComponent("?").absoluteString(), "file:///%3F");
}

TEST(NSURL, ComparesItsString)
{
    EXPECT_EQ(url("file:///a"), url("file:///a"));
    EXPECT_NE(url("file:///a"), url("file:///a/"));
}

TEST(NSURL, SaysWhetherItsFileCanBeReached)
{
    const TemporaryFolder folder;
    folder.write("a", "x");
    NSError error;
    EXPECT_TRUE(folder.url("a").checkResourceIsReachableAndReturnError(&error));
    EXPECT_FALSE(folder.url("b").checkResourceIsReachableAndReturnError(&error));
    EXPECT_EQ(error.domain(), NSPOSIXErrorDomain);
    EXPECT_EQ(error.code(), ENOENT);
    EXPECT_FALSE(url("https://host/a").checkResourceIsReachableAndReturnError());
    EXPECT_FALSE(url("file:///a%00").checkResourceIsReachableAndReturnError());
}

TEST(NSURL, CountsALinkToNothingAsAPromisedItem)
{
    const TemporaryFolder folder;
    folder.write("a", "x");
    std::filesystem::create_symlink(folder.file("missing"), folder.file("link"));
    NSError error;
    EXPECT_TRUE(folder.url("a").checkPromisedItemIsReachableAndReturnError(&error));
    EXPECT_TRUE(folder.url("link").checkPromisedItemIsReachableAndReturnError(&error));
    EXPECT_FALSE(folder.url("link").checkResourceIsReachableAndReturnError(&error));
    EXPECT_FALSE(folder.url("b").checkPromisedItemIsReachableAndReturnError(&error));
    EXPECT_EQ(error.code(), ENOENT);
    EXPECT_FALSE(url("https://host/a").checkPromisedItemIsReachableAndReturnError());
}

TEST(PercentEncoding, DecodesOnlyWholeEscapes)
{
    EXPECT_EQ(percentDecoded("%41%2f%2F"), "A//");
    EXPECT_EQ(percentDecoded("100%"), "100%");
    EXPECT_EQ(percentDecoded("%4"), "%4");
    EXPECT_EQ(percentDecoded("%GG"), "%GG");
}

} // namespace
