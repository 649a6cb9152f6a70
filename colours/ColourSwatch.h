#pragma once

#include "platform/drawing/NSImage.h"
#include "platform/foundation/NSGeometry.h"
#include "platform/text/NSColor.h"

namespace CVLExtensions {

/// A disc of the colour with a darker rim, for menus; white when there is no colour. Null when the size is
/// not one that an image can have.
[[nodiscard]] NSImage::Ref menuImageForColor(const NSColor::Ref& color, NSSize size, double scale = 1.0,
                                             NSAppearance appearance = NSAppearance::Light);

/// The system's accent colour, a little darker, for links in text.
[[nodiscard]] NSColor::Ref linkTextColor(NSAppearance appearance = NSAppearance::Light);

} // namespace CVLExtensions
