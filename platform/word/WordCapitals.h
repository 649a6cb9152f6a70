#pragma once

#include <string>
#include <string_view>

/// UTF-8 text in capitals as far as each letter has one of its own, by which a search still finds the text.
[[nodiscard]] std::string inWordCapitals(std::string_view text);
