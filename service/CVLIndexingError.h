#pragma once

#include "platform/foundation/NSError.h"

#include <map>
#include <string>
#include <string_view>

inline constexpr std::string_view CVLIndexingErrorDomain = "CVLIndexingError";

/// Why a request failed.
enum class CVLIndexingError : int {
    /// The index file could not be opened for writing.
    IndexNotOpened = 10001,
    /// The item's file is not reachable, or its URL is none of a document.
    ItemUnreachable = 10002,
    /// The item could not be added: the index refused it, its content could not be read, or an exception was
    /// raised.
    AddFailed = 10003,
    /// The document could not be given its new name or its new folder.
    MoveFailed = 10004,
};

[[nodiscard]] inline NSError indexingError(CVLIndexingError code,
                                           std::map<std::string, NSErrorValue> userInfo = {})
{
    return {CVLIndexingErrorDomain, static_cast<int>(code), std::move(userInfo)};
}
