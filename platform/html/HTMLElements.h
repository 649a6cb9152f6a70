#pragma once

#include <string_view>

/// How an element takes part in the lines of a page.
enum class HTMLLayout {
    /// Within a word even: <b>w</b>ord is one word.
    Inline,
    /// On lines of its own.
    Block,
    /// Ends a line and holds nothing.
    LineBreak,
    /// Beside others on a line.
    Cell,
    /// On lines of its own, with its white space kept.
    Preformatted,
};

/// What stands between an element's tags.
enum class HTMLContentKind {
    Markup,
    /// Text with character references but without tags.
    Characters,
    /// Text as it is.
    Raw,
    /// Nothing that a reader of the page sees.
    Hidden,
};

/// Names are in lower case. Unknown elements are inline and hold markup.
[[nodiscard]] HTMLLayout layoutOfElement(std::string_view name);
[[nodiscard]] HTMLContentKind contentKindOfElement(std::string_view name);
