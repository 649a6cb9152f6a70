#pragma once

#include "platform/html/HTMLDeclarations.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

/// How much a usual font's natural line height is of its size. Line heights of paragraph styles are multiples
/// of the former, those of style sheets of the latter.
inline constexpr double kNaturalLineHeight = 1.2;

/// The list geometry of the platform: each level of lists indents by so much, in points.
inline constexpr double kListIndent = 36;

/// A paragraph's own declarations. Items of lists are indented by their lists, whatever their styles say.
[[nodiscard]] HTMLDeclarations paragraphDeclarations(const NSParagraphStyle& style);

/// Those of a block, of a cell, and of a table around its cells.
[[nodiscard]] HTMLDeclarations blockDeclarations(const NSTextBlock& block);
[[nodiscard]] HTMLDeclarations tableDeclarations(const NSTextTable& table);
