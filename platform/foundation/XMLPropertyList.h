#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"

#include <optional>
#include <string>
#include <string_view>

/// The value of a property list in XML. A dictionary {CF$UID: n} is an NSKeyedArchiverUID. Nil, with
/// PropertyListReadCorrupt in `error`, when the text is no well-formed XML or no property list.
[[nodiscard]] NSAny valueOfXMLPropertyList(std::string_view xml, NSError* error = nullptr);

/// The value as a property list in XML, UTF-8. None, with PropertyListWriteInvalid in `error`, when it is no
/// property list or a text of it cannot stand in XML: control characters, unpaired surrogates. Dates lose
/// what they have beyond whole seconds.
[[nodiscard]] std::optional<std::string> XMLPropertyListWithValue(const NSAny& value,
                                                                  NSError* error = nullptr);
