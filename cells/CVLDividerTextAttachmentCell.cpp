#include "cells/CVLDividerTextAttachmentCell.h"

#include "platform/drawing/NSGraphicsContext.h"
#include "platform/foundation/NSAny.h"
#include "platform/text/NSColor.h"
#include "platform/views/NSTextView.h"

#include <cmath>

NSSize CVLDividerTextAttachmentCell::cellSize()
{
    const auto view = textView();
    return {view ? view->textContainer().size().width : 0,
            2 * CVLDividerTextAttachmentCellBorderSize + CVLDividerTextAttachmentCellSize};
}

NSRect CVLDividerTextAttachmentCell::cellFrameForTextContainer(const NSTextContainer& textContainer,
                                                               NSRect /*proposedLineFragment*/,
                                                               NSPoint /*glyphPosition*/,
                                                               NSUInteger /*characterIndex*/)
{
    auto size = cellSize();
    if (!textView())
        size.width = textContainer.size().width;
    return {cellBaselineOffset(), size};
}

NSRect CVLDividerTextAttachmentCell::lineRectWithFrame(NSRect cellFrame)
{
    const auto [origin, size] = cellFrame;
    return {{origin.x + size.width * 0.5 - std::floor(size.width * 0.5),
             std::floor(origin.y + size.height * 0.5 - CVLDividerTextAttachmentCellSize * 0.5)},
            {size.width, CVLDividerTextAttachmentCellSize}};
}

void CVLDividerTextAttachmentCell::drawWithFrame(NSRect cellFrame, NSView& inView)
{
    auto& context = inView.graphicsContext();
    context.fillRect(context.alignedToPixels(lineRectWithFrame(cellFrame)), *NSColor::tertiaryLabelColor());
}

const NSClass& CVLDividerTextAttachmentCell::classObject()
{
    static const NSClass object{
        "CVLDividerTextAttachmentCell", &NSTextAttachmentCell::classObject(),
        [](NSCoder& /*coder*/) -> NSAny { return std::make_shared<CVLDividerTextAttachmentCell>(); }};
    return object;
}

const NSClass& CVLDividerTextAttachmentCell::classForCoder() const
{
    return classObject();
}
