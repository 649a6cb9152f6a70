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

/// What becomes of the markers of lists that stand in the text.
enum class RTFListMarkerText { Dropped, AsWritten, BetweenTabs };

/// Reads a document, any bytes; nothing when they do not begin as RTF does. A document that is cut off gives
/// what is there. Costs time and memory in proportion to the bytes, within the bounds of RTFLimits.h.
[[nodiscard]] std::optional<RTFDocument> readRTFDocument(std::string_view bytes, RTFListMarkerText markers,
                                                         const RTFMemberFinder& findMember);
