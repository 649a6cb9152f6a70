#pragma once

#include "platform/foundation/NSRange.h"

#include <optional>
#include <string_view>

/// What a list item begins with.
struct MarkdownBullet {
    /// The sign of a bullet, or what stands behind a number.
    char16_t sign = u'-';
    /// Of an ordered item.
    std::optional<NSInteger> number;
    /// From the marker's first column to the item's text.
    std::size_t width = 0;
};

/// One line of Markdown, taken piece by piece from its start. Tabs stand for blanks up to the next of every
/// fourth column.
class MarkdownLine {
public:
    explicit MarkdownLine(std::u16string_view text)
        : m_rest(text)
    {
    }

    /// What has not been taken.
    [[nodiscard]] std::u16string_view rest() const { return m_rest; }

    /// The column in which the rest begins.
    [[nodiscard]] std::size_t column() const { return m_column; }

    [[nodiscard]] bool isBlank() const;

    /// Takes the blanks that come, as far as `mostColumns`.
    void takeBlanks(std::size_t mostColumns = SIZE_MAX);
    /// Takes quote marks with their blanks, no more than `most`; how many there were.
    std::size_t takeQuoteMarks(std::size_t most);
    /// Takes the marker of a list item with the blank behind it.
    std::optional<MarkdownBullet> takeBullet();
    /// Takes the box of a checklist item with the blank behind it: whether it is ticked.
    std::optional<bool> takeBox();
    /// The level of a heading whose marker stands here; the rest is then its text. 0 for none.
    int takeHeading();

    /// Whether the rest is a line across the page.
    [[nodiscard]] bool isRule() const;
    /// 1 or 2 when the rest makes a heading of the paragraph above it; 0 for neither.
    [[nodiscard]] int underlineLevel() const;
    /// How many backquotes or tildes the rest begins with when it opens code, else 0; what it closes has at
    /// most so many of the same.
    [[nodiscard]] std::size_t fenceLength() const;
    [[nodiscard]] bool closesFence(char16_t sign, std::size_t length) const;

private:
    void take(std::size_t count);

    std::u16string_view m_rest;
    std::size_t m_column = 0;
};
