#pragma once

#include "platform/html/HTMLStyleRules.h"

#include <string_view>

/// The rules by which pages look when they say nothing.
[[nodiscard]] const HTMLStyleRules& defaultHTMLRules();

/// Whether an element of this name is a block by itself.
[[nodiscard]] bool isBlockElement(std::string_view name);
