#pragma once

#include <cstdint>
#include <optional>

/// The number behind a control word, if it has one.
struct RTFParameter {
    std::optional<std::int32_t> value;

    [[nodiscard]] std::int32_t valueOr(std::int32_t usual) const { return value.value_or(usual); }

    /// Words that switch something on switch it off with a 0.
    [[nodiscard]] bool isOn() const { return valueOr(1) != 0; }
};
