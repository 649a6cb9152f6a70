#pragma once

#include "platform/text/NSAttributedString.h"

#include <string>
#include <string_view>

/// How a stretch of text is written.
struct MarkdownSpanContext {
    /// Headings, and the heads of tables, are bold by themselves.
    bool isHeading = false;
    /// Within a cell there are no line ends.
    bool isCell = false;
    /// Where files are, in the targets that name them; empty for beside the Markdown.
    std::u16string_view filesFolder{};
};

/// A range of one paragraph as Markdown: emphasis, links, code and attachments with their markers, everything
/// else escaped. Line breaks are a backslash and a line end, in cells <br>, in headings a blank. Blanks at
/// the ends are left out.
[[nodiscard]] std::u16string markdownSpansOf(const NSAttributedString& text, NSRange range,
                                             const MarkdownSpanContext& context);

/// Whether all of the range is of a fixed pitch. Not so for an empty one.
[[nodiscard]] bool isMarkdownCode(const NSAttributedString& text, NSRange range);
