#pragma once

#include "platform/text/NSParagraphStyle.h"

#include <optional>
#include <vector>

/// Counts the items of lists in lists. Each list counts for itself, from its starting number, and goes on
/// behind the items of the lists within it.
class MarkdownListNumbers {
public:
    /// The number of the next item of these lists, the outermost first, of which there is one. `written` is
    /// the number that the item's own marker has, if it has one.
    NSInteger next(const NSParagraphStyle::TextLists& lists, std::optional<NSInteger> written);

private:
    struct Count {
        NSTextList::Ref list;
        NSInteger next = 1;
    };

    std::vector<Count> m_counts;
};
