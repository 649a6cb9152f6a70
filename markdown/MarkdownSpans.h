#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// A piece of a paragraph of Markdown that looks the same all over.
struct MarkdownSpan {
    enum class Kind { Text, Code, Image };

    Kind kind = Kind::Text;
    /// Without markers; the description of an image. Line breaks are U+2028.
    std::u16string text;
    bool isStrong = false;
    bool isEmphasized = false;
    bool isStruck = false;
    bool isHighlighted = false;
    bool isSuperscript = false;
    bool isSubscript = false;
    /// What the text leads to, or where the image is; null for nothing.
    std::shared_ptr<const std::u16string> link;
};

/// The spans of a paragraph's text, as CommonMark reads it: emphasis and strong text, code, links and images
/// with their target in parentheses, targets in angle brackets, escaped signs and line breaks; beside them
/// text between tildes, <mark>, <sup>, <sub> and <br>. Lines that end without a break become one. Other HTML,
/// references to characters and to links are text. Targets are read as far as 2,048 units.
///
/// Any text has spans. The time is linear in it.
[[nodiscard]] std::vector<MarkdownSpan> markdownSpans(std::u16string_view text);
