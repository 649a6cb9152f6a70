#include "platform/layout/AttachmentRoom.h"

#include "platform/drawing/NSGraphicsContext.h"
#include "platform/drawing/NSImage.h"
#include "platform/layout/LayoutLimits.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/views/NSTextView.h"

#include <algorithm>

namespace {

NSRect bounded(NSRect rect)
{
    return {{boundedLength(rect.origin.x, -kLargestLength), boundedLength(rect.origin.y, -kLargestLength)},
            {boundedLength(rect.size.width), boundedLength(rect.size.height)}};
}

NSSize shrunk(NSSize size, double widest)
{
    if (size.width <= widest)
        return size;
    return {widest, size.height * (widest / size.width)};
}

NSSize naturalSize(const NSTextAttachment& attachment, const AttachmentImage& image)
{
    const auto picture = image ? image(attachment) : nullptr;
    return picture ? picture->size() : NSSize{kMissingAttachmentSide, kMissingAttachmentSide};
}

void drawEmptyBox(NSRect frame, NSGraphicsContext& context)
{
    const auto color = NSColor::tertiaryLabelColor();
    const auto [origin, size] = frame;
    context.fillRect({origin, {size.width, 1}}, *color);
    context.fillRect({{origin.x, origin.y + size.height - 1}, {size.width, 1}}, *color);
    context.fillRect({{origin.x, origin.y + 1}, {1, size.height - 2}}, *color);
    context.fillRect({{origin.x + size.width - 1, origin.y + 1}, {1, size.height - 2}}, *color);
}

} // namespace

NSRect attachmentRoom(NSTextAttachment& attachment, const NSTextContainer& container, NSUInteger index,
                      double widest, const AttachmentImage& image)
{
    if (const auto cell = attachment.attachmentCell()) {
        auto frame = bounded(cell->cellFrameForTextContainer(
            container, {{0, 0}, {container.size().width, kLargestLength}}, {0, 0}, index));
        frame.size.width = std::min(frame.size.width, widest);
        return frame;
    }
    auto room = bounded(attachment.bounds());
    if (room.size.width == 0 || room.size.height == 0)
        room.size = bounded({{}, naturalSize(attachment, image)}).size;
    room.size = shrunk(room.size, widest);
    return room;
}

void drawAttachment(NSTextAttachment& attachment, NSRect frame, NSTextView& view,
                    const AttachmentImage& image)
{
    if (const auto cell = attachment.attachmentCell())
        return cell->drawWithFrame(frame, view);
    if (const auto picture = image ? image(attachment) : nullptr)
        return picture->drawInRect(frame, view.graphicsContext());
    drawEmptyBox(frame, view.graphicsContext());
}
