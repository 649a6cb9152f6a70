#include "platform/foundation/UserLanguages.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace {

std::string_view valueOf(const EnvironmentLookup& environment, const char* name)
{
    const char* value = environment(name);
    return value ? std::string_view(value) : std::string_view();
}

std::string_view localeName(const EnvironmentLookup& environment)
{
    for (const auto* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const auto value = valueOf(environment, name);
        if (!value.empty())
            return value;
    }
    return {};
}

bool isUntranslated(std::string_view locale)
{
    return locale == "C" || locale == "POSIX";
}

bool isLanguageLetter(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z')
        || (character >= '0' && character <= '9') || character == '_' || character == '-';
}

// A name becomes part of a path, so nothing but letters may be in it.
bool isLanguageName(std::string_view name)
{
    return !name.empty() && std::ranges::all_of(name, isLanguageLetter);
}

bool isEnglish(std::string_view name)
{
    const auto language = name.substr(0, name.find('_'));
    return language == "en" || language == "C" || language == "POSIX";
}

void appendOnce(std::vector<std::string>& languages, std::string name)
{
    if (std::ranges::find(languages, name) == languages.end())
        languages.push_back(std::move(name));
}

// "de_AT.UTF-8@euro": the encoding says nothing here, as texts are Unicode throughout.
void appendForms(std::vector<std::string>& languages, std::string_view locale)
{
    const auto modifierStart = std::min(locale.find('@'), locale.size());
    const auto modifier = locale.substr(modifierStart);
    const auto name = locale.substr(0, std::min(locale.find('.'), modifierStart));
    const auto language = name.substr(0, name.find('_'));
    if (!isLanguageName(name) || (!modifier.empty() && !isLanguageName(modifier.substr(1))))
        return;
    for (const auto form : {name, language}) {
        if (!modifier.empty())
            appendOnce(languages, std::string(form) + std::string(modifier));
        appendOnce(languages, std::string(form));
    }
}

} // namespace

std::vector<std::string> userLanguages(const EnvironmentLookup& environment)
{
    const auto locale = localeName(environment);
    if (isUntranslated(locale))
        return {};
    std::vector<std::string> languages;
    auto list = std::string(valueOf(environment, "LANGUAGE")) + ":" + std::string(locale);
    for (std::string_view rest = list; !rest.empty();) {
        const auto end = std::min(rest.find(':'), rest.size());
        appendForms(languages, rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    languages.erase(std::ranges::find_if(languages, isEnglish), languages.end());
    return languages;
}

std::vector<std::string> userLanguages()
{
    return userLanguages([](const char* name) -> const char* {
        return std::getenv(name); // NOLINT(concurrency-mt-unsafe): nobody sets variables
    });
}
