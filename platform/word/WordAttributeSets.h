#pragma once

#include "platform/text/NSAttributedString.h"

#include <vector>

/// Attributes that runs of a text share, and how many units have them.
struct WordAttributeSet {
    /// Lives as long as the text is not changed.
    const NSAttributes* attributes = nullptr;
    NSUInteger length = 0;
};

/// The sets of attributes in a text's range, each once, in the order in which they come.
[[nodiscard]] std::vector<WordAttributeSet> wordAttributeSets(const NSAttributedString& text, NSRange range);
