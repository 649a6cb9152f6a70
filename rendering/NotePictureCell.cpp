#include "rendering/NotePictureCell.h"

#include "platform/drawing/NSGraphicsContext.h"
#include "platform/images/ImageFile.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/views/NSTextContainer.h"
#include "platform/views/NSView.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// However little room there is, so much of a picture is seen.
constexpr double kNarrowestPicture = 8;
/// Corners of pictures are cut by no more than their sides.
constexpr double kFrameWidth = 1;

bool isSide(double length)
{
    return std::isfinite(length) && length > 0;
}

NSSize shrunk(NSSize size, double widest, double highest)
{
    const auto share = std::min({1.0, widest / size.width, highest / size.height});
    return {size.width * share, size.height * share};
}

/// How wide the lines of the paragraph are.
double lineWidth(const NSTextContainer& container, NSUInteger index)
{
    const auto* text = container.textStorage();
    const auto column = container.size().width;
    const auto style
        = text ? text->attribute(NSParagraphStyleAttributeName, index).object<NSParagraphStyle>() : nullptr;
    if (!style)
        return column;
    const auto indent = std::max({0.0, style->headIndent(), style->firstLineHeadIndent()});
    const auto end = style->tailIndent() > 0 ? style->tailIndent() : column + style->tailIndent();
    return std::clamp(std::min(end, column) - indent, kNarrowestPicture, std::max(column, kNarrowestPicture));
}

void drawFrame(NSRect frame, NSGraphicsContext& context)
{
    const auto color = NSColor::tertiaryLabelColor();
    const auto [origin, size] = frame;
    context.fillRect({origin, {size.width, kFrameWidth}}, *color);
    context.fillRect({{origin.x, origin.y + size.height - kFrameWidth}, {size.width, kFrameWidth}}, *color);
    context.fillRect({origin, {kFrameWidth, size.height}}, *color);
    context.fillRect({{origin.x + size.width - kFrameWidth, origin.y}, {kFrameWidth, size.height}}, *color);
}

} // namespace

const NSData* dataOfAttachment(const NSTextAttachment& attachment)
{
    if (const auto& file = attachment.fileWrapper())
        return file->isRegularFile() ? file->regularFileContents() : nullptr;
    return attachment.contents() ? &*attachment.contents() : nullptr;
}

std::shared_ptr<NotePictureCell>
NotePictureCell::cellWithPicture(const std::shared_ptr<NSTextAttachment>& picture,
                                 const PictureOptions& options)
{
    const auto* data = dataOfAttachment(*picture);
    const auto natural = data ? sizeOfImage(data->bytes) : std::nullopt;
    if (!natural)
        return nullptr;
    const auto own = picture->bounds().size;
    return std::make_shared<NotePictureCell>(
        picture, isSide(own.width) && isSide(own.height) ? own : *natural, options);
}

NotePictureCell::NotePictureCell(std::shared_ptr<NSTextAttachment> picture, NSSize size,
                                 const PictureOptions& options)
    : m_picture(std::move(picture))
    , m_size(size)
    , m_options(options)
{
}

NSSize NotePictureCell::cellSize()
{
    return shrunk(m_size, m_size.width, m_options.highest);
}

NSPoint NotePictureCell::cellBaselineOffset()
{
    return m_picture->bounds().origin;
}

NSRect NotePictureCell::cellFrameForTextContainer(const NSTextContainer& textContainer,
                                                  NSRect /*proposedLineFragment*/, NSPoint /*glyphPosition*/,
                                                  NSUInteger characterIndex)
{
    return {cellBaselineOffset(),
            shrunk(m_size, lineWidth(textContainer, characterIndex), m_options.highest)};
}

void NotePictureCell::drawWithFrame(NSRect cellFrame, NSView& inView)
{
    auto& context = inView.graphicsContext();
    const auto* data = dataOfAttachment(*m_picture);
    const NSSize pixels{cellFrame.size.width * m_options.pixelsPerPoint,
                        cellFrame.size.height * m_options.pixelsPerPoint};
    if (const auto image = data ? imageWithData(data->bytes, pixels) : nullptr)
        return image->drawInRect(cellFrame, context);
    drawFrame(cellFrame, context);
}
