#include "platform/foundation/NSBundle.h"

#include "platform/foundation/MessageCatalogue.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/Unicode.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <memory>
#include <regex>
#include <set>
#include <sstream>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr std::array kLanguages = {"de", "es", "fr", "ja"};

const std::string kShare = CORVEL_BUILD_DIR "/share";

std::string fileText(const std::filesystem::path& path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

std::vector<std::string> allMatches(const std::string& text, const char* pattern)
{
    const std::regex expression(pattern);
    std::vector<std::string> matches;
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
        matches.push_back((*match)[1]);
    return matches;
}

/// The keys of the template, its header's empty one left out.
std::set<std::string> templateKeys()
{
    const auto keys = allMatches(fileText(CORVEL_SOURCE_DIR "/po/corvel.pot"), "\nmsgid \"([^\"\n]+)\"");
    return {keys.begin(), keys.end()};
}

auto translationsInto(const std::string& language)
{
    const auto path = kShare + "/locale/" + language + "/LC_MESSAGES/corvel.mo";
    return MessageCatalogue::readFile(path).value().translations();
}

/// What a program of the build tree shows for a key when nothing is in its environment but `variables`.
std::string shownIn(const std::string& variables, const std::string& key)
{
    const auto command = "env -i " + variables + " " CORVEL_BUILD_DIR "/tests/localized_text '" + key + "'";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(::popen(command.c_str(), "r"), ::pclose);
    std::array<char, 256> line{};
    const char* text = std::fgets(line.data(), static_cast<int>(line.size()), output.get());
    return text ? text : "";
}

TEST(NSBundle, GivesTheKeyWithoutATranslation)
{
    const NSBundle german(kShare, {"de"});
    EXPECT_EQ(german.localizedStringForKey(u"No text of this program"), u"No text of this program");
    EXPECT_EQ(german.localizedStringForKey(u""), u"");
    const NSBundle english(kShare, {});
    EXPECT_EQ(english.localizedStringForKey(u"Title"), u"Title");
}

TEST(NSBundle, TakesTheFirstLanguageThatHasTheText)
{
    const NSBundle bundle(kShare, {"pt", "fr", "de"});
    EXPECT_EQ(bundle.localizedStringForKey(u"Title"), u"Titre");
}

TEST(NSBundle, LogsACatalogueThatCannotBeUsed)
{
    const TemporaryFolder folder;
    (void)folder.write("locale/de/LC_MESSAGES/corvel.mo", "This is no catalogue, whatever it is called.");
    std::vector<std::string> lines;
    const NSLogCapture log([&](std::string_view line) { lines.emplace_back(line); });
    const NSBundle bundle(folder.path().native(), {"de", "fr"});
    EXPECT_THAT(lines, ElementsAre(HasSubstr("locale/de/LC_MESSAGES/corvel.mo: no message catalogue")));
    EXPECT_EQ(bundle.localizedStringForKey(u"Title"), u"Title");
}

TEST(NSBundle, FindsResourceFiles)
{
    const TemporaryFolder folder;
    const auto table = folder.write("corvel/Table.plist", "");
    const auto plain = folder.write("corvel/README", "");
    const NSBundle bundle(folder.path().native(), {});
    EXPECT_EQ(bundle.URLForResource("Table", "plist"), NSURL::fileURLWithPath(table));
    EXPECT_EQ(bundle.URLForResource("README", ""), NSURL::fileURLWithPath(plain));
    EXPECT_EQ(bundle.URLForResource("Missing", "plist"), std::nullopt);
}

TEST(NSBundle, SaysWhatTheProgramIs)
{
    const auto& bundle = NSBundle::mainBundle();
    EXPECT_EQ(bundle.objectForInfoDictionaryKey(u"CFBundleIdentifier"), NSAny(u"com.tessel.corvel"));
    const auto version = bundle.objectForInfoDictionaryKey(u"CFBundleShortVersionString");
    ASSERT_TRUE(version.string());
    EXPECT_THAT(UTF8FromUTF16(*version.string()), testing::MatchesRegex("[0-9]+\\.[0-9]+\\.[0-9]+"));
    EXPECT_TRUE(bundle.objectForInfoDictionaryKey(u"CFBundleName").isNil());
}

TEST(NSBundle, SpeaksTheLanguageOfTheEnvironment)
{
    EXPECT_EQ(shownIn("LANG=de_DE.UTF-8", "Title"), "Titel\n");
    EXPECT_EQ(shownIn("LANG=fr_CA", "Title"), "Titre\n");
    EXPECT_EQ(shownIn("LC_ALL=es_ES.ISO-8859-1", "Title"), "T\xC3\xADtulo\n");
    EXPECT_EQ(shownIn("LC_MESSAGES=ja_JP.UTF-8", "Title"),
              "\xE3\x82\xBF\xE3\x82\xA4\xE3\x83\x88\xE3\x83\xAB\n");
    EXPECT_EQ(shownIn("LANG=C.UTF-8 LANGUAGE=de", "Title"), "Titel\n");
    EXPECT_EQ(shownIn("LANG=C LANGUAGE=de", "Title"), "Title\n");
    EXPECT_EQ(shownIn("", "Title"), "Title\n");
}

TEST(NSBundle, TakesAnotherShareFolderFromTheEnvironment)
{
    const TemporaryFolder folder;
    const auto variables = "LANG=de CORVEL_SHARE_DIR=" + folder.path().native();
    EXPECT_EQ(shownIn(variables, "Title"), "Title\n");
}

TEST(Catalogues, HaveExactlyTheTextsOfTheTemplate)
{
    const auto keys = templateKeys();
    ASSERT_GE(keys.size(), 24U);
    for (const auto* language : kLanguages) {
        std::set<std::string> translated;
        for (const auto& [key, translation] : translationsInto(language))
            translated.insert(UTF8FromUTF16(key));
        EXPECT_EQ(translated, keys) << language;
    }
}

TEST(Catalogues, KeepThePlaceholders)
{
    constexpr const char* kPlaceholder = "(%l?[a-zA-Z@%])";
    for (const auto* language : kLanguages) {
        for (const auto& [key, translation] : translationsInto(language)) {
            const auto text = UTF8FromUTF16(key);
            EXPECT_EQ(allMatches(UTF8FromUTF16(translation), kPlaceholder), allMatches(text, kPlaceholder))
                << language << ": " << text;
        }
    }
}

TEST(Catalogues, HaveEveryTextThatTheSourcesAskFor)
{
    const auto keys = templateKeys();
    std::vector<std::string> missing;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(CORVEL_SOURCE_DIR)) {
        const auto path = entry.path();
        if (path.extension() != ".cpp" || path.native().starts_with(CORVEL_SOURCE_DIR "/tests"))
            continue;
        for (const auto& key : allMatches(fileText(path), "localizedStringForKey\\(\\s*u\"([^\"]+)\""))
            if (!keys.contains(key))
                missing.push_back(path.native() + ": " + key);
    }
    EXPECT_THAT(missing, IsEmpty());
}

} // namespace
