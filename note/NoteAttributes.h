#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSRange.h"
#include "platform/text/NSColor.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What a note package's NoteAttributes member says, as far as readers look at it.
struct NoteAttributes {
    static constexpr std::size_t kMostDividerRanges = 1'000'000;

    bool showSmallImages = false;
    /// Null when the package stores none.
    NSColor::Ref backgroundColor;
    /// In the order of the list; of a list with more than kMostDividerRanges the last ones, which are those
    /// that are looked at first.
    std::vector<NSRange> dividerRanges;
    /// A dictionary; nil for none.
    NSAny drawingDataByAttachmentKey;
    /// Whether highlights are stored as colour types.
    bool usesColorTypes = false;

    /// From the bytes of the member. What is no property list says nothing.
    [[nodiscard]] static NoteAttributes attributesFromData(std::string_view data);
};
