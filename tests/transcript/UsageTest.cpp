#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

class Usage : public Transcript { };

TEST_F(Usage, ErrorsEndWithTwoAndSayWhy)
{
    const std::vector<std::vector<std::string>> mistakes = {
        {},
        {"dance"},
        {"create"},
        {"create", ""},
        {"index", "a.txt"},
        {"index", "--index", "notes.index"},
        {"index", "--index", "notes.index", "--jobs", "0", "a.txt"},
        {"index", "--index", "notes.index", "--jobs", "many", "a.txt"},
        {"index", "--index", "notes.index", "--identifier", "1", "a.txt", "b.txt"},
        {"index", "--index", "notes.index", "--identifier", "1", "."},
        {"index", "--index", "notes.index", "--attachments-info", "nonsense", "a.txt"},
        {"index", "--index", "notes.index", "--attachments-info", "@missing.json", "a.txt"},
        {"index", "--index", "notes.index", "--recognized-text", "missing.txt", "a.txt"},
        {"move", "--index", "notes.index", "a.txt"},
        {"remove", "--index", "notes.index"},
        {"search", "--index", "notes.index"},
        {"search", "--index", "notes.index", "--limit", "-1", "query"},
        {"status"},
        {"check"},
        {"text"},
        {"string"},
        {"string", "dance"},
        {"string", "filename"},
        {"string", "unique", "a.txt"},
        {"string", "truncate-middle", "-1", "text"},
        {"string", "truncate-middle", "many", "text"},
        {"string", "remaining", "long"},
        {"status", "--index", "notes.index", "--colour"},
        {"html"},
        {"html", "import"},
        {"html", "import", "--text", "--markdown", "a.html"},
        {"html", "export", "a.md", "b.md"},
        {"checklist"},
        {"note"},
        {"note", "dance"},
        {"note", "text"},
        {"note", "text", ""},
        {"note", "new"},
        {"note", "new", "a.txt"},
        {"note", "new", "a.cvlnote", "--kind", "md"},
        {"note", "new", "a.cvlnote", "--from", "a.md", "--kind", "dance"},
        {"note", "info"},
        {"note", "check"},
        {"note", "export", "a.cvlnote"},
        {"note", "export", "a.cvlnote", "-o", "a.unknown"},
        {"note", "export", "a.cvlnote", "--to", "dance"},
        {"note", "export", "a.cvlnote", "--to", "rtfd"},
        {"checklist", "--open", "--done", "a.md"},
    };
    for (const auto& mistake : mistakes) {
        const auto outcome = corvel(mistake);
        const auto shown = testing::PrintToString(mistake);
        EXPECT_EQ(outcome.status, 2) << shown << outcome.error;
        EXPECT_THAT(outcome.error, StartsWith("corvel: usage: ")) << shown;
        EXPECT_THAT(outcome.output, IsEmpty()) << shown;
    }
}

TEST_F(Usage, HelpOfEveryCommandHasExamples)
{
    EXPECT_THAT(corvel({"--help"}).output, HasSubstr("Examples:"));
    for (const auto* command : {"create", "index", "remove", "move", "search", "status", "check", "text",
                                "style", "string", "colour", "html", "checklist", "note"}) {
        const auto outcome = corvel({command, "--help"});
        EXPECT_EQ(outcome.status, 0) << command;
        EXPECT_THAT(outcome.output,
                    AllOf(HasSubstr("Examples:"), HasSubstr(std::string("corvel ") + command)))
            << command;
        EXPECT_THAT(outcome.error, IsEmpty()) << command;
    }
}

TEST_F(Usage, VersionIsOneLine)
{
    const auto outcome = corvel({"--version"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, testing::MatchesRegex("corvel [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST_F(Usage, OutputThatCannotBeWrittenIsAFailure)
{
    createIndex();
    const auto outcome = ChildProcess({"/bin/sh", "-c",
                                       std::string("exec '") + CORVEL_BIN_DIR
                                           + "/corvel' status --index notes.index >/dev/full"},
                                      folder().path().native())
                             .wait();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.error, HasSubstr("corvel: standard output: "));
}

} // namespace
