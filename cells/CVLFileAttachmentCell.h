#pragma once

#include "platform/drawing/NSImage.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSTextAttachmentCell.h"

/// The cell of a file attachment: the file's icon above its name, which is cut in the middle where the frame
/// is too narrow for it.
class CVLFileAttachmentCell final : public NSTextAttachmentCell {
public:
    /// What the cell is higher than the name, in points. The narrowest cell is as wide as the icon
    /// (kIconSide).
    static constexpr double kHeightWithoutName = 37.0;

    /// Shows the file of the new attachment; with none (null), what it showed before.
    void setAttachment(NSTextAttachment* attachment) override;

    /// Takes icon and name from the attachment's file: the name on disk, or else the preferred one, without
    /// the extension when the file hides it. File wrappers carry no icon here, so it is that of the
    /// extension's type; a folder's or any data's, when it is none that is known. Without a file there is no
    /// name.
    void updateForFileWrapper();

    /// Null until updateForFileWrapper.
    [[nodiscard]] const NSImage::Ref& iconImage() const { return m_iconImage; }

    /// In the small system font and the label colour.
    [[nodiscard]] const NSAttributedString& filenameString() const { return m_filenameString; }

    /// At least as wide as the icon.
    [[nodiscard]] NSSize cellSize() override;
    /// Two points below the baseline.
    [[nodiscard]] NSPoint cellBaselineOffset() override;
    void drawWithFrame(NSRect cellFrame, NSView& inView) override;

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;

private:
    NSImage::Ref m_iconImage;
    NSAttributedString m_filenameString;
};
