#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Turns what a person types into a full-text expression in which every term is quoted, so that no text is a
/// syntax error or reaches the engine as syntax. docs/search.md describes the language:
///
///     two words            both, in any order
///     "two words"          next to each other
///     begin*               every word that begins so
///     one OR other         either
///     one NOT other        the first without the second
///     (one OR two) three   grouping
///
/// Operators are upper-case words. Brackets and quotes that do not match close at the end of the query.
class SearchQuery {
public:
    static constexpr std::size_t kMaximumTermCount = 1000;
    /// Each of ours may become three of FTS5's, whose parser has room for about thirty.
    static constexpr std::size_t kMaximumNesting = 8;

    /// The expression for FTS5's MATCH; none, with the reason in `problem`, when the query has nothing to
    /// search for, only excludes, or is larger than the bounds above.
    [[nodiscard]] static std::optional<std::string> expressionFor(std::string_view query,
                                                                  std::string& problem);
};
