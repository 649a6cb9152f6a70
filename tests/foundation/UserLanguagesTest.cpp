#include "platform/foundation/UserLanguages.h"

#include <gmock/gmock.h>

#include <map>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> languagesIn(const std::map<std::string, std::string>& variables)
{
    return userLanguages([&](const char* name) -> const char* {
        const auto found = variables.find(name);
        return found == variables.end() ? nullptr : found->second.c_str();
    });
}

TEST(UserLanguages, AreNoneWhenNothingIsNamed)
{
    EXPECT_THAT(languagesIn({}), IsEmpty());
    EXPECT_THAT(languagesIn({{"LANGUAGE", ""}, {"LC_ALL", ""}, {"LANG", ""}}), IsEmpty());
}

TEST(UserLanguages, TakeTheLocaleFromTheFirstVariableThatIsSet)
{
    EXPECT_THAT(languagesIn({{"LANG", "de"}}), ElementsAre("de"));
    EXPECT_THAT(languagesIn({{"LANG", "de"}, {"LC_MESSAGES", "fr"}}), ElementsAre("fr"));
    EXPECT_THAT(languagesIn({{"LANG", "de"}, {"LC_MESSAGES", "fr"}, {"LC_ALL", "es"}}), ElementsAre("es"));
    EXPECT_THAT(languagesIn({{"LANG", "de"}, {"LC_MESSAGES", ""}, {"LC_ALL", ""}}), ElementsAre("de"));
}

TEST(UserLanguages, GoFromTheParticularToTheGeneral)
{
    EXPECT_THAT(languagesIn({{"LANG", "de_AT.UTF-8"}}), ElementsAre("de_AT", "de"));
    EXPECT_THAT(languagesIn({{"LANG", "ca_ES.UTF-8@valencia"}}),
                ElementsAre("ca_ES@valencia", "ca_ES", "ca@valencia", "ca"));
}

TEST(UserLanguages, PutTheListBeforeTheLocale)
{
    EXPECT_THAT(languagesIn({{"LANGUAGE", "fr_CA:ja"}, {"LANG", "de_DE.UTF-8"}}),
                ElementsAre("fr_CA", "fr", "ja", "de_DE", "de"));
    EXPECT_THAT(languagesIn({{"LANGUAGE", "ja"}}), ElementsAre("ja"));
    EXPECT_THAT(languagesIn({{"LANGUAGE", "ja"}, {"LANG", "C.UTF-8"}}), ElementsAre("ja"));
    EXPECT_THAT(languagesIn({{"LANGUAGE", "::ja:"}}), ElementsAre("ja"));
}

// Programs set LC_ALL=C to read each other's output; the user's list must not change it.
TEST(UserLanguages, AreNoneInThePlainLocale)
{
    for (const char* plain : {"C", "POSIX"}) {
        EXPECT_THAT(languagesIn({{"LANGUAGE", "de"}, {"LC_ALL", plain}}), IsEmpty());
        EXPECT_THAT(languagesIn({{"LANGUAGE", "de"}, {"LANG", plain}}), IsEmpty());
    }
}

TEST(UserLanguages, EndBeforeEnglish)
{
    EXPECT_THAT(languagesIn({{"LANGUAGE", "en_GB:en:de"}, {"LANG", "de_DE.UTF-8"}}), IsEmpty());
    EXPECT_THAT(languagesIn({{"LANGUAGE", "fr:en:de"}}), ElementsAre("fr"));
    EXPECT_THAT(languagesIn({{"LANG", "en_GB.UTF-8"}}), IsEmpty());
}

TEST(UserLanguages, AreNeverPaths)
{
    EXPECT_THAT(languagesIn({{"LANGUAGE", "../../etc:/tmp/x:de/..:a@../b:ja"}}), ElementsAre("ja"));
}

} // namespace
