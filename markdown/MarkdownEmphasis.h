#pragma once

#include <cstddef>
#include <span>
#include <vector>

/// What Markdown puts text between signs or tags for.
enum class MarkdownStyle { Strong, Emphasis, Strike, Highlight, Superscript, Subscript };

inline constexpr std::size_t kMarkdownStyleCount = 6;

/// Signs that may begin or end a style.
struct MarkdownDelimiter {
    /// The piece of the text that they are.
    std::size_t piece = 0;
    char16_t sign = u'*';
    /// How many signs there were, and how many stand for nothing but themselves.
    std::size_t length = 0;
    std::size_t count = 0;
    bool canOpen = false;
    bool canClose = false;
};

/// The pieces from the first one up to `end` have the style.
struct MarkdownStyleRange {
    MarkdownStyle style = MarkdownStyle::Emphasis;
    std::size_t first = 0;
    std::size_t end = 0;
};

/// Makes pairs of delimiters, which are in the text's order, by CommonMark's rules: two signs are strong, one
/// is emphasis, and one or two tildes strike through. Each pair gives a range and takes its signs off the
/// counts. Linear in the delimiters and their signs.
void pairDelimiters(std::span<MarkdownDelimiter> delimiters, std::vector<MarkdownStyleRange>& ranges);
