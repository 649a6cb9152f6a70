#pragma once

#include "platform/foundation/NSGeometry.h"
#include "platform/foundation/NSRange.h"
#include "platform/layout/AttachmentImage.h"

class NSTextAttachment;
class NSTextContainer;
class NSTextView;

/// The side of the box that stands for an attachment of which nothing can be shown.
inline constexpr double kMissingAttachmentSide = 16;

/// The room that an attachment takes, from the point on the baseline where it stands, y upwards: what its
/// cell asks for, cut to `widest`; without a cell its bounds, else its picture's size, shrunk in proportion.
/// `index` is the attachment's place in the container's text.
[[nodiscard]] NSRect attachmentRoom(NSTextAttachment& attachment, const NSTextContainer& container,
                                    NSUInteger index, double widest, const AttachmentImage& image);

/// Draws the attachment in its frame, which is in the view's coordinates, y downwards: the cell, the picture,
/// or an empty box.
void drawAttachment(NSTextAttachment& attachment, NSRect frame, NSTextView& view,
                    const AttachmentImage& image);
