#pragma once

#include "platform/foundation/NSRange.h"
#include "platform/text/NSTextAttachmentCell.h"
#include "platform/views/NSTextContainer.h"
#include "platform/views/NSView.h"

class NSTextView;

/// What a host is told about what users do in its text view. Each message is optional.
class NSTextViewDelegate {
public:
    NSTextViewDelegate() = default;
    NSTextViewDelegate(const NSTextViewDelegate&) = delete;
    NSTextViewDelegate& operator=(const NSTextViewDelegate&) = delete;
    virtual ~NSTextViewDelegate() = default;

    /// The user clicked on the cell of the attachment at the index. The rectangle is the cell's frame in the
    /// view.
    virtual void textView(NSTextView& textView, NSTextAttachmentCell& clickedOnCell, NSRect inRect,
                          NSUInteger atIndex);
};

/// A view that shows a text. The host implements it, as it does NSView.
class NSTextView : public NSView {
public:
    [[nodiscard]] virtual const NSTextContainer& textContainer() const = 0;

    /// Null when there is none.
    [[nodiscard]] virtual NSTextViewDelegate* delegate() const = 0;
};
