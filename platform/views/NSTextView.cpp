#include "platform/views/NSTextView.h"

void NSTextViewDelegate::textView(NSTextView& /*textView*/, NSTextAttachmentCell& /*clickedOnCell*/,
                                  NSRect /*inRect*/, NSUInteger /*atIndex*/)
{
}
