#pragma once

#include <functional>
#include <string>
#include <vector>

/// What an environment variable holds; null when it is not set.
using EnvironmentLookup = std::function<const char*(const char* name)>;

/// The languages in which the user wants texts, best first, as the names of catalogue folders: "de_AT", "de".
/// As gettext chooses them: the locale is the first of LC_ALL, LC_MESSAGES and LANG that is not empty; for
/// the locales "C" and "POSIX" there are none. Otherwise LANGUAGE, a list with colons, goes before the
/// locale, also when no locale is named at all. Each name is followed by its more general forms.
///
/// The list ends before the first English name: the texts' keys are English, so nothing behind it is ever
/// asked.
[[nodiscard]] std::vector<std::string> userLanguages(const EnvironmentLookup& environment);

/// The same for this process.
[[nodiscard]] std::vector<std::string> userLanguages();
