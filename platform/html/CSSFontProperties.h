#pragma once

#include "platform/html/HTMLComputedStyle.h"

#include <string_view>

/// Sets a property of the font of an element that stands in one of the style `parent`. False when the
/// property is none of these; a value that cannot be read changes nothing. Values are in lower case, but for
/// those of font and font-family.
bool setFontProperty(std::string_view property, std::string_view value, const HTMLComputedStyle& parent,
                     HTMLComputedStyle& style);
