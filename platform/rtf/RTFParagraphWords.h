#pragma once

#include "platform/rtf/RTFParagraphFormat.h"
#include "platform/rtf/RTFParameter.h"

#include <span>
#include <string_view>

using RTFParagraphChange = void (*)(RTFParagraphFormat& format, RTFParameter parameter);

/// A word that changes how the paragraph is set.
struct RTFParagraphWord {
    std::string_view name;
    RTFParagraphChange change;
};

/// In no order.
[[nodiscard]] std::span<const RTFParagraphWord> paragraphWords();
