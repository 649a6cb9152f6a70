#pragma once

#include "platform/foundation/NSRange.h"
#include "platform/text/NSParagraphStyle.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A list that blocks stand in. Lists of one number are the same list.
struct MarkdownList {
    std::size_t identifier = 0;
    bool isOrdered = false;
    NSInteger start = 1;
};

/// A paragraph of Markdown, a heading, a piece of code, a line across the page or a table.
struct MarkdownBlock {
    enum class Kind { Paragraph, Heading, Code, Rule, Table };

    Kind kind = Kind::Paragraph;
    /// Of a heading, 1 to 6.
    int level = 0;
    /// How many quotes it stands in.
    std::size_t quoteDepth = 0;
    /// The lists that it stands in, the outermost first.
    std::vector<MarkdownList> lists;
    /// Whether an item of the innermost list begins with it, which number that has, and whether its box is
    /// ticked when it has one.
    bool beginsItem = false;
    NSInteger number = 0;
    std::optional<bool> isTicked;
    /// With the markers of spans, its lines with "\n" between them.
    std::u16string text;
    /// Of a table: how its columns are aligned, and its rows of cells, the first of them the head, which has
    /// a cell for each column. The others have no more, and perhaps fewer.
    std::vector<NSTextAlignment> alignments;
    std::vector<std::vector<std::u16string>> rows;
};

/// Reads the blocks of a text, from its start. What is read is the part of CommonMark that notes are written
/// in: headings of both kinds, paragraphs, lists in lists, boxes to tick, quotes whose every line has its
/// mark, fenced code, rules, and tables with a head and alignments. Code by indentation is none here, so that
/// a list without its parent stays a list; HTML and link definitions are text. Lists are read 16 deep and
/// quotes 8; what is deeper stands at the bound.
///
/// Any text is Markdown. The time is linear in it.
void readMarkdownBlocks(std::u16string_view text, const std::function<void(const MarkdownBlock&)>& visitor);
