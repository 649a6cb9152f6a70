#pragma once

#include "platform/foundation/NSRange.h"

#include <span>
#include <string>
#include <string_view>

/// What `corvel string` answers in JSON, each one value on one line; locations and lengths count UTF-16
/// units. docs/corvel.md describes the forms.

[[nodiscard]] std::string hashtagsLine(std::span<const std::u16string> names,
                                       std::span<const NSRange> ranges);

[[nodiscard]] std::string rangesLine(std::span<const NSRange> ranges);

/// Everything that one line of Markdown is.
[[nodiscard]] std::string markdownLine(std::u16string_view text);
