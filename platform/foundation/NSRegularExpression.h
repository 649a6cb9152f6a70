#pragma once

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSRange.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// One match: the whole of it first, then its capture groups. A group that took no part is {NSNotFound, 0}.
struct NSTextCheckingResult {
    std::vector<NSRange> ranges;

    [[nodiscard]] NSRange range() const { return ranges.front(); }
};

/// A pattern of our own over texts of anybody: the time and the memory that one match may take are bounded.
/// Where a bound is reached, one line goes to the log and what was found so far is the result. Of texts
/// longer than 2^31 - 1 units the start is looked at. A value, cheap to copy, safe on any thread.
class NSRegularExpression {
public:
    /// None, with the reason in `error`, for a pattern that is none.
    [[nodiscard]] static std::optional<NSRegularExpression>
    regularExpressionWithPattern(std::u16string_view pattern, NSError* error = nullptr);

    /// All matches, front to back; they do not overlap.
    [[nodiscard]] std::vector<NSTextCheckingResult> matchesInString(std::u16string_view text) const;
    [[nodiscard]] std::optional<NSTextCheckingResult> firstMatchInString(std::u16string_view text) const;
    /// The text with each match replaced by `replacement`, which is taken as it is.
    [[nodiscard]] std::u16string stringByReplacingMatchesInString(std::u16string_view text,
                                                                  std::u16string_view replacement) const;

private:
    struct Pattern;

    explicit NSRegularExpression(std::shared_ptr<const Pattern> pattern);
    [[nodiscard]] std::vector<NSTextCheckingResult> matches(std::u16string_view text,
                                                            std::size_t limit) const;

    std::shared_ptr<const Pattern> m_pattern;
};
