#pragma once

#include "platform/foundation/BinaryPropertyList.h"
#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"

#include <optional>
#include <string>

/// The whole list as one value. What is stored once and referred to often is one shared value here too. Nil,
/// with PropertyListReadCorrupt in `error`, when references run in a circle, a key is no text, or a limit of
/// PropertyListLimits.h is reached.
[[nodiscard]] NSAny valueOfPropertyList(const BinaryPropertyList& list, NSError* error = nullptr);

/// The value in binary form; a collection that occurs often is stored once. None, with
/// PropertyListWriteInvalid in `error`, when the value is no property list.
[[nodiscard]] std::optional<std::string> binaryPropertyListWithValue(const NSAny& value,
                                                                     NSError* error = nullptr);
