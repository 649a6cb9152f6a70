#pragma once

#include <string>
#include <string_view>

/// What is wrong with a page as markup: it must be XML once its declaration is taken off and its void
/// elements are closed. Empty when nothing is.
[[nodiscard]] std::string faultOfHTML(std::string_view page);
