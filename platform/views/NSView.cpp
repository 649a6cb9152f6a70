#include "platform/views/NSView.h"

void NSView::setNeedsDisplayInRect(NSRect /*rect*/) { }
