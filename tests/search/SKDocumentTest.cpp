#include "platform/search/SKDocument.h"

#include <gtest/gtest.h>

namespace {

SKDocumentRef documentFor(std::string_view url)
{
    return SKDocument::createWithURL(NSURL::URLWithString(url).value());
}

TEST(SKDocument, IsThePathOfNamesFromTheRoot)
{
    const auto document = documentFor("file:///home/a%20b/note.txt");
    ASSERT_TRUE(document);
    EXPECT_EQ(document->name(), "note.txt");
    EXPECT_EQ(document->parent()->name(), "a b");
    EXPECT_EQ(document->parent()->parent()->name(), "home");
    EXPECT_FALSE(document->parent()->parent()->parent());
    EXPECT_EQ(document->URL().absoluteString(), "file:///home/a%20b/note.txt");
}

TEST(SKDocument, TakesTheSpellingsOfOneFileURLForOne)
{
    for (const auto* spelling :
         {"file:/a/b", "file:///a/b/", "file://localhost/a/b", "file:///a//b", "FILE:///%61/b"})
        EXPECT_EQ(documentFor(spelling)->URL().absoluteString(), "file:///a/b") << spelling;
}

TEST(SKDocument, KeepsAnyBytesOfAName)
{
    const auto url = NSURL::fileURLWithPath("/x/\xFF\xC3(");
    EXPECT_EQ(SKDocument::createWithURL(url)->name(), "\xFF\xC3(");
    EXPECT_EQ(SKDocument::createWithURL(url)->URL(), url);
}

TEST(SKDocument, IsNotMadeForWhatNamesNoDocument)
{
    EXPECT_FALSE(documentFor("relative/path"));
    EXPECT_FALSE(documentFor("file:///"));
    EXPECT_FALSE(documentFor("file:///a%2Fb"));
    EXPECT_FALSE(documentFor("file:///a%00b"));
    EXPECT_FALSE(SKDocument::create("", nullptr, "name"));
    EXPECT_FALSE(SKDocument::create("file", nullptr, std::string_view("a\0b", 3)));
}

TEST(SKDocument, IsANameUnderAParent)
{
    const auto parent = documentFor("file:///mail.eml");
    const auto child = SKDocument::create("", parent, "attachment.pdf");
    EXPECT_EQ(child->URL().absoluteString(), "file:///mail.eml/attachment.pdf");
    EXPECT_EQ(child->parent(), parent);
    EXPECT_EQ(SKDocument::create("data", nullptr, "x")->URL().absoluteString(), "data:/x");
}

TEST(SKDocument, KeepsASlashInAChildsNameOutOfThePath)
{
    const auto child = SKDocument::create("", documentFor("file:///package"), "../../etc/passwd");
    EXPECT_EQ(child->name(), "../../etc/passwd");
    EXPECT_EQ(child->URL().absoluteString(), "file:///package/..%2F..%2Fetc%2Fpasswd");
}

TEST(SKDocument, MayHaveNoName)
{
    EXPECT_EQ(SKDocument::create("", documentFor("file:///p"), "")->name(), std::nullopt);
}

} // namespace
