#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedStringObject.h"
#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

class HTMLCommand : public Transcript {
protected:
    [[nodiscard]] ChildProcess::Outcome html(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), "html");
        return corvel(arguments);
    }

    [[nodiscard]] std::string contentsOf(std::string_view name) const
    {
        std::ifstream file(folder().file(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

constexpr std::string_view kPage
    = "<title>Soup</title><h1>Soup</h1><p>Take <b>one</b> <a href='https://a.example/'>pot</a>."
      "<ul><li><input type=checkbox checked>Salt<li><input type=checkbox>Leek</ul>"
      "<script>nothing()</script>";

TEST_F(HTMLCommand, ImportsAPageAsMarkdown)
{
    folder().write("soup.html", kPage);
    const auto outcome = html({"import", "soup.html"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output,
              "# Soup\n\nTake **one** [pot](https://a.example/).\n\n- [x] Salt\n- [ ] Leek\n");
    EXPECT_THAT(outcome.error, IsEmpty());
}

TEST_F(HTMLCommand, ImportsTheTextAlone)
{
    folder().write("soup.html", "<h1>Soup</h1><p>Take<br>one<ul><li>pot</ul>");
    EXPECT_EQ(html({"import", "--text", "soup.html"}).output, "Soup\nTake\none\n\t\u2022\tpot\n");
}

TEST_F(HTMLCommand, CleansUpWhenAsked)
{
    folder().write("soup.html", "<p>a<p>b");
    EXPECT_EQ(html({"import", "--text", "soup.html"}).output, "a\nb\n");
    EXPECT_EQ(html({"import", "--text", "--clean", "soup.html"}).output, "a\n\nb\n");
    EXPECT_EQ(html({"import", "--clean", "soup.html"}).output, "a\n\nb\n");
}

TEST_F(HTMLCommand, WritesToAFile)
{
    folder().write("soup.html", "<p>a");
    folder().write("old.md", "old");
    const auto outcome = html({"import", "soup.html", "-o", "old.md"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, IsEmpty());
    EXPECT_EQ(contentsOf("old.md"), "a\n");
}

TEST_F(HTMLCommand, NamesImagesOfThePagesFolderOnly)
{
    folder().write(
        "in/page.html",
        "<img src=a.png alt=A><img src=sub/b.png alt=B><img src=../c.png alt=C><img src=link.png alt=D>"
        "<img src=e.txt alt=E><img src='https://a.example/f.png' alt=F>");
    folder().write("in/a.png", "a");
    folder().write("in/sub/b.png", "b");
    folder().write("in/e.txt", "e");
    folder().write("c.png", "c");
    std::filesystem::create_symlink(folder().file("c.png"), folder().file("in/link.png"));
    EXPECT_EQ(html({"import", "in/page.html"}).output, "![a.png](a.png)![b.png](b.png)CDEF\n");
}

TEST_F(HTMLCommand, ExportsMarkdownAsAPage)
{
    folder().write("list.md", "# List\n\n- [x] *Salt* now\n- [ ] Leek\n");
    const auto outcome = html({"export", "list.md"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, StartsWith("<!DOCTYPE html>\n<html>\n"));
    EXPECT_THAT(outcome.output, HasSubstr("<title>list</title>"));
    EXPECT_THAT(outcome.output, HasSubstr(">List</h1>"));
    EXPECT_THAT(outcome.output, HasSubstr("\u2611 <i>Salt</i> now"));
    EXPECT_THAT(outcome.output, HasSubstr("\u2610 Leek"));
}

TEST_F(HTMLCommand, ImportsWhatItExported)
{
    const std::string markdown = "# A\n\n- [x] b\n- [ ] c\n\n1. d\n    - e\n\n`f` **g** *h*\n\n***\n\n> i\n";
    folder().write("a.md", markdown);
    ASSERT_EQ(html({"export", "a.md", "-o", "a.html"}).status, 0);
    EXPECT_EQ(html({"import", "a.html"}).output, markdown);
}

TEST_F(HTMLCommand, ExportsPlainTextAndPages)
{
    folder().write("a.txt", "a < b\n# c\n");
    EXPECT_THAT(html({"export", "a.txt"}).output, HasSubstr("<p>a &lt; b</p>\n<p># c</p>"));
    folder().write("b.html", "<title>T</title><font color=red>x</font>");
    const auto page = html({"export", "b.html"}).output;
    EXPECT_THAT(page, HasSubstr("<title>T</title>"));
    EXPECT_THAT(page, Not(HasSubstr("<font")));
}

TEST_F(HTMLCommand, ExportsTheArchiveOfAText)
{
    const NSAttributedString text(u"bold",
                                  {{std::u16string(NSUnderlineStyleAttributeName), std::int64_t{1}}});
    const auto archive = NSKeyedArchiver::archivedDataWithRootObject(
        NSAny(std::shared_ptr<const NSObject>(std::make_shared<NSAttributedStringObject>(text))), true);
    ASSERT_TRUE(archive);
    folder().write("NoteText", archive->bytes);
    EXPECT_THAT(html({"export", "NoteText"}).output, HasSubstr("<p><u>bold</u></p>"));
}

TEST_F(HTMLCommand, SharesAPageWithItsImages)
{
    folder().write("a.md", "![p](a.png) text");
    folder().write("a.png", "PNG");
    EXPECT_THAT(html({"export", "a.md"}).output, HasSubstr("<img src=\"file:///a.png\" alt=\"a.png\">"));
    EXPECT_THAT(
        html({"export", "--share", "a.md"}).output,
        HasSubstr("<img style=\"max-width: 100%\" src=\"data:image/png;base64,UE5H\" alt=\"a.png\">"));
}

TEST_F(HTMLCommand, SaysWhyAFileIsNotRead)
{
    folder().write("a.txt", "x");
    folder().write("a.zip", "PK\x03\x04");
    folder().write("bad.archive", "bplist00 nothing");
    folder().write("large.html", std::string((32U << 20U) + 1, 'x'));
    std::filesystem::create_directory(folder().file("folder"));

    struct Case {
        std::vector<std::string> arguments;
        std::string error;
    };

    for (const auto& [arguments, error] : {
             Case{{"import", "missing.html"}, "corvel: missing.html: No such file or directory\n"},
             Case{{"import", "a.txt"}, "corvel: a.txt: it is no page: give an HTML file\n"},
             Case{{"import", "folder"}, "corvel: folder: It is a folder, and no document.\n"},
             Case{{"import", "large.html"}, "corvel: large.html: The file is too large.\n"},
             Case{{"export", "a.zip"},
                  "corvel: a.zip: It is no note, Markdown, page, rich text, Word document or plain text.\n"},
         }) {
        const auto outcome = html(arguments);
        EXPECT_EQ(outcome.status, 1) << testing::PrintToString(arguments);
        EXPECT_THAT(outcome.error, testing::EndsWith(error.substr(error.find_last_of('/') + 1)));
        EXPECT_THAT(outcome.output, IsEmpty());
    }
    EXPECT_EQ(html({"export", "bad.archive"}).status, 1);
    EXPECT_EQ(html({"export", "a.txt", "-o", "missing/b.html"}).status, 1);
}

} // namespace
