#pragma once

#include "platform/layout/TextPages.h"

#include <vector>

/// A line of a text, with what is around it that should not be cut off: the borders of its block.
struct PageLine {
    NSRange range;
    double top = 0;
    double bottom = 0;
};

/// Puts the lines, which are in the order of the text, on pages of that height, none of which is empty.
///
/// Each page begins with the highest line that is left and takes all lines that end on it; what crosses its
/// end goes to the next. A line that is higher than a page stands at the top of one.
[[nodiscard]] std::vector<TextPages::Page> cutIntoPages(std::vector<PageLine> lines, double height);
