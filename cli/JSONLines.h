#pragma once

#include "platform/foundation/NSError.h"
#include "platform/search/SKIndex.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

/// The machine-readable output: each function gives one JSON value on one line. Bytes that are no UTF-8, as
/// file names may hold, are replaced; URLs are exact. docs/corvel.md describes the forms.

[[nodiscard]] std::string itemLine(const std::string& path, const std::optional<NSError>& error);

[[nodiscard]] std::string hitsLine(std::span<const SKSearchHit> hits);

struct IndexStatus {
    std::int64_t documentCount = 0;
    SKDocumentID maximumDocumentID = 0;
    std::uintmax_t byteCount = 0;
    int formatVersion = 0;
};

[[nodiscard]] std::string statusLine(const IndexStatus& status);

/// The text that would be indexed for a file, if there is one, and the name of the rule that gave it.
[[nodiscard]] std::string textLine(const std::string& path, const std::string& rule,
                                   const std::optional<std::string>& text);
