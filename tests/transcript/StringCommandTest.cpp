#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <filesystem>

using nlohmann::json;
using testing::IsEmpty;

namespace {

class StringCommand : public Transcript {
protected:
    // Neither the tester's language nor the tester's defaults count; programs inherit what is set here.
    StringCommand()
    {
        EXPECT_EQ(::setenv("LC_ALL", "C", 1), 0); // NOLINT(concurrency-mt-unsafe): one thread
        EXPECT_EQ(::setenv("XDG_CONFIG_HOME", folder().path().c_str(), 1),
                  0); // NOLINT(concurrency-mt-unsafe)
    }

    [[nodiscard]] std::string answer(std::vector<std::string> arguments, std::string_view input = {}) const
    {
        arguments.insert(arguments.begin(), "string");
        const auto outcome = corvel(arguments, input);
        EXPECT_EQ(outcome.status, 0) << outcome.error;
        EXPECT_THAT(outcome.error, IsEmpty());
        return outcome.output;
    }
};

TEST_F(StringCommand, NamesFilesAfterTexts)
{
    EXPECT_EQ(answer({"filename", "12. Groceries. Milk"}), "Groceries\n");
    EXPECT_EQ(answer({"filename", "--whole-sentence", "12. Groceries\nmilk"}), "12. Groceries\n");
    EXPECT_EQ(answer({"filename", "- Milk"}), "Milk\n");
    EXPECT_EQ(answer({"filename", ""}), "\n");
}

TEST_F(StringCommand, ReadsStandardInputForADash)
{
    EXPECT_EQ(answer({"filename", "-"}, "Caf\xC3\xA9 visits\nMonday"), "Caf\xC3\xA9 visits\n");
    EXPECT_EQ(answer({"capitalize", "-"}, "hello macOS\n"), "Hello macOS\n");
}

TEST_F(StringCommand, LeavesTheLineEndOfStandardInputOutOfALine)
{
    folder().write("Report.pdf", "");
    EXPECT_EQ(answer({"unique", "-", "--in", "."}, "Report.pdf\n"), "Report 1.pdf\n");
    EXPECT_EQ(answer({"truncate-middle", "5", "-"}, "hello\r\n"), "hello\n");
    EXPECT_EQ(json::parse(answer({"markdown", "-"}, "**bold**\n"))["strong"], "**");
    EXPECT_EQ(json::parse(answer({"markdown", "-"}, "###\n"))["headingLevel"], 2);
    EXPECT_EQ(json::parse(answer({"ranges", "-", "abxx"}, "ab\n")).size(), 1U);
}

TEST_F(StringCommand, RefusesWhatIsNoNameNoCountOrTwoTextsAtOnce)
{
    EXPECT_EQ(corvel({"string", "unique", "", "--in", "."}).status, 2);
    EXPECT_EQ(corvel({"string", "unique", "../etc", "--in", "."}).status, 2);
    EXPECT_EQ(corvel({"string", "ranges", "-", "-"}, "text").status, 2);
    for (const auto* count : {"-1", "", "four", "99999999999999999999999"}) {
        const auto outcome = corvel({"string", "truncate-middle", "--", count, "text"});
        EXPECT_EQ(outcome.status, 2) << count;
        EXPECT_LT(outcome.error.size(), 200U) << count;
    }
}

TEST_F(StringCommand, SanitizesAndTruncates)
{
    EXPECT_EQ(answer({"sanitize", "[a/b:c~d]"}), "[a-b-c-d]\n");
    EXPECT_EQ(answer({"truncate-middle", "4", "abcdefgh"}), "ab\xE2\x80\xA6gh\n");
}

TEST_F(StringCommand, MakesNamesUniqueInAFolder)
{
    folder().write("Report.pdf", "");
    folder().write("Report 1.pdf", "");
    EXPECT_EQ(answer({"unique", "Report.pdf", "--in", "."}), "Report 2.pdf\n");
    EXPECT_EQ(answer({"unique", "Other.pdf", "--in", folder().path().native()}), "Other.pdf\n");
}

TEST_F(StringCommand, FindsTagsWhateverTheDefaultsSay)
{
    EXPECT_EQ(json::parse(answer({"hashtags", "#to_do #2024"})),
              json::parse(R"([{"name":"to do","location":0,"length":6}])"));
    EXPECT_EQ(json::parse(answer({"hashtags", "--numeric", "#2024"})),
              json::parse(R"([{"name":"2024","location":0,"length":5}])"));
    EXPECT_EQ(answer({"hashtags", "#2024"}), "[]\n");
    EXPECT_FALSE(std::filesystem::exists(folder().file("corvel/defaults.plist")));
}

TEST_F(StringCommand, SaysWhatRemains)
{
    EXPECT_EQ(answer({"remaining", "86400"}), "1 day remaining\n");
    EXPECT_EQ(answer({"remaining", "3599.5"}), "59 minutes remaining\n");
    EXPECT_EQ(answer({"remaining", "0"}), "0 seconds remaining\n");
}

TEST_F(StringCommand, FindsTerms)
{
    EXPECT_EQ(json::parse(answer({"ranges", "cafe", "Caf\xC3\xA9 or CAFE?"})),
              json::parse(R"([{"location":0,"length":4},{"location":8,"length":4}])"));
}

TEST_F(StringCommand, ReadsMarkdown)
{
    const auto value = json::parse(answer({"markdown", "[a](b \"c\")"}));
    EXPECT_EQ(value.at("link").at("title"), "c");
    EXPECT_EQ(json::parse(answer({"markdown", "- [ ] a"})).at("checklist").at("value"), false);
}

TEST_F(StringCommand, LinksFiles)
{
    EXPECT_EQ(answer({"relative-link", "img/a b.png", "notes/n.md"}), "../img/a%20b.png\n");
}

TEST_F(StringCommand, RefusesWhatIsNotUTF8)
{
    for (const auto& arguments : {std::vector<std::string>{"string", "sanitize", "caf\xE9"},
                                  std::vector<std::string>{"string", "sanitize", "-"}}) {
        const auto outcome = corvel(arguments, "caf\xE9");
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.output, IsEmpty());
        EXPECT_EQ(outcome.error, "corvel: sanitize: the text is not UTF-8\n");
    }
}

} // namespace
