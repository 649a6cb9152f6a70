#include "platform/foundation/NSUserDefaults.h"
#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <sstream>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::SizeIs;
using testing::StartsWith;

namespace {

class StyleCommand : public Transcript {
protected:
    /// corvel style, with these arguments and settings in the test's folder.
    [[nodiscard]] ChildProcess::Outcome style(std::vector<std::string> arguments,
                                              const std::vector<std::string>& variables = {}) const
    {
        arguments.insert(arguments.begin(), "style");
        // Of two variables of one name the first counts.
        auto environment = variables;
        for (const auto* variable : {"LC_ALL=", "LC_MESSAGES=", "LANG=", "LANGUAGE="})
            environment.emplace_back(variable);
        environment.push_back("XDG_CONFIG_HOME=" + folder().file("config"));
        return startCorvel(arguments, environment)->wait();
    }

    [[nodiscard]] nlohmann::json shown(const std::string& name) const
    {
        return nlohmann::json::parse(style({"show", "--json", name}).output);
    }

    [[nodiscard]] std::vector<std::string> listedNames() const
    {
        std::istringstream lines(style({"list", "--json"}).output);
        std::vector<std::string> names;
        for (std::string line; std::getline(lines, line);)
            names.push_back(nlohmann::json::parse(line).at("name"));
        return names;
    }
};

TEST_F(StyleCommand, ListsTheStandardStyles)
{
    const auto outcome = style({"list"});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_EQ(outcome.output,
              "  CVLNoteStyleIdentifierTitle           HelveticaNeue-Bold     17  text     "
              "Title (whole paragraphs, resets on new line)\n"
              "  CVLNoteStyleIdentifierHeading         HelveticaNeue-Bold     14  text     "
              "Heading (whole paragraphs, resets on new line)\n"
              "  CVLNoteStyleIdentifierSubheading      HelveticaNeue-Bold     13  text     "
              "Subheading (whole paragraphs, resets on new line)\n"
              "* CVLNoteStyleIdentifierBody            HelveticaNeue          12  text     Body\n"
              "  CVLNoteStyleIdentifierMonospace       Menlo-Regular          12  text     Monospaced\n");
    EXPECT_THAT(outcome.error, IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(folder().file("config")));
}

TEST_F(StyleCommand, ShowsOneStyle)
{
    const auto outcome = style({"show", "Heading"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output,
              "name               Heading\n"
              "identifier         CVLNoteStyleIdentifierHeading\n"
              "font               HelveticaNeue-Bold\n"
              "size               14\n"
              "colour             text\n"
              "underline          0\n"
              "strikethrough      0\n"
              "line spacing       0\n"
              "paragraph spacing  2\n"
              "header level       2\n"
              "whole paragraphs   yes\n"
              "resets on new line yes\n"
              "default style      no\n");
    EXPECT_EQ(style({"show", "CVLNoteStyleIdentifierHeading"}).output, outcome.output);
}

TEST_F(StyleCommand, SpeaksTheUsersLanguage)
{
    const std::vector<std::string> german = {"LANG=de_DE.UTF-8"};
    EXPECT_THAT(style({"list"}, german).output,
                HasSubstr("Unter\xC3\xBC"
                          "berschrift"));
    EXPECT_THAT(style({"show", "Titel"}, german).output, HasSubstr("CVLNoteStyleIdentifierTitle"));
}

TEST_F(StyleCommand, ChangesAStyleForTheNextTime)
{
    const auto outcome
        = style({"set", "Title", "--size", "20", "--font", "Menlo", "--colour", "#204060", "--underline", "1",
                 "--strikethrough", "9", "--line-spacing", "1.5", "--paragraph-spacing", "4", "--default"});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_THAT(outcome.output, IsEmpty());
    const auto title = shown("Title");
    EXPECT_EQ(title.at("size"), 20);
    EXPECT_EQ(title.at("font"), "Menlo-Regular");
    EXPECT_EQ(title.at("colour"), "#204060");
    EXPECT_EQ(title.at("underline"), 1);
    EXPECT_EQ(title.at("strikethrough"), 9);
    EXPECT_EQ(title.at("lineSpacing"), 1.5);
    EXPECT_EQ(title.at("paragraphSpacing"), 4);
    EXPECT_EQ(title.at("default"), true);
    EXPECT_EQ(shown("Body").at("default"), false);

    EXPECT_EQ(style({"set", "Title", "--colour", "none"}).status, 0);
    EXPECT_TRUE(shown("Title").at("colour").is_null());
    EXPECT_EQ(shown("Title").at("size"), 20);
}

TEST_F(StyleCommand, UnderstandsEnglishNamesInEveryLanguage)
{
    const std::vector<std::string> german = {"LANG=de_DE.UTF-8"};
    for (const auto* name : {"Title", "Heading", "Subheading", "Body", "Monospaced"}) {
        const auto outcome = style({"show", "--json", name}, german);
        EXPECT_EQ(outcome.status, 0) << outcome.error;
        EXPECT_EQ(nlohmann::json::parse(outcome.output).at("identifier"), shown(name).at("identifier"));
    }
}

TEST_F(StyleCommand, ShowsASizeAsItWasGiven)
{
    EXPECT_EQ(style({"set", "Body", "--size", "10.1"}).status, 0);
    EXPECT_THAT(style({"show", "Body"}).output, HasSubstr("\nsize               10.1\n"));
    EXPECT_THAT(style({"show", "--json", "Body"}).output, HasSubstr("\"size\":10.1,"));
    EXPECT_THAT(style({"list"}).output, HasSubstr(" 10.1  text     Body\n"));
}

TEST_F(StyleCommand, TakesBlackForTheColourOfText)
{
    EXPECT_EQ(style({"set", "Body", "--colour", "#000000"}).status, 0);
    EXPECT_TRUE(shown("Body").at("colour").is_null());
}

TEST_F(StyleCommand, AddsAStyleAndDeletesIt)
{
    const auto outcome = style({"add", "Quote", "--from", "Heading", "--size", "11"});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_THAT(outcome.output, MatchesRegex("[0-9A-F-]+\n"));
    const auto quote = shown("Quote");
    EXPECT_EQ(quote.at("identifier").get<std::string>() + "\n", outcome.output);
    EXPECT_EQ(quote.at("type"), 9999);
    EXPECT_EQ(quote.at("font"), "HelveticaNeue-Bold");
    EXPECT_EQ(quote.at("size"), 11);
    EXPECT_EQ(quote.at("headerLevel"), 2);
    EXPECT_EQ(quote.at("applyToParagraph"), true);
    EXPECT_THAT(listedNames(), ElementsAre("Title", "Heading", "Subheading", "Body", "Monospaced", "Quote"));
    EXPECT_EQ(style({"delete", "Quote"}).status, 0);
    EXPECT_THAT(listedNames(), SizeIs(5));
}

TEST_F(StyleCommand, AsksForTheIdentifierWhereANameIsNotEnough)
{
    const auto first = style({"add", "Quote"}).output;
    EXPECT_EQ(style({"add", "Quote"}).status, 0);
    const auto outcome = style({"delete", "Quote"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error, "corvel: Quote: several styles have this name; give the identifier\n");
    EXPECT_EQ(style({"delete", first.substr(0, first.size() - 1)}).status, 0);
    EXPECT_THAT(listedNames(), SizeIs(6));
}

TEST_F(StyleCommand, AddsNoStyleByANameThatFindsAnother)
{
    const std::vector<std::string> german = {"LANG=de_DE.UTF-8"};
    for (const auto* name : {"Title", "Monospaced", "Titel"}) {
        const auto outcome = style({"add", name}, german);
        EXPECT_EQ(outcome.status, 1) << name;
        EXPECT_EQ(outcome.error, std::string("corvel: ") + name + ": a standard style has this name\n");
    }
    const auto outcome = style({"add", "CVLNoteStyleIdentifierBody"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error, "corvel: CVLNoteStyleIdentifierBody: this is the identifier of a style\n");
    EXPECT_THAT(listedNames(), SizeIs(5));
}

TEST_F(StyleCommand, MakesNoStyleWithoutAnIdentifierTheDefault)
{
    EXPECT_EQ(style({"add", "Quote"}).status, 0);
    {
        // Under another key of the same length the identifier is not found.
        NSUserDefaults defaults(folder().file("config/corvel/defaults.plist"));
        auto data = defaults.dataForKey(u"CVLNoteTextStyles");
        ASSERT_TRUE(data);
        const std::string_view key = "customStyleIdentifier";
        const auto place = data->bytes.find(key);
        ASSERT_NE(place, std::string::npos);
        data->bytes.replace(place, key.size(), "customStyleIdentifieX");
        defaults.setObject(*data, u"CVLNoteTextStyles");
    }
    EXPECT_EQ(shown("Quote").at("identifier"), "");
    const auto outcome = style({"set", "Quote", "--size", "20", "--default"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error, "corvel: Quote: a style without an identifier cannot be the default style\n");
    EXPECT_EQ(shown("Quote").at("size"), 12);
    EXPECT_EQ(shown("Body").at("default"), true);
}

TEST_F(StyleCommand, ResetsStandardStyles)
{
    EXPECT_EQ(style({"set", "Title", "--size", "20"}).status, 0);
    EXPECT_EQ(style({"set", "Body", "--size", "13"}).status, 0);
    EXPECT_EQ(style({"add", "Quote", "--default"}).status, 0);
    EXPECT_EQ(style({"reset", "Title"}).status, 0);
    EXPECT_EQ(shown("Title").at("size"), 17);
    EXPECT_EQ(shown("Body").at("size"), 13);
    EXPECT_EQ(style({"reset", "--all"}).status, 0);
    EXPECT_EQ(shown("Body").at("size"), 12);
    EXPECT_EQ(shown("Body").at("default"), true);
    EXPECT_THAT(listedNames(), SizeIs(6));
}

TEST_F(StyleCommand, SaysWhatItCannotDo)
{
    EXPECT_EQ(style({"add", "Quote"}).status, 0);
    const std::vector<std::pair<std::vector<std::string>, std::string>> failures = {
        {{"show", "Nothing"}, "corvel: Nothing: there is no such style\n"},
        {{"add", "New", "--from", "Nothing"}, "corvel: Nothing: there is no such style\n"},
        {{"set", "Title", "--font", "NoSuchFont"}, "corvel: Title: there is no font NoSuchFont\n"},
        {{"set", "Title", "--colour", "red"},
         "corvel: Title: red is no colour; give it as #rrggbb, or none\n"},
        {{"set", "Title", "--colour", "#12345g"},
         "corvel: Title: #12345g is no colour; give it as #rrggbb, or none\n"},
        {{"reset", "Quote"},
         "corvel: Quote: a custom style has nothing to go back to; see 'corvel style delete'\n"},
        {{"delete", "Title"}, "corvel: Title: a standard style always exists; see 'corvel style reset'\n"},
    };
    for (const auto& [arguments, error] : failures) {
        const auto outcome = style(arguments);
        EXPECT_EQ(outcome.status, 1) << error;
        EXPECT_EQ(outcome.error, error);
        EXPECT_THAT(outcome.output, IsEmpty());
    }
    EXPECT_THAT(listedNames(), SizeIs(6));
}

TEST_F(StyleCommand, ReportsSettingsThatCannotBeWritten)
{
    // A file where the folder should be.
    (void)folder().write("config", "");
    const auto outcome = style({"set", "Title", "--size", "20"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.error, HasSubstr("corvel: user defaults: "));
}

TEST_F(StyleCommand, RefusesWhatMakesNoSense)
{
    const std::vector<std::vector<std::string>> mistakes = {
        {},
        {"dance"},
        {"show"},
        {"set"},
        {"set", "Title", "--size", "0"},
        {"set", "Title", "--size", "many"},
        {"set", "Title", "--underline", "-1"},
        {"set", "Title", "--line-spacing", "-1"},
        {"set", "Title"},
        {"set", "Title", "--size", "nan"},
        {"set", "Title", "--size", "-nan"},
        {"set", "Title", "--size", "inf"},
        {"set", "Title", "--line-spacing", "nan"},
        {"set", "Title", "--paragraph-spacing", "nan"},
        {"add"},
        {"add", ""},
        {"add", "Quote\xFF"},
        {"reset"},
        {"reset", "Title", "--all"},
        {"delete"},
    };
    for (const auto& mistake : mistakes) {
        const auto outcome = style(mistake);
        EXPECT_EQ(outcome.status, 2) << testing::PrintToString(mistake) << outcome.error;
        EXPECT_THAT(outcome.error, StartsWith("corvel: usage: "));
    }
    EXPECT_EQ(style({"set", "Title"}).error,
              "corvel: usage: style set: nothing to change\nTry 'corvel --help'.\n");
    EXPECT_FALSE(std::filesystem::exists(folder().file("config")));
}

TEST_F(StyleCommand, HelpsWithEveryAction)
{
    for (const auto* action : {"list", "show", "set", "add", "reset", "delete"}) {
        const auto outcome = style({action, "--help"});
        EXPECT_EQ(outcome.status, 0) << action;
        EXPECT_THAT(outcome.output, HasSubstr(std::string("corvel style ") + action));
    }
}

} // namespace
