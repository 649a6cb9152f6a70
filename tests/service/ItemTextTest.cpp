#include "service/ItemText.h"

#include "platform/foundation/NSLog.h"
#include "platform/media/ContentLimits.h"
#include "platform/media/PDFDocument.h"
#include "platform/media/PDFTextCache.h"
#include "tests/support/PDFBytes.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ZipBytes.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace {

class RaisingNoteText final : public NoteText {
public:
    [[nodiscard]] std::optional<std::string> noteTextOfPackage(const NSURL& /*url*/) const override
    {
        throw std::runtime_error("damaged archive");
    }
};

/// Overwrites the file's bytes in place and puts its time back, so that it passes for the same.
void blankUnnoticed(const std::string& path)
{
    const auto time = std::filesystem::last_write_time(path);
    const auto size = std::filesystem::file_size(path);
    std::ofstream(path, std::ios::in | std::ios::out | std::ios::binary) << std::string(size, ' ');
    std::filesystem::last_write_time(path, time);
}

std::string textOfPage(const PDFDocument& document, std::size_t index)
{
    const auto page = document.pageAtIndex(index);
    return page ? page->string() : "";
}

} // namespace

TEST(ItemText, SaysWhichRuleDecided)
{
    const TemporaryFolder folder;

    struct Case {
        const char* name;
        ItemTextRule rule;
        bool hasText;
        bool hasHint;
    };

    for (const auto& [name, rule, hasText, hasHint] :
         {Case{"a.cvlnote/m", ItemTextRule::NotePackage, false, false},
          Case{"a.eml", ItemTextRule::MailMessage, true, false},
          Case{"a.pdf", ItemTextRule::PDF, false, false}, Case{"a.html", ItemTextRule::Text, true, false},
          Case{"a.docx", ItemTextRule::WordDocument, false, false},
          Case{"a.png", ItemTextRule::ByFile, false, false}, Case{"a.txt", ItemTextRule::ByFile, false, true},
          Case{"a.md", ItemTextRule::ByFile, false, true}, Case{"a.rtf", ItemTextRule::ByFile, false, false},
          Case{"a.rtfd/m", ItemTextRule::ByFile, false, false},
          Case{"a.unknown-kind", ItemTextRule::ByFile, false, false}}) {
        folder.write(name, std::string("\x01\x02\xFE", 3));
        const std::string path(name);
        const auto text = textOfItem(folder.url(path.substr(0, path.find('/'))), {}, {});
        EXPECT_EQ(text.rule, rule) << name;
        EXPECT_EQ(text.text.has_value(), hasText) << name;
        EXPECT_EQ(text.mimeTypeHint.has_value(), hasHint) << name;
        EXPECT_EQ(text.error.has_value(), rule == ItemTextRule::WordDocument) << name;
    }
}

TEST(ItemText, NamesEveryRule)
{
    for (const auto rule : {ItemTextRule::RecognisedText, ItemTextRule::NotePackage,
                            ItemTextRule::MailMessage, ItemTextRule::PDF, ItemTextRule::Text,
                            ItemTextRule::WordDocument, ItemTextRule::Image, ItemTextRule::ByFile})
        EXPECT_FALSE(nameOfItemTextRule(rule).empty());
}

TEST(ItemText, HasNoTypeForWhatIsNotThere)
{
    const TemporaryFolder folder;
    const auto text = textOfItem(folder.url("missing.txt"), {}, {});
    EXPECT_FALSE(text.contentType);
    EXPECT_EQ(text.rule, ItemTextRule::ByFile);
    EXPECT_FALSE(text.mimeTypeHint);
}

TEST(ItemText, CutsTextAtItsLimitWithinNoCharacter)
{
    std::string line;
    const NSLogCapture capture([&](std::string_view logged) { line = logged; });
    const TemporaryFolder folder;
    folder.write("a.txt", "x");
    const auto limit = ContentLimits().textBytes;
    const std::string recognised = std::string(limit - 1, 'a') + "\xC3\xA9";
    const auto text = textOfItem(folder.url("a.txt"), recognised, {});
    ASSERT_TRUE(text.text);
    EXPECT_EQ(text.text->size(), limit - 1);
    EXPECT_NE(line.find("was cut"), std::string::npos);
}

TEST(ItemText, TakesContentThatRaisesForUnreadable)
{
    const NSLogCapture quiet([](std::string_view) {});
    const TemporaryFolder folder;
    folder.write("a.cvlnote/m", "x");
    ItemSources sources;
    sources.noteText = std::make_shared<const RaisingNoteText>();
    const auto text = textOfItem(folder.url("a.cvlnote"), {}, sources);
    EXPECT_EQ(text.rule, ItemTextRule::NotePackage);
    EXPECT_FALSE(text.text);
    EXPECT_FALSE(text.error);
}

TEST(ItemText, WalksEveryPageOfAPDF)
{
    constexpr std::size_t kPageCount = 25;
    std::vector<std::string> texts;
    for (std::size_t index = 0; index < kPageCount; ++index)
        texts.push_back("page" + std::to_string(index));
    const TemporaryFolder folder;
    const auto path = folder.write("a.pdf", pdfWithPages(texts));
    const PDFTextCache::RequestScope scope;
    const auto item = textOfItem(folder.url("a.pdf"), {}, {});
    EXPECT_EQ(item.rule, ItemTextRule::PDF);
    EXPECT_FALSE(item.text);

    // What the walk has not read is gone now.
    blankUnnoticed(path);
    const auto document = PDFDocument::initWithURL(folder.url("a.pdf"));
    ASSERT_TRUE(document);
    ASSERT_EQ(document->pageCount(), kPageCount);
    for (std::size_t index = 0; index < kPageCount; ++index)
        EXPECT_THAT(textOfPage(*document, index), testing::StartsWith(texts[index]));
}

TEST(ItemText, TakesTheTextOfAWordDocument)
{
    const TemporaryFolder folder;
    folder.write("a.docx",
                 zipOf({{"word/document.xml",
                         "<w:document xmlns:w='w'><w:body><w:p><w:r><w:t>body</w:t></w:r></w:p></w:body>"
                         "</w:document>"}}));
    const auto item = textOfItem(folder.url("a.docx"), {}, {});
    EXPECT_EQ(item.rule, ItemTextRule::WordDocument);
    EXPECT_EQ(item.text, "body\n");
    EXPECT_FALSE(item.error);
}

TEST(ItemText, LeavesTextThatCannotBeReadToTheIndex)
{
    const TemporaryFolder folder;
    // A regular file that can be opened, but whose first byte, at address 0, nobody can read.
    std::filesystem::create_symlink("/proc/self/mem", folder.file("a.html"));
    const auto item = textOfItem(folder.url("a.html"), {}, {});
    EXPECT_EQ(item.rule, ItemTextRule::Text);
    EXPECT_FALSE(item.text);
    EXPECT_FALSE(item.error);
}
