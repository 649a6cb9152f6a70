#include "cells/CVLFileAttachmentCell.h"

#include "platform/drawing/NSGraphicsContext.h"
#include "platform/drawing/NSStringDrawing.h"
#include "platform/drawing/NSWorkspace.h"
#include "platform/foundation/NSStringPaths.h"
#include "platform/foundation/Unicode.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/types/UTType.h"
#include "platform/views/NSView.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace {

/// Between icon and name; the rest of what the cell is higher than both lies below.
constexpr double kGap = 3;

std::u16string fileNameOf(const NSFileWrapper& fileWrapper)
{
    auto name = fileWrapper.filename().value_or(u"");
    return name.empty() ? fileWrapper.preferredFilename().value_or(u"") : name;
}

UTType typeOfFile(std::u16string_view extension, bool isDirectory)
{
    const auto type = UTType::typeWithFilenameExtension(UTF8FromUTF16(extension));
    return type ? *type : *UTType::typeWithIdentifier(isDirectory ? kUTTypeFolder : kUTTypeData);
}

/// What lies so many points below the upper edge of a frame.
NSRect rectFromTop(NSRect frame, double offset, NSSize size, const NSGraphicsContext& context)
{
    const auto fromOrigin = context.isFlipped() ? offset : frame.size.height - offset - size.height;
    return {{frame.origin.x + (frame.size.width - size.width) * 0.5, frame.origin.y + fromOrigin}, size};
}

NSAttributedString captionOf(std::u16string name)
{
    auto style = NSParagraphStyle::defaultParagraphStyle()->mutableCopy();
    style.setLineBreakMode(NSLineBreakMode::TruncatingMiddle);
    return NSAttributedString(
        std::move(name),
        {{std::u16string(NSFontAttributeName), NSFont::systemFontOfSize(NSFont::smallSystemFontSize())},
         {std::u16string(NSForegroundColorAttributeName), NSColor::labelColor()},
         {std::u16string(NSParagraphStyleAttributeName), style.copy()}});
}

} // namespace

void CVLFileAttachmentCell::setAttachment(NSTextAttachment* attachment)
{
    NSTextAttachmentCell::setAttachment(attachment);
    // An attachment that goes takes itself away: the cell shows its file until there is another.
    if (attachment)
        updateForFileWrapper();
}

void CVLFileAttachmentCell::updateForFileWrapper()
{
    const auto wrapper = attachment() ? attachment()->fileWrapper() : nullptr;
    auto name = wrapper ? fileNameOf(*wrapper) : std::u16string();
    const auto extension = pathExtension(name);
    m_iconImage = NSWorkspace::iconForContentType(typeOfFile(extension, wrapper && wrapper->isDirectory()));
    if (wrapper && wrapper->fileAttributes().extensionHidden && !extension.empty())
        name = stringByDeletingPathExtension(name);
    m_filenameString = captionOf(std::move(name));
}

NSSize CVLFileAttachmentCell::cellSize()
{
    if (!m_iconImage)
        updateForFileWrapper();
    const auto name = sizeOfAttributedString(m_filenameString);
    return {std::ceil(std::max(name.width, kIconSide)), std::ceil(name.height + kHeightWithoutName)};
}

NSPoint CVLFileAttachmentCell::cellBaselineOffset()
{
    return {0, -2};
}

void CVLFileAttachmentCell::drawWithFrame(NSRect cellFrame, NSView& inView)
{
    if (!m_iconImage)
        updateForFileWrapper();
    auto& context = inView.graphicsContext();
    m_iconImage->drawInRect(rectFromTop(cellFrame, 0, {kIconSide, kIconSide}, context), context);
    const auto name = sizeOfAttributedString(m_filenameString);
    const NSSize caption{std::min(std::ceil(name.width), cellFrame.size.width), std::ceil(name.height)};
    drawAttributedString(m_filenameString, rectFromTop(cellFrame, kIconSide + kGap, caption, context),
                         context);
}

const NSClass& CVLFileAttachmentCell::classObject()
{
    static const NSClass object{
        "CVLFileAttachmentCell", &NSTextAttachmentCell::classObject(),
        [](NSCoder& /*coder*/) -> NSAny { return std::make_shared<CVLFileAttachmentCell>(); }};
    return object;
}

const NSClass& CVLFileAttachmentCell::classForCoder() const
{
    return classObject();
}
