#pragma once

#include "platform/foundation/NSStringComparison.h"
#include "platform/foundation/PatternSearch.h"
#include "platform/foundation/StringFolding.h"

#include <optional>
#include <string>
#include <string_view>

/// Where `term` first occurs in `text`, or last with NSBackwardsSearch; {NSNotFound, 0} when it does not, and
/// for a term in which nothing counts, the empty one included. With `range`, only that part of the text is
/// looked at; what reaches past the end is cut off. One pass, whatever the two are.
[[nodiscard]] NSRange rangeOfString(std::u16string_view text, std::u16string_view term,
                                    NSStringCompareOptions options = 0,
                                    std::optional<NSRange> range = std::nullopt,
                                    std::string_view localeIdentifier = {});

/// A text made ready for searching it many times for one term. Holds a folded copy, not the text itself.
class NSStringSearch {
public:
    NSStringSearch(std::u16string_view text, std::u16string_view term, NSStringCompareOptions options = 0,
                   std::string_view localeIdentifier = {});

    /// The first occurrence at or behind `location`; {NSNotFound, 0} when there is none. Searching on from
    /// the end of each match costs one pass in all.
    [[nodiscard]] NSRange rangeFrom(NSUInteger location) const;
    [[nodiscard]] NSRange lastRange() const;

private:
    /// Whether the match at this folded position covers whole characters.
    [[nodiscard]] bool isWhole(std::size_t start) const;
    [[nodiscard]] NSRange rangeAt(std::size_t start) const;

    FoldedText m_text;
    PatternSearch m_search;
};
