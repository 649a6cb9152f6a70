#include "strings/RelativeLinks.h"

#include <gtest/gtest.h>

#include <string>

using CVLMarkdown::relativeLinkFor;

namespace {

std::u16string link(std::string_view target, std::string_view item)
{
    return relativeLinkFor(NSURL::fileURLWithPath(target), NSURL::fileURLWithPath(item));
}

TEST(RelativeLinkFor, IsTheNameInTheSameFolder)
{
    EXPECT_EQ(link("/notes/b.md", "/notes/a.md"), u"b.md");
    EXPECT_EQ(link("/notes/a.md", "/notes/a.md"), u"a.md");
    EXPECT_EQ(link("/b.md", "/a.md"), u"b.md");
}

TEST(RelativeLinkFor, GoesUpAndDown)
{
    EXPECT_EQ(link("/notes/img/b.png", "/notes/a.md"), u"img/b.png");
    EXPECT_EQ(link("/b.png", "/notes/deep/a.md"), u"../../b.png");
    EXPECT_EQ(link("/notes/x/b.png", "/notes/y/z/a.md"), u"../../x/b.png");
    EXPECT_EQ(link("/notes/x", "/notes/xy/a.md"), u"../x");
    EXPECT_EQ(link("/notes", "/notes/deep/a.md"), u"..");
    EXPECT_EQ(link("/notes", "/notes/a.md"), u"");
    EXPECT_EQ(link("/", "/notes/a.md"), u"..");
}

TEST(RelativeLinkFor, EncodesWhatAPathMayNotHold)
{
    EXPECT_EQ(link("/notes/a b\xC3\xA9?#%[];.md", "/notes/a.md"), u"a%20b%C3%A9%3F%23%25%5B%5D%3B.md");
    EXPECT_EQ(link("/x y/b.md", "/notes/a.md"), u"../x%20y/b.md");
    EXPECT_EQ(link("/notes/-._~!$&'()*+,=:@", "/notes/a.md"), u"-._~!$&'()*+,=:@");
    EXPECT_EQ(link("/notes/\xFF", "/notes/a.md"), u"%FF");
}

TEST(RelativeLinkFor, TakesAFolderAsTheItem)
{
    const auto folder = NSURL::URLWithString("file:///notes/sub/").value();
    EXPECT_EQ(relativeLinkFor(NSURL::fileURLWithPath("/notes/b.md"), folder), u"b.md");
}

TEST(RelativeLinkFor, LeadsBackToTheTarget)
{
    for (const auto* target : {"/a", "/a/b", "/a/b/c", "/x/y z", "/a/x"}) {
        for (const auto* item : {"/n", "/a/n", "/a/b/n", "/x/n"}) {
            const auto relative = link(target, item);
            const std::string way = percentDecoded(std::string(relative.begin(), relative.end()));
            const auto folder = NSURL::fileURLWithPath(item).URLByDeletingLastPathComponent().path();
            EXPECT_EQ(NSURL::fileURLWithPath(folder + "/" + way), NSURL::fileURLWithPath(target)) << way;
        }
    }
}

} // namespace
