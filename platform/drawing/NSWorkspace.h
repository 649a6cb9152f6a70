#pragma once

#include "platform/drawing/NSImage.h"

class UTType;

/// The side of an icon, in points.
inline constexpr double kIconSide = 32;

/// What the desktop shows of files.
class NSWorkspace {
public:
    NSWorkspace() = delete;

    /// The icon of files of a type, kIconSide points square, drawn anew at every scale and in every
    /// appearance: a folder for folders, else a page that tells by a glyph and a colour what the type is, and
    /// by its usual extension, when it has one, which type. Never null.
    [[nodiscard]] static NSImage::Ref iconForContentType(const UTType& contentType);
};
