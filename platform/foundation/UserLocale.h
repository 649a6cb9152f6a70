#pragma once

#include <string>

/// The identifier of the locale in whose language the user reads and sorts ("de_CH"), from the environment.
/// Empty when none is set or the one set is "C" or "POSIX": then the rules that no language changes hold.
[[nodiscard]] const std::string& userLocaleIdentifier();
