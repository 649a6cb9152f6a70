#pragma once

#include "platform/foundation/NSRange.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The table that tells an archived text's runs: for each its length and the index of its attributes, every
/// number in groups of seven bits, low group first, with the high bit set on all bytes but the last.
struct ArchivedRun {
    NSUInteger length = 0;
    std::size_t attributesIndex = 0;

    friend bool operator==(const ArchivedRun&, const ArchivedRun&) = default;
};

void appendRun(std::string& table, ArchivedRun run);

/// The runs of a text of `textLength` units: what is behind those that fill it is not looked at, and the last
/// is cut to it. None when a number is cut off or too large, or the runs do not reach the text's end.
[[nodiscard]] std::optional<std::vector<ArchivedRun>> runsFromTable(std::string_view table,
                                                                    NSUInteger textLength);
