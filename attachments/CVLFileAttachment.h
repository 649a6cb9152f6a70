#pragma once

#include "platform/text/NSTextAttachment.h"

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

class CVLFileAttachmentCell;

/// A file shown in a note as its icon and name. `convertToInPlaceOnMac` may be read and set from any thread.
class CVLFileAttachment final : public NSTextAttachment {
public:
    CVLFileAttachment() = default;

    /// Null makes an attachment without a file.
    [[nodiscard]] static std::shared_ptr<CVLFileAttachment>
    initWithFileWrapper(std::shared_ptr<NSFileWrapper> fileWrapper);
    [[nodiscard]] static std::shared_ptr<CVLFileAttachment>
    initWithData(std::optional<NSData> contents, std::optional<std::u16string> fileType);
    /// A new one with the file wrapper of any attachment.
    [[nodiscard]] static std::shared_ptr<CVLFileAttachment>
    fileAttachmentWithAttachment(const NSTextAttachment& attachment);

    [[nodiscard]] std::shared_ptr<NSTextAttachment> makeOfSameClass() const override;

    /// Whether files of a type are shown this way: all but images, movies and PDF documents. Not without a
    /// type.
    [[nodiscard]] static bool shouldUseForFileType(const std::optional<std::u16string>& fileType);

    /// Whether the file could be shown itself in the text: an image, a movie, or a PDF document that no
    /// password protects.
    [[nodiscard]] bool canViewInPlace() const;

    /// Whether readers of notes make a plain attachment of this one, shown in place.
    [[nodiscard]] bool convertToInPlaceOnMac() const { return m_convertToInPlaceOnMac; }

    void setConvertToInPlaceOnMac(bool converts) { m_convertToInPlaceOnMac = converts; }

    /// Its cell shows the icon and the name of the new file.
    void setFileWrapper(std::shared_ptr<NSFileWrapper> fileWrapper) override;

    /// The drawing cell; null until `attachmentCell` made it. Like it, for the thread that shows the text.
    [[nodiscard]] const std::shared_ptr<CVLFileAttachmentCell>& fileAttachmentCell() const
    {
        return m_fileAttachmentCell;
    }

    /// Always the file's own cell, made on first use, and installed in the place of any other.
    [[nodiscard]] std::shared_ptr<NSTextAttachmentCell> attachmentCell() override;

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

private:
    static NSAny initWithCoder(NSCoder& coder);

    std::atomic<bool> m_convertToInPlaceOnMac = false;
    std::shared_ptr<CVLFileAttachmentCell> m_fileAttachmentCell;
};
