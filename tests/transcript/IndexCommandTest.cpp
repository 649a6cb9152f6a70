#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;
using testing::UnorderedElementsAre;

namespace fs = std::filesystem;

namespace {

using JSON = nlohmann::json;

std::vector<JSON> lines(const std::string& output)
{
    std::vector<JSON> values;
    std::istringstream stream(output);
    for (std::string line; std::getline(stream, line);)
        values.push_back(JSON::parse(line));
    return values;
}

class IndexCommand : public Transcript {
protected:
    void SetUp() override
    {
        createIndex();
        startService();
    }
};

TEST_F(IndexCommand, IndexesAFolderAndSumsUp)
{
    folder().write("library/a.txt", "harbour lights");
    folder().write("library/deep/b.md", "# Harbour\nanother one");
    folder().write("library/c.html", "<p>unrelated</p>");
    const auto outcome = index({"library"});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_THAT(outcome.error, MatchesRegex("indexed 3 items in [0-9.]+ s\n"));
    EXPECT_THAT(outcome.output, IsEmpty());
    EXPECT_THAT(search("harbour"), UnorderedElementsAre("library/a.txt", "library/deep/b.md"));
}

TEST_F(IndexCommand, AnswersALineForEachItemInJSON)
{
    folder().write("a.txt", "harbour");
    const auto outcome = index({"--json", "a.txt", "missing.txt"});
    EXPECT_EQ(outcome.status, 1);
    std::map<std::string, JSON> errors;
    for (const auto& line : lines(outcome.output))
        errors[line.at("path").get<std::string>()] = line.at("error");
    ASSERT_EQ(errors.size(), 2U);
    EXPECT_EQ(errors["a.txt"], nullptr);
    EXPECT_EQ(errors["missing.txt"].at("domain"), "CVLIndexingError");
    EXPECT_EQ(errors["missing.txt"].at("code"), 10002);
    EXPECT_THAT(errors["missing.txt"].at("message").get<std::string>(), Not(IsEmpty()));
}

TEST_F(IndexCommand, SkipsWhatDidNotChangeUnlessAskedForAll)
{
    folder().write("library/a.txt", "harbour");
    folder().write("library/b.txt", "breakwater");
    // Old enough that no clock step can hide a change.
    const auto past = fs::file_time_type::clock::now() - std::chrono::hours(1);
    fs::last_write_time(folder().file("library/a.txt"), past);
    fs::last_write_time(folder().file("library/b.txt"), past);
    ASSERT_EQ(index({"library"}).status, 0);
    EXPECT_THAT(index({"library"}).error, MatchesRegex("indexed 0 items in [0-9.]+ s, 2 unchanged\n"));
    folder().write("library/b.txt", "lighthouse");
    EXPECT_THAT(index({"library"}).error, MatchesRegex("indexed 1 item in [0-9.]+ s, 1 unchanged\n"));
    EXPECT_THAT(search("lighthouse"), ElementsAre("library/b.txt"));
    EXPECT_THAT(search("breakwater"), IsEmpty());
    EXPECT_THAT(index({"--all", "library"}).error, MatchesRegex("indexed 2 items in [0-9.]+ s\n"));
}

TEST_F(IndexCommand, FindsAttachmentsInTheirItem)
{
    folder().write("trip.rtfd/TXT.rtf", R"({\rtf1\ansi Night train to Lisbon\par})");
    folder().write("trip.rtfd/packing list.txt", "umbrella");
    folder().write("supper.eml",
                   "From: a@example.org\r\nSubject: Supper\r\nMIME-Version: 1.0\r\n"
                   "Content-Type: multipart/mixed; boundary=b\r\n\r\n"
                   "--b\r\nContent-Type: text/plain\r\n\r\nCome at seven\r\n"
                   "--b\r\nContent-Type: text/plain\r\nContent-Disposition: attachment; "
                   "filename=\"menu.txt\"\r\n\r\nquince\r\n"
                   "--b--\r\n");
    ASSERT_EQ(index({"trip.rtfd", "supper.eml"}).status, 0);
    EXPECT_THAT(search("lisbon"), ElementsAre("trip.rtfd"));
    EXPECT_THAT(search("umbrella"), ElementsAre("trip.rtfd/packing list.txt"));
    EXPECT_THAT(search("seven"), ElementsAre("supper.eml"));
    EXPECT_THAT(search("quince"), ElementsAre("supper.eml/menu.txt"));
}

TEST_F(IndexCommand, TakesWhatTheUserSaysAboutOneItem)
{
    folder().write("scan.png", "\x89PNG no image at all");
    folder().write("scan.txt", "invoice from the glazier");
    folder().write("trip.rtfd/TXT.rtf", R"({\rtf1\ansi Lisbon\par})");
    folder().write("trip.rtfd/ticket.png", "\x89PNG");
    folder().write("info.json", R"({"ticket.png": {"TextRecognitionString": "platform nine"}})");
    ASSERT_EQ(index({"--recognized-text", "scan.txt", "--identifier", "[7]", "scan.png"}).status, 0);
    ASSERT_EQ(index({"--attachments-info", "@info.json", "trip.rtfd"}).status, 0);
    EXPECT_THAT(search("glazier"), ElementsAre("scan.png"));
    EXPECT_THAT(search("platform"), ElementsAre("trip.rtfd/ticket.png"));
    ASSERT_EQ(index({"--attachments-info", "{}", "trip.rtfd"}).status, 0);
    EXPECT_THAT(search("platform"), IsEmpty());
}

TEST_F(IndexCommand, TakesPathsAsTheyAre)
{
    const std::vector<std::string> names
        = {"-dash.txt", "[a,b].txt", "[c]",    "{}",      "bad\xFF.txt", "100%.txt",
           "a\nb.txt",  "--all",     "search", "\x01[d]", "ü b.txt"};
    std::vector<std::string> arguments{"--json", "--"};
    for (const auto& name : names) {
        folder().write(name, "harbour");
        arguments.push_back(name);
    }
    const auto outcome = index(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_EQ(lines(outcome.output).size(), names.size());
    EXPECT_EQ(search("harbour").size(), names.size());
    for (const auto& name : names)
        EXPECT_EQ(corvel({"remove", "--index", "notes.index", "--socket", "service.sock", "--", name}).status,
                  0);
    EXPECT_THAT(search("harbour"), IsEmpty());
}

TEST_F(IndexCommand, ReportsAnUnreadableFileAndIndexesTheOthers)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "root reads every file";
    folder().write("library/locked.txt", "harbour");
    folder().write("library/open.txt", "harbour");
    fs::permissions(folder().file("library/locked.txt"), fs::perms::none);
    const auto outcome = index({"library"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.error, HasSubstr("corvel: library/locked.txt: "));
    EXPECT_THAT(outcome.error, HasSubstr("indexed 1 item in "));
    EXPECT_THAT(outcome.error, HasSubstr(", 1 failed\n"));
    EXPECT_THAT(search("harbour"), ElementsAre("library/open.txt"));
}

TEST_F(IndexCommand, NotesAPipeInAFolderAndGoesOn)
{
    folder().write("library/a.txt", "harbour");
    ASSERT_EQ(::mkfifo(folder().file("library/pipe").c_str(), S_IRUSR | S_IWUSR), 0);
    const auto outcome = index({"library"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.error, HasSubstr("corvel: library/pipe: skipped: "));
    EXPECT_EQ(index({"library/pipe"}).status, 1);
}

TEST_F(IndexCommand, LeavesItsOwnIndexOut)
{
    folder().write("a.txt", "harbour");
    EXPECT_EQ(index({"."}).status, 0);
    const auto status = JSON::parse(corvel({"status", "--index", "notes.index", "--json"}).output);
    EXPECT_EQ(status.at("documents"), 1);
}

TEST_F(IndexCommand, IndexesManyFilesOverManyConnections)
{
    constexpr int kFiles = 500;
    for (int number = 0; number < kFiles; ++number)
        folder().write("library/" + std::to_string(number) + ".txt",
                       "harbour number" + std::to_string(number));
    const auto outcome = index({"--jobs", "8", "library"});
    EXPECT_THAT(outcome.error, MatchesRegex("indexed 500 items in [0-9.]+ s\n"));
    EXPECT_THAT(search("number321"), ElementsAre("library/321.txt"));
    EXPECT_EQ(corvel({"check", "notes.index"}).status, 0);
}

} // namespace
