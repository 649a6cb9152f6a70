#include "markdown/MarkdownImport.h"
#include "platform/drawing/DrawingSurface.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/Unicode.h"
#include "platform/text/NSColor.h"
#include "richtext/HTMLForSharing.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/transcript/ChildProcess.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

// A message's body as Chromium shows it.

using testing::HasSubstr;
using testing::Not;

namespace {

constexpr double kImageWidth = 48;
constexpr double kImageHeight = 24;

NSFileWrapper::Ref image()
{
    const DrawingSurface surface{.size = NSMakeSize(kImageWidth, kImageHeight)};
    const auto bytes = surface.PNGRepresentation([](NSGraphicsContext& context) {
        context.fillRect(NSMakeRect(0, 0, kImageWidth, kImageHeight), *NSColor::redColor());
    });
    const auto file = NSFileWrapper::initRegularFileWithContents(bytes.value_or(NSData{}));
    file->setPreferredFilename(u"a b.png");
    file->setFilename(u"a b.png");
    return file;
}

std::string sharedPage(std::u16string_view markdown)
{
    MarkdownImportOptions options;
    options.fileForImage = [](std::u16string_view /*target*/) { return image(); };
    return UTF8FromUTF16(
        DynamicColors::htmlStringForSharingToMail(attributedStringWithMarkdown(markdown, options)));
}

/// The page, which has no scripts itself, with one that writes down what the browser made of it.
std::string withReport(std::string page)
{
    constexpr std::string_view kReport = R"(<script>addEventListener("load", () => {
const report = document.createElement("pre");
report.textContent = "images " + Array.from(document.images, i => i.naturalWidth + "x" + i.naturalHeight) +
  ", mode " + document.compatMode + ", charset " + document.characterSet +
  ", items " + Array.from(document.querySelectorAll("li"), i => i.innerText.trim()).join("/") +
  ", link " + document.links[0].href +
  ", bold " + getComputedStyle(document.querySelector("h1")).fontWeight + ".";
document.body.append(report); });</script>)";
    return page.insert(page.rfind("</body>"), kReport);
}

class SharedPage : public testing::Test {
protected:
    void SetUp() override
    {
        const auto outcome = ChildProcess({"/usr/bin/env", "chromium", "--version"}, m_folder.path()).wait();
        if (outcome.status != 0)
            GTEST_SKIP() << "no Chromium";
    }

    /// The page's elements once it is loaded.
    [[nodiscard]] std::string elementsOf(std::string_view page) const
    {
        const auto path = m_folder.write("page.html", page);
        const auto outcome = ChildProcess({"/usr/bin/env", "chromium", "--headless", "--no-sandbox",
                                           "--disable-gpu", "--user-data-dir=" + m_folder.file("profile"),
                                           "--dump-dom", NSURL::fileURLWithPath(path).absoluteString()},
                                          m_folder.path())
                                 .wait();
        EXPECT_EQ(outcome.status, 0) << outcome.error;
        return outcome.output;
    }

    const TemporaryFolder m_folder;
};

} // namespace

TEST_F(SharedPage, ShowsImagesAndText)
{
    const auto page
        = sharedPage(u"# Soup\n\nTake a [pot](https://a.example/). ![p](x)\n\n- [x] S\u00E4lt\n- [ ] Leek\n");
    ASSERT_THAT(page, Not(HasSubstr("<script")));
    const auto elements = elementsOf(withReport(page));
    EXPECT_THAT(
        elements,
        HasSubstr("images 48x24, mode CSS1Compat, charset UTF-8, items \u2611 S\u00E4lt/\u2610 Leek, link "
                  "https://a.example/, bold 700."));
}

TEST_F(SharedPage, NamesNothingOnTheWritersMachine)
{
    const auto page = sharedPage(u"# a [b](https://a.example/) ![p](x)");
    EXPECT_THAT(page, Not(HasSubstr("file:")));
    EXPECT_THAT(elementsOf(page), Not(HasSubstr("file:")));
}
