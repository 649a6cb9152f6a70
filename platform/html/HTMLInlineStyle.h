#pragma once

#include "platform/html/HTMLFont.h"
#include "platform/html/HTMLStyleSheet.h"
#include "platform/text/NSAttributedString.h"

#include <string>
#include <string_view>
#include <vector>

/// An element around a piece of text.
struct HTMLInlineElement {
    std::string_view name;
    /// With the blank before them.
    std::string attributes;

    friend bool operator==(const HTMLInlineElement&, const HTMLInlineElement&) = default;
};

/// The elements around text of these attributes, from the outside, where text without any is set in `base`.
[[nodiscard]] std::vector<HTMLInlineElement> inlineElements(const NSAttributes& attributes,
                                                            const HTMLBaseStyle& base, HTMLStyleSheet& sheet);
