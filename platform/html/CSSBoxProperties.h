#pragma once

#include "platform/html/HTMLComputedStyle.h"

#include <string_view>

/// Sets a property of an element's box. Other properties change nothing. The value is in lower case.
void setBoxProperty(std::string_view property, std::string_view value, HTMLComputedStyle& style);
