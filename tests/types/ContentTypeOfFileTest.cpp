#include "platform/types/UTType.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class ContentTypeOfFile : public testing::Test {
protected:
    std::string typeOf(std::string_view name, std::string_view bytes)
    {
        m_folder.write(name, bytes);
        return typeAt(name);
    }

    std::string typeAt(std::string_view name)
    {
        const auto type = UTType::contentTypeOfFile(m_folder.url(name));
        return type ? type->identifier() : "none";
    }

    TemporaryFolder m_folder;
};

} // namespace

TEST_F(ContentTypeOfFile, GoesByTheExtensionWhateverTheContent)
{
    EXPECT_EQ(typeOf("a.txt", "%PDF-1.4"), "public.plain-text");
    EXPECT_EQ(typeOf("a.PDF", "no such thing"), "com.adobe.pdf");
    EXPECT_EQ(typeOf("two.dots.md", ""), "net.daringfireball.markdown");
    EXPECT_EQ(typeOf("b\xFF\xFE.html", ""), "public.html");
}

TEST_F(ContentTypeOfFile, KnowsWholeNamesFromTheSystemsTable)
{
    const auto type
        = UTType::contentTypeOfFile(NSURL::fileURLWithPath(m_folder.write("Makefile", "all:\n\ttrue\n")));
    ASSERT_TRUE(type);
    EXPECT_TRUE(type->conformsToType("public.plain-text")) << type->identifier();
}

TEST_F(ContentTypeOfFile, LooksAtTheContentWhereTheNameSaysNothing)
{
    EXPECT_EQ(typeOf("paper", "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n1 0 obj\n"), "com.adobe.pdf");
    EXPECT_EQ(typeOf("picture.quux", "\x89PNG\r\n\x1A\n"), "public.png");
    EXPECT_EQ(typeOf("letter", "Just some words, and a few more of them.\n"), "public.plain-text");
    EXPECT_EQ(typeOf("blob", std::string("\x00\x01\x02\x03\x00\x00\x07", 7)), "public.data");
    EXPECT_EQ(typeOf("n\xE4me", "Words under a name that is no UTF-8.\n"), "public.plain-text");
}

TEST_F(ContentTypeOfFile, FindsMailWithoutExtension)
{
    EXPECT_EQ(
        typeOf("1234.host:2,S", "Return-Path: <a@example.org>\nFrom: a@example.org\nSubject: x\n\nText\n"),
        "public.email-message");
}

TEST_F(ContentTypeOfFile, CallsAnEmptyUnknownFileData)
{
    const auto type = UTType::contentTypeOfFile(NSURL::fileURLWithPath(m_folder.write("empty", "")));
    ASSERT_TRUE(type);
    EXPECT_TRUE(type->conformsToType(kUTTypeData));
}

TEST_F(ContentTypeOfFile, TellsPackagesFromFolders)
{
    for (const auto* name : {"plain", "folder.txt", "a.rtfd", "b.cvlnote"})
        std::filesystem::create_directory(m_folder.path() / name);
    EXPECT_EQ(typeAt("plain"), "public.folder");
    EXPECT_EQ(typeAt("folder.txt"), "public.folder");
    EXPECT_EQ(typeAt("a.rtfd"), "com.apple.rtfd");
    EXPECT_EQ(typeAt("b.cvlnote"), "com.tessel.corvel.note");
}

TEST_F(ContentTypeOfFile, TakesNoFileForAPackage)
{
    EXPECT_EQ(typeOf("c.rtfd", "words\n"), "public.plain-text");
}

TEST_F(ContentTypeOfFile, HasNothingForWhatIsNeitherFileNorFolder)
{
    ASSERT_EQ(::mkfifo(m_folder.file("pipe.txt").c_str(), 0600), 0);
    NSError error;
    EXPECT_FALSE(UTType::contentTypeOfFile(m_folder.url("pipe.txt"), &error));
    EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
    EXPECT_FALSE(UTType::contentTypeOfFile(NSURL::fileURLWithPath("/dev/null")));
}

TEST_F(ContentTypeOfFile, SaysWhyAFileCannotBeTyped)
{
    NSError error;
    EXPECT_FALSE(UTType::contentTypeOfFile(m_folder.url("absent.txt"), &error));
    EXPECT_EQ(error.domain(), NSPOSIXErrorDomain);
    EXPECT_EQ(error.code(), ENOENT);
    EXPECT_FALSE(
        UTType::contentTypeOfFile(NSURL::URLWithString("https://example.org/a.txt").value(), &error));
}

TEST_F(ContentTypeOfFile, HasNothingForFilesThatMayNotBeRead)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "root may read everything";
    ASSERT_EQ(::chmod(m_folder.write("secret.txt", "x").c_str(), 0), 0);
    EXPECT_EQ(typeAt("secret.txt"), "none");
}

TEST_F(ContentTypeOfFile, FollowsLinks)
{
    m_folder.write("target.pdf", "");
    std::filesystem::create_symlink(m_folder.path() / "target.pdf", m_folder.path() / "link.pdf");
    std::filesystem::create_symlink(m_folder.path() / "nowhere", m_folder.path() / "dangling.pdf");
    EXPECT_EQ(typeAt("link.pdf"), "com.adobe.pdf");
    EXPECT_EQ(typeAt("dangling.pdf"), "none");
}
