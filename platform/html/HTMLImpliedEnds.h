#pragma once

#include "platform/html/HTMLOpenElements.h"

#include <string_view>

/// Which elements tags end. Each gives the place of the outermost one that ends, with all within it, or
/// HTMLOpenElement::kNone.

/// By the start tag of an element of this name: an item by the next one, a cell by the next cell or row,
/// a link by the next link. Paragraphs and headings are another matter.
[[nodiscard]] std::size_t elementEndedByStart(std::string_view name, const HTMLOpenElements& elements);

/// By the end tag of this name. It does not reach out of a cell or a table.
[[nodiscard]] std::size_t elementEndedByEnd(std::string_view name, const HTMLOpenElements& elements);

/// The paragraph that is open in the innermost cell or table, which a block's start ends.
[[nodiscard]] std::size_t openParagraph(const HTMLOpenElements& elements);
