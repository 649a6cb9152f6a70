#include "platform/html/NSAttributedStringHTML.h"
#include "platform/text/NSDocumentAttributes.h"
#include "tests/html/GeneratedText.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/transcript/ChildProcess.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

// What is written is read here by an independent program that puts nothing right.

namespace {

class HTMLStandards : public testing::Test {
protected:
    void SetUp() override
    {
        if (ChildProcess({"/usr/bin/env", "python3", "-c", "import html.parser"}, m_folder.path())
                .wait()
                .status
            != 0)
            GTEST_SKIP() << "no python3";
    }

    void add(std::string_view page)
    {
        m_pages.push_back(m_folder.write(fmt::format("{:03}.html", m_pages.size()), page));
    }

    /// What the checker has to say of the pages added.
    [[nodiscard]] ChildProcess::Outcome checked() const
    {
        std::vector<std::string> command{"/usr/bin/env", "python3",
                                         CORVEL_SOURCE_DIR "/tests/tools/check_html.py"};
        command.insert(command.end(), m_pages.begin(), m_pages.end());
        return ChildProcess(command, m_folder.path()).wait();
    }

    const TemporaryFolder m_folder;
    std::vector<std::string> m_pages;
};

NSData pageOf(const NSAttributedString& text, const NSAny::Dictionary& attributes = {})
{
    return NSAttributedStringDocumentFormats::HTMLFromRange(text, {0, text.length()}, attributes)
        .value_or(NSData{});
}

std::string pageAround(std::string_view body)
{
    return fmt::format(
        "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>t</title>\n</head>\n"
        "<body>\n{}</body>\n</html>\n",
        body);
}

} // namespace

TEST_F(HTMLStandards, AreKeptByWhateverIsWritten)
{
    for (std::uint32_t seed = 0; seed < 60; ++seed)
        add(pageOf(generatedText(seed)).bytes);
    const auto outcome = checked();
    EXPECT_EQ(outcome.status, 0) << outcome.error;
}

TEST_F(HTMLStandards, AreKeptByWhatWasReadAndIsWrittenAgain)
{
    for (std::uint32_t seed = 0; seed < 20; ++seed) {
        const auto read = NSAttributedStringDocumentFormats::initWithHTML(pageOf(generatedText(seed)));
        ASSERT_TRUE(read);
        add(pageOf(*read).bytes);
    }
    const auto outcome = checked();
    EXPECT_EQ(outcome.status, 0) << outcome.error;
}

TEST_F(HTMLStandards, AreKeptByEmptyTextsAndOddTitles)
{
    add(pageOf(NSAttributedString()).bytes);
    add(pageOf(NSAttributedString(u"\n")).bytes);
    add(pageOf(NSAttributedString(u"x"), {{std::u16string(NSTitleDocumentAttribute), u"a </title> & b"}})
            .bytes);
    const auto outcome = checked();
    EXPECT_EQ(outcome.status, 0) << outcome.error;
}

TEST_F(HTMLStandards, AreCheckedForEachOfTheirRules)
{
    const std::string good = pageAround("<p>x</p>\n");
    add(good);
    ASSERT_EQ(checked().status, 0) << checked().error;
    for (const auto* body : {
             "<p>x\n",
             "<p><b><i>x</b></i></p>",
             "<p>x</p></p>",
             "<p><p>x</p></p>",
             "<p class=x>x</p>",
             "<p class='x'>x</p>",
             "<p class=\"x\" class=\"y\">x</p>",
             "<P>x</P>",
             "<p align=\"left\">x</p>",
             "<p id=\"x\">x</p><p id=\"x\">y</p>",
             "<p><font>x</font></p>",
             "<center>x</center>",
             "<p>a & b</p>",
             "<p>a &nonsense; b</p>",
             "<p><br/></p>",
             "<p>x<br></br></p>",
             "<ul>x</ul>",
             "<ul><p>x</p></ul>",
             "<li>x</li>",
             "<table><td>x</td></table>",
             "<table><tr>x</tr></table>",
             "<p><a href=\"x\"><a href=\"y\">z</a></a></p>",
             "<p><img src=\"x\"></p>",
             "<p><div>x</div></p>",
             "<p>\x01</p>",
             "<!-- x -->",
         })
        add(pageAround(body));
    add(good.substr(16));
    add("\n" + good);
    add(good + "<p>x</p>");
    const auto outcome = checked();
    EXPECT_NE(outcome.status, 0);
    EXPECT_EQ(static_cast<std::size_t>(std::count(outcome.error.begin(), outcome.error.end(), '\n')),
              m_pages.size() - 1)
        << outcome.error;
}
