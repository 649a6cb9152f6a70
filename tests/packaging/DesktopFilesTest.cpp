// What is told to desktops about notes: that it is well-formed, agrees with the program, and works.

#include "note/CVLNoteFile.h"
#include "platform/foundation/Unicode.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/transcript/ChildProcess.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::string contentOf(const std::string& path)
{
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

/// The keys of a desktop entry's one group.
std::map<std::string, std::string> thumbnailer()
{
    std::istringstream lines(contentOf(CORVEL_PACKAGING_DIR "/corvel-note.thumbnailer"));
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(line, "[Thumbnailer Entry]");
    std::map<std::string, std::string> entries;
    while (std::getline(lines, line)) {
        const auto equals = line.find('=');
        EXPECT_NE(equals, std::string::npos) << line;
        entries.emplace(line.substr(0, equals), line.substr(equals + 1));
    }
    return entries;
}

std::string replaced(std::string text, const std::string& code, const std::string& value)
{
    const auto at = text.find(code);
    EXPECT_NE(at, std::string::npos) << code;
    return text.replace(at, code.size(), value);
}

class DesktopFiles : public testing::Test {
protected:
    [[nodiscard]] ChildProcess::Outcome shell(const std::string& command) const
    {
        return ChildProcess({"/bin/sh", "-c", command}, m_folder.path().native(), {},
                            {"PATH=" CORVEL_BIN_DIR ":/usr/local/bin:/usr/bin:/bin"})
            .wait();
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return m_folder; }

private:
    TemporaryFolder m_folder;
};

TEST_F(DesktopFiles, NameOneTypeInBothPlaces)
{
    const auto types = contentOf(CORVEL_PACKAGING_DIR "/corvel-note.xml");
    EXPECT_THAT(types, HasSubstr("type=\"application/x-corvel-note\""));
    EXPECT_EQ(thumbnailer().at("MimeType"), "application/x-corvel-note;");
    EXPECT_THAT(types, HasSubstr("pattern=\"*." + UTF8FromUTF16(CVLNoteFileExtension) + "\""));
}

TEST_F(DesktopFiles, AreTakenByTheDatabaseOfTypes)
{
    if (shell("command -v update-mime-database").status != 0)
        GTEST_SKIP() << "update-mime-database is not installed";
    std::filesystem::create_directories(folder().file("mime/packages"));
    std::filesystem::copy_file(CORVEL_PACKAGING_DIR "/corvel-note.xml",
                               folder().file("mime/packages/corvel-note.xml"));
    const auto outcome = shell("update-mime-database mime");
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_THAT(contentOf(folder().file("mime/globs2")),
                HasSubstr("50:application/x-corvel-note:*.cvlnote\n"));
    EXPECT_THAT(contentOf(folder().file("mime/subclasses")),
                HasSubstr("application/x-corvel-note inode/directory\n"));
}

TEST_F(DesktopFiles, DrawAThumbnailByTheirCommand)
{
    CVLNoteFile note;
    note.setNoteText(NSAttributedString(u"Groceries"));
    ASSERT_TRUE(note.saveToFileURL(folder().url("a.cvlnote")));
    const auto entries = thumbnailer();
    EXPECT_EQ(entries.at("TryExec"), "corvel");
    auto command = replaced(entries.at("Exec"), "%s", "128");
    command = replaced(command, "%o", "out.bin");
    command = replaced(command, "%i", "a.cvlnote");
    EXPECT_EQ(command.find('%'), std::string::npos);
    // Desktops make the file before they have it filled.
    folder().write("out.bin", "");
    const auto outcome = shell(command);
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_THAT(contentOf(folder().file("out.bin")), StartsWith("\x89PNG"));
}

} // namespace
