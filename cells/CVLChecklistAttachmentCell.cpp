#include "cells/CVLChecklistAttachmentCell.h"

#include "cells/ChecklistIndentation.h"
#include "cells/LineMetrics.h"
#include "platform/foundation/NSCoder.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/views/NSEvent.h"
#include "platform/views/NSTextView.h"

namespace {

constexpr std::string_view kOnKey = "CVLChecklistAttachmentCellOn";

NSControlStateValue stateValue(bool on)
{
    return on ? NSControlStateValueOn : NSControlStateValueOff;
}

} // namespace

CVLChecklistButtonCell& CVLChecklistAttachmentCell::buttonCell()
{
    if (m_buttonCell)
        return *m_buttonCell;
    m_buttonCell = std::make_unique<CVLChecklistButtonCell>();
    m_buttonCell->setState(stateValue(m_on));
    m_buttonCell->setImagePosition(NSCellImagePosition::NoImage);
    m_buttonCell->setTitle({});
    m_buttonCell->setButtonType(NSButtonType::Switch);
    m_buttonCell->setAction([this] { buttonClicked(*m_buttonCell); });
    return *m_buttonCell;
}

void CVLChecklistAttachmentCell::setOn(bool on)
{
    m_on = on;
    buttonCell().setState(stateValue(on));
}

void CVLChecklistAttachmentCell::buttonClicked(const NSButtonCell& sender)
{
    m_on = sender.state() == NSControlStateValueOn;
}

NSRect CVLChecklistAttachmentCell::buttonFrameWithFrame(NSRect cellFrame, const NSView& /*inView*/)
{
    const auto size = buttonCell().cellSize();
    return {{cellFrame.origin.x + cellFrame.size.width - size.width, cellFrame.origin.y}, size};
}

NSSize CVLChecklistAttachmentCell::cellSize()
{
    return buttonCell().cellSize();
}

NSRect CVLChecklistAttachmentCell::cellFrameForTextContainer(const NSTextContainer& textContainer,
                                                             NSRect /*proposedLineFragment*/,
                                                             NSPoint /*glyphPosition*/,
                                                             NSUInteger characterIndex)
{
    const auto line = lineMetricsAtIndex(textContainer.textStorage(), characterIndex);
    const auto size = buttonCell().cellSize();
    const auto width = (static_cast<double>(indentationLevel()) + 1) * size.width;
    const auto y = line.descender - (size.height - line.lineHeight) * 0.5;
    return NSIntegralRect({{0, y}, {width, size.height}});
}

void CVLChecklistAttachmentCell::drawWithFrame(NSRect cellFrame, NSView& inView)
{
    buttonCell().drawWithFrame(buttonFrameWithFrame(cellFrame, inView), inView);
}

bool CVLChecklistAttachmentCell::trackMouse(const NSEvent& event, NSRect cellFrame, NSView& ofView,
                                            NSUInteger atCharacterIndex, bool untilMouseUp)
{
    const auto buttonFrame = buttonFrameWithFrame(cellFrame, ofView);
    if (!NSPointInRect(ofView.convertPoint(event.locationInWindow(), nullptr), buttonFrame))
        return false;
    const auto isClicked = buttonCell().trackMouse(event, buttonFrame, ofView, untilMouseUp);
    auto* textView = dynamic_cast<NSTextView*>(&ofView);
    if (isClicked && textView && textView->delegate())
        textView->delegate()->textView(*textView, *this, cellFrame, atCharacterIndex);
    return isClicked;
}

NSUInteger CVLChecklistAttachmentCell::indentationLevel() const
{
    const auto* indentation = dynamic_cast<const ChecklistIndentation*>(attachment());
    return indentation ? indentation->indentationLevel() : 0;
}

const NSClass& CVLChecklistAttachmentCell::classObject()
{
    static const NSClass object{"CVLChecklistAttachmentCell", &NSTextAttachmentCell::classObject(),
                                &CVLChecklistAttachmentCell::initWithCoder};
    return object;
}

const NSClass& CVLChecklistAttachmentCell::classForCoder() const
{
    return classObject();
}

NSAny CVLChecklistAttachmentCell::initWithCoder(NSCoder& coder)
{
    auto cell = std::make_shared<CVLChecklistAttachmentCell>();
    cell->setOn(coder.decodeBoolForKey(kOnKey));
    return cell;
}

void CVLChecklistAttachmentCell::encodeWithCoder(NSCoder& coder) const
{
    NSTextAttachmentCell::encodeWithCoder(coder);
    coder.encodeBool(m_on, kOnKey);
}
