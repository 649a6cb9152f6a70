#include "cells/CVLChecklistButtonCell.h"

#include "platform/drawing/NSImage.h"
#include "platform/text/NSColor.h"
#include "platform/views/NSView.h"

#include <vector>

namespace {

NSImage::Ref onImage()
{
    static const auto image = NSImage::imageWithSystemSymbolName(u"checkmark.circle.fill",
                                                                 std::vector{NSColor::textBackgroundColor(),
                                                                             NSColor::controlAccentColor(),
                                                                             NSColor::controlAccentColor()});
    return image;
}

NSImage::Ref offImage()
{
    static const auto image = NSImage::imageWithSystemSymbolName(
        u"circle", std::vector{NSColor::secondaryLabelColor(), NSColor::textBackgroundColor()});
    return image;
}

} // namespace

NSSize CVLChecklistButtonCell::cellSize() const
{
    return {CVLChecklistRightBorder + CVLChecklistImageDimension, CVLChecklistImageDimension};
}

NSRect CVLChecklistButtonCell::imageRectForBounds(NSRect bounds) const
{
    const auto y = bounds.origin.y + bounds.size.height * 0.5 - CVLChecklistImageDimension * 0.5;
    return {{bounds.origin.x, y}, {CVLChecklistImageDimension, CVLChecklistImageDimension}};
}

void CVLChecklistButtonCell::drawWithFrame(NSRect cellFrame, NSView& inView) const
{
    const auto image = state() == NSControlStateValueOn ? onImage() : offImage();
    image->drawInRect(imageRectForBounds(cellFrame), inView.graphicsContext());
}
