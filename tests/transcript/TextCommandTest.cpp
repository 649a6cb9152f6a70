#include "note/CVLNoteFile.h"
#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

class TextCommand : public Transcript { };

TEST_F(TextCommand, ShowsTheTextAndTheRule)
{
    folder().write("a.txt", "harbour lights\n");
    const auto outcome = corvel({"text", "a.txt"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "harbour lights\n");
    EXPECT_EQ(outcome.error, "rule: by file\n");
}

TEST_F(TextCommand, AnswersInJSON)
{
    folder().write("a.html", "<style>p{}</style><p>harbour <b>lights</b></p>");
    const auto value = nlohmann::json::parse(corvel({"text", "--json", "a.html"}).output);
    EXPECT_EQ(value.at("path"), "a.html");
    EXPECT_EQ(value.at("rule"), "text");
    EXPECT_THAT(value.at("text").get<std::string>(), HasSubstr("harbour"));
}

TEST_F(TextCommand, ShowsTheTextOfANote)
{
    CVLNoteFile note;
    note.setNoteText(NSAttributedString(u"harbour lights\n"));
    ASSERT_TRUE(note.saveToFileURL(folder().url("a.cvlnote")));
    const auto outcome = corvel({"text", "a.cvlnote"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "harbour lights\n");
    EXPECT_EQ(outcome.error, "rule: note package\n");
}

TEST_F(TextCommand, FailsForAFileThatIsNotThere)
{
    const auto outcome = corvel({"text", "missing.txt"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, IsEmpty());
    EXPECT_THAT(outcome.error, StartsWith("corvel: missing.txt: "));
}

} // namespace
