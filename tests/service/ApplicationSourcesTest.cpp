#include "service/ApplicationSources.h"

#include "note/CVLNoteFile.h"
#include "platform/media/ContentLimits.h"
#include "service/ItemText.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

class ApplicationSources : public testing::Test {
protected:
    void save(const std::u16string& text) const
    {
        CVLNoteFile note;
        note.setNoteText(NSAttributedString(text));
        NSError error;
        ASSERT_TRUE(note.saveToFileURL(url(), &error)) << error.localizedDescription();
    }

    [[nodiscard]] NSURL url() const { return m_folder.url("a.cvlnote"); }

    [[nodiscard]] const TemporaryFolder& folder() const { return m_folder; }

    [[nodiscard]] ItemText item() const { return textOfItem(url(), {}, applicationSources()); }

private:
    TemporaryFolder m_folder;
};

} // namespace

TEST_F(ApplicationSources, GiveTheTextsOfNotes)
{
    save(u"harbour \u00E9\U0001F600");
    EXPECT_EQ(item().rule, ItemTextRule::NotePackage);
    EXPECT_EQ(item().text, "harbour \xC3\xA9\xF0\x9F\x98\x80");
    EXPECT_FALSE(item().error);
}

TEST_F(ApplicationSources, GiveTheRichTextOfANoteThatLostItsText)
{
    save(u"harbour lights");
    std::filesystem::remove(folder().file("a.cvlnote/NoteText"));
    EXPECT_EQ(item().text, "harbour lights");
}

TEST_F(ApplicationSources, GiveNoneAndNoErrorForANoteThatCannotBeRead)
{
    folder().write("a.cvlnote/NoteText", "damaged");
    EXPECT_EQ(item().rule, ItemTextRule::NotePackage);
    EXPECT_FALSE(item().text);
    EXPECT_FALSE(item().error);
}

TEST_F(ApplicationSources, GiveNoneForANoteThatIsTooLarge)
{
    folder().write("a.cvlnote/NoteText", "");
    std::filesystem::resize_file(folder().file("a.cvlnote/NoteText"), ContentLimits().noteMemberBytes + 1);
    EXPECT_FALSE(item().text);
}
