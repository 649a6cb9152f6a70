#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSRange.h"
#include "platform/text/NSColor.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What a note package's NoteAttributes member says, as far as readers look at it.
struct NoteAttributes {
    bool showSmallImages = false;
    /// Null when the package stores none.
    NSColor::Ref backgroundColor;
    /// In the order of the list.
    std::vector<NSRange> dividerRanges;
    /// A dictionary; nil for none.
    NSAny drawingDataByAttachmentKey;
    /// Whether highlights are stored as colour types.
    bool usesColorTypes = false;

    /// From the bytes of the member. What is no property list says nothing.
    [[nodiscard]] static NoteAttributes attributesFromData(std::string_view data);
};
