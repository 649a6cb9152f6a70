// What a word processor makes of the rich text of a package. Skipped where there is none.

#include "attachments/CVLDividerTextAttachment.h"
#include "note/CVLNoteFile.h"
#include "tests/note/NotePackages.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace {

bool runs(const std::string& command)
{
    return std::system((command + " >/dev/null 2>&1").c_str()) == 0; // NOLINT(concurrency-mt-unsafe)
}

using NoteOtherReaders = StyleTest;

} // namespace

TEST_F(NoteOtherReaders, SeeTheTextThatIsExported)
{
    if (!runs("command -v soffice"))
        GTEST_SKIP() << "soffice is not installed";
    CVLNoteFile note;
    note.setNoteText(NoteText()
                         .add(u"Harbour \u00E9 \u4E2D\n")
                         .addAttachment(CVLDividerTextAttachment::init())
                         .add(u"\nlights {braces} \U0001F600\n")
                         .text());
    const TemporaryFolder folder;
    ASSERT_TRUE(note.saveToFileURL(folder.url("a.cvlnote")));
    ASSERT_TRUE(runs("cd " + folder.file("a.cvlnote")
                     + " && HOME=$PWD soffice --headless --convert-to 'txt:Text (encoded):UTF8' TXT.rtf"));
    std::ostringstream seen;
    seen << std::ifstream(folder.file("a.cvlnote/TXT.txt")).rdbuf();
    EXPECT_THAT(seen.str(),
                testing::HasSubstr("Harbour \xC3\xA9 \xE4\xB8\xAD\n***\nlights {braces} \xF0\x9F\x98\x80"));
}
