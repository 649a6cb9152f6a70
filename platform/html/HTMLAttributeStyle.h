#pragma once

#include "platform/foundation/NSRange.h"
#include "platform/html/HTMLStyleRules.h"

#include <string_view>

/// What attributes of the tag other than `style` say of its style: `align`, `bgcolor`, the `font` element.
[[nodiscard]] CSSDeclarations declarationsOfAttributes(const HTMLTag& tag);

/// The whole number that an attribute holds, within a thousand million of 0.
[[nodiscard]] NSInteger integerOf(std::string_view attribute, NSInteger otherwise);
