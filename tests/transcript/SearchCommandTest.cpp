#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <sstream>

using testing::HasSubstr;
using testing::IsEmpty;

namespace {

using JSON = nlohmann::json;

// There is nothing in it to search for.
constexpr const char* kBadQuery = "(";

class SearchCommand : public Transcript {
protected:
    void SetUp() override
    {
        createIndex();
        startService();
        folder().write("library/a.txt", "the harbour lights");
        folder().write("library/b.txt", "the harbour bell\nrings twice");
        folder().write("trip.rtfd/TXT.rtf", R"({\rtf1\ansi Lisbon\par})");
        folder().write("trip.rtfd/list.txt", "umbrella");
        ASSERT_EQ(index({"library", "trip.rtfd"}).status, 0);
    }

    [[nodiscard]] ChildProcess::Outcome searchCommand(std::vector<std::string> arguments,
                                                      std::string_view input = {}) const
    {
        arguments.insert(arguments.begin(), {"search", "--index", "notes.index"});
        return corvel(arguments, input);
    }
};

TEST_F(SearchCommand, ShowsPathsBelowTheFolderAndSnippets)
{
    const auto outcome = searchCommand({"bell"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "library/b.txt\n    the harbour [bell] rings twice\n");
}

TEST_F(SearchCommand, ShowsTheItemThatAnAttachmentIsIn)
{
    EXPECT_EQ(searchCommand({"umbrella"}).output, "list.txt\n  in trip.rtfd\n    [umbrella]\n");
}

TEST_F(SearchCommand, FindsNothingQuietly)
{
    const auto outcome = searchCommand({"zeppelin"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, IsEmpty());
    EXPECT_THAT(outcome.error, IsEmpty());
    EXPECT_EQ(searchCommand({"--json", "zeppelin"}).output, "[]\n");
}

TEST_F(SearchCommand, AnswersInJSON)
{
    const auto hits = JSON::parse(searchCommand({"--json", "umbrella"}).output);
    ASSERT_EQ(hits.size(), 1U);
    EXPECT_EQ(hits[0].at("url"), folder().url("trip.rtfd/list.txt").absoluteString());
    EXPECT_EQ(hits[0].at("path"), folder().file("trip.rtfd/list.txt"));
    EXPECT_EQ(hits[0].at("parent"), folder().url("trip.rtfd").absoluteString());
    EXPECT_EQ(hits[0].at("snippet"), "[umbrella]");
    EXPECT_TRUE(hits[0].at("score").is_number());
    EXPECT_EQ(JSON::parse(searchCommand({"--json", "bell"}).output)[0].at("parent"), nullptr);
}

TEST_F(SearchCommand, LimitsAndOffsetsTheHits)
{
    EXPECT_EQ(JSON::parse(searchCommand({"--json", "--limit", "1", "harbour"}).output).size(), 1U);
    EXPECT_EQ(JSON::parse(searchCommand({"--json", "--offset", "1", "harbour"}).output).size(), 1U);
    EXPECT_EQ(JSON::parse(searchCommand({"--json", "--offset", "2", "harbour"}).output).size(), 0U);
}

TEST_F(SearchCommand, AnswersALineOfStandardInputWithALine)
{
    const auto outcome = searchCommand({"--json", "-"}, "harbour\nzeppelin\numbrella");
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    std::istringstream stream(outcome.output);
    std::vector<std::size_t> counts;
    for (std::string line; std::getline(stream, line);)
        counts.push_back(JSON::parse(line).size());
    EXPECT_EQ(counts, (std::vector<std::size_t>{2, 0, 1}));
}

TEST_F(SearchCommand, SaysWhichQueryItDidNotUnderstandAndGoesOn)
{
    const auto outcome = searchCommand({"--json", "-"}, std::string(kBadQuery) + "\numbrella\n");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, testing::StartsWith("[]\n[{"));
    EXPECT_THAT(outcome.error, HasSubstr(std::string("corvel: ") + kBadQuery + ": "));
    EXPECT_EQ(searchCommand({kBadQuery}).status, 1);
}

TEST_F(SearchCommand, EndsQuietlyWhenNobodyReadsOn)
{
    std::string queries;
    for (int line = 0; line < 20'000; ++line)
        queries += "harbour\n";
    folder().write("queries.txt", queries);
    const std::string pipeline = std::string("'") + CORVEL_BIN_DIR
        + "/corvel' search --index notes.index --json - <queries.txt | head -n 1";
    const auto outcome = ChildProcess({"/bin/sh", "-c", pipeline}, folder().path().native()).wait();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.error, IsEmpty());
}

} // namespace
