#pragma once

#include <string>
#include <string_view>

/// What the reading and the writing of Markdown's spans know of characters.

/// Blanks, line ends and the ends of the text.
[[nodiscard]] bool isMarkdownBlank(char16_t unit);

/// ASCII punctuation, all of which may be escaped.
[[nodiscard]] bool isMarkdownPunctuation(char16_t unit);

/// Whether the text is an absolute URL: a scheme of two characters at least, a colon, and no blanks.
[[nodiscard]] bool isMarkdownURL(std::u16string_view text);

/// The text without the backslashes that escape something in it.
[[nodiscard]] std::u16string withoutMarkdownEscapes(std::u16string_view text);

/// The text with backslashes before what would be read as something else than itself within a paragraph.
[[nodiscard]] std::u16string escapedMarkdown(std::u16string_view text);

/// A paragraph's text, which is escaped, with a backslash before what would begin another block at its start,
/// or make a table of the line before it.
[[nodiscard]] std::u16string escapedMarkdownStart(std::u16string_view text);

/// Text as code between backquotes, however many it holds itself.
[[nodiscard]] std::u16string markdownCode(std::u16string_view text);

/// A link's target as it stands in parentheses.
[[nodiscard]] std::u16string markdownTarget(std::u16string_view target);
