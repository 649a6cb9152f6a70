#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSAttributedString.h"

#include <functional>
#include <optional>
#include <string_view>

/// Gives the file that an attachment's name, UTF-8, stands for; null for none.
using RTFMemberFinder = std::function<NSFileWrapper::Ref(std::string_view name)>;

struct RTFDocument {
    NSAttributedString text;
    /// Without the document's type.
    NSAny::Dictionary attributes;
};

/// Reads a document, any bytes; nothing when they do not begin as RTF does. A document that is cut off gives
/// what is there. `keepsMarkers` tells whether the markers of lists are part of the text. Costs time and
/// memory in proportion to the bytes, within the bounds of RTFLimits.h.
[[nodiscard]] std::optional<RTFDocument> readRTFDocument(std::string_view bytes, bool keepsMarkers,
                                                         const RTFMemberFinder& findMember);
