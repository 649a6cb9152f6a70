#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/text/NSTextAttachmentCell.h"

#include <memory>
#include <optional>

class NSTextAttachment;

/// How pictures of a note are shown.
struct PictureOptions {
    /// The highest a picture may be, in points: of the page that it stands on, or of small pictures.
    double highest = 0;
    /// How closely pictures are decoded.
    double pixelsPerPoint = 1;
};

/// The cell of an image that is shown in its place in the text: as large as the attachment's bounds say, else
/// with a point for each pixel, in proportion never wider than the lines of its paragraph and never higher
/// than the options say. Decoded whenever it is drawn, with the pixels that are then seen, and never kept.
class NotePictureCell final : public NSTextAttachmentCell {
public:
    /// Null when the attachment is no image that can be read. `picture` is what holds the image.
    [[nodiscard]] static std::shared_ptr<NotePictureCell>
    cellWithPicture(const std::shared_ptr<NSTextAttachment>& picture, const PictureOptions& options);

    /// For the function above.
    NotePictureCell(std::shared_ptr<NSTextAttachment> picture, NSSize size, const PictureOptions& options);

    /// In a column of any width.
    [[nodiscard]] NSSize cellSize() override;
    [[nodiscard]] NSPoint cellBaselineOffset() override;
    [[nodiscard]] NSRect cellFrameForTextContainer(const NSTextContainer& textContainer,
                                                   NSRect proposedLineFragment, NSPoint glyphPosition,
                                                   NSUInteger characterIndex) override;
    /// An empty frame when the image turns out to be broken.
    void drawWithFrame(NSRect cellFrame, NSView& inView) override;

    [[nodiscard]] bool wantsToTrackMouse() const override { return false; }

private:
    std::shared_ptr<NSTextAttachment> m_picture;
    NSSize m_size;
    PictureOptions m_options;
};

/// The bytes of an attachment's file, or its contents; null for none.
[[nodiscard]] const NSData* dataOfAttachment(const NSTextAttachment& attachment);
