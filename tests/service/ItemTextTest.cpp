#include "service/ItemText.h"

#include "platform/foundation/NSLog.h"
#include "platform/media/ContentLimits.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

class RaisingNoteText final : public NoteText {
public:
    [[nodiscard]] std::optional<std::string> noteTextOfPackage(const NSURL& /*url*/) const override
    {
        throw std::runtime_error("damaged archive");
    }
};

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
