#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <sstream>

using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class ColourCommand : public Transcript { };

TEST_F(ColourCommand, ShowsTheFormsOfAColour)
{
    const auto outcome = corvel({"colour", "Cantaloupe"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output,
              "Crayons/Cantaloupe  #ffcc66\n  device RGB    1 0.8 0.4 1\n  brightness    light\n");
    EXPECT_THAT(outcome.error, IsEmpty());
}

TEST_F(ColourCommand, AnswersInJSONALineForEachColour)
{
    const auto outcome = corvel({"colour", "--json", "--dark", "textBackgroundColor", "#fff"});
    EXPECT_EQ(outcome.status, 0);
    const auto end = outcome.output.find('\n');
    EXPECT_EQ(nlohmann::json::parse(outcome.output.substr(0, end)).at("hex"), "#1e1e1e");
    EXPECT_EQ(nlohmann::json::parse(outcome.output.substr(end)).at("isWhite"), true);
}

TEST_F(ColourCommand, NamesWhatIsNoColourAndShowsTheRest)
{
    const auto outcome = corvel({"colour", "ultraviolet", "Snow"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, HasSubstr("#ffffff"));
    EXPECT_THAT(outcome.error, HasSubstr("corvel: ultraviolet: there is no such colour"));
}

TEST_F(ColourCommand, ListsTheNamesOnRequestOnly)
{
    EXPECT_THAT(corvel({"colour", "--list"}).output, HasSubstr("Crayons/Licorice\n"));
    EXPECT_EQ(corvel({"colour"}).status, 2);
    EXPECT_EQ(corvel({"colour", "--list", "Snow"}).status, 2);
}

TEST_F(ColourCommand, ListsInJSONWhatItShowsOfEachColour)
{
    const auto outcome = corvel({"colour", "--list", "--json", "--dark"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output,
                HasSubstr(corvel({"colour", "--json", "--dark", "textBackgroundColor"}).output));
    EXPECT_THAT(outcome.output, HasSubstr(corvel({"colour", "--json", "Crayons/Licorice"}).output));
    std::istringstream lines(outcome.output);
    std::string names;
    for (std::string line; std::getline(lines, line);)
        names += nlohmann::json::parse(line).at("name").get<std::string>() + "\n";
    EXPECT_EQ(names, corvel({"colour", "--list"}).output);
}

TEST_F(ColourCommand, KnowsNoColourWithoutAName)
{
    const auto outcome = corvel({"colour", "", "Snow"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, HasSubstr("#ffffff"));
    EXPECT_EQ(outcome.error, "corvel: '': there is no such colour; corvel colour --list has the names\n");
}

} // namespace
