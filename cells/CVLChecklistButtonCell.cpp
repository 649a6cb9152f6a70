#include "cells/CVLChecklistButtonCell.h"

NSSize CVLChecklistButtonCell::cellSize() const
{
    return {CVLChecklistRightBorder + CVLChecklistImageDimension, CVLChecklistImageDimension};
}

NSRect CVLChecklistButtonCell::imageRectForBounds(NSRect bounds) const
{
    const auto y = bounds.origin.y + bounds.size.height * 0.5 - CVLChecklistImageDimension * 0.5;
    return {{bounds.origin.x, y}, {CVLChecklistImageDimension, CVLChecklistImageDimension}};
}
