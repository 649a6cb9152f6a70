#include "platform/text/NSTextAttachmentCell.h"

#include "platform/foundation/NSAny.h"

NSSize NSTextAttachmentCell::cellSize()
{
    return {};
}

NSPoint NSTextAttachmentCell::cellBaselineOffset()
{
    return {};
}

NSRect NSTextAttachmentCell::cellFrameForTextContainer(const NSTextContainer& /*textContainer*/,
                                                       NSRect /*proposedLineFragment*/,
                                                       NSPoint /*glyphPosition*/,
                                                       NSUInteger /*characterIndex*/)
{
    return {cellBaselineOffset(), cellSize()};
}

void NSTextAttachmentCell::drawWithFrame(NSRect /*cellFrame*/, NSView& /*inView*/) { }

bool NSTextAttachmentCell::trackMouse(const NSEvent& /*event*/, NSRect /*cellFrame*/, NSView& /*ofView*/,
                                      NSUInteger /*atCharacterIndex*/, bool /*untilMouseUp*/)
{
    return false;
}

const NSClass& NSTextAttachmentCell::classObject()
{
    static const NSClass object{"NSTextAttachmentCell", &NSObjectClass, [](NSCoder& /*coder*/) -> NSAny {
                                    return std::make_shared<NSTextAttachmentCell>();
                                }};
    return object;
}

const NSClass& NSTextAttachmentCell::classForCoder() const
{
    return classObject();
}

void NSTextAttachmentCell::encodeWithCoder(NSCoder& /*coder*/) const { }
