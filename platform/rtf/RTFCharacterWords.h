#pragma once

#include "platform/rtf/RTFCharacterFormat.h"
#include "platform/rtf/RTFParameter.h"

#include <span>
#include <string_view>

using RTFCharacterChange = void (*)(RTFCharacterFormat& format, RTFParameter parameter);

/// A word that changes how the characters behind it look.
struct RTFCharacterWord {
    std::string_view name;
    RTFCharacterChange change;
};

/// In no order.
[[nodiscard]] std::span<const RTFCharacterWord> characterWords();
