#pragma once

#include "platform/layout/TextFlow.h"

/// Places the paragraphs of a table, each of which is in one of its cells at that depth. Rows are as high as
/// their highest cell; a cell over several rows makes the last of them higher where it has to. Rows of which
/// no cell begins are left out. Gives the table's height.
///
/// Where a table collapses its borders, a cell that is not in the first column or row leaves that border to
/// its neighbour.
double placeTable(TextFlow& flow, const NSTextTable::Ref& table, TextFlow::Paragraphs paragraphs,
                  std::size_t depth, NSPoint corner, double width);
