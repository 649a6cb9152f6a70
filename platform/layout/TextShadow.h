#pragma once

#include "platform/foundation/NSGeometry.h"

#include <functional>

class NSGraphicsContext;
class NSShadow;

/// Draws the shadow of what `drawInk` draws within the rectangle. Blurring is done by a few faint shadows
/// around the place, so that it stays lines and letters in a PDF.
void drawShadow(const NSShadow& shadow, NSRect inRect, NSGraphicsContext& context,
                const std::function<void()>& drawInk);
