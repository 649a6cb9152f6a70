#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/NSGeometry.h"
#include "platform/text/NSTextAttachmentCell.h"

#include <memory>
#include <optional>
#include <string>

/// Something in a text that is no text: a file, mostly. One attachment stands on one attachment character,
/// under NSAttachmentAttributeName. It is an identity, shared, and may be changed.
///
/// An attachment has either a file wrapper, or contents and a type; setting the one takes the other away.
class NSTextAttachment : public NSCoding {
public:
    NSTextAttachment() = default;
    NSTextAttachment(const NSTextAttachment&) = delete;
    NSTextAttachment& operator=(const NSTextAttachment&) = delete;
    ~NSTextAttachment() override;

    /// Null makes an attachment without a file.
    [[nodiscard]] static std::shared_ptr<NSTextAttachment>
    initWithFileWrapper(std::shared_ptr<NSFileWrapper> fileWrapper);
    /// `fileType` is a type identifier.
    [[nodiscard]] static std::shared_ptr<NSTextAttachment>
    initWithData(std::optional<NSData> contents, std::optional<std::u16string> fileType);

    /// A fresh attachment of this object's class, without a file.
    [[nodiscard]] virtual std::shared_ptr<NSTextAttachment> makeOfSameClass() const;

    [[nodiscard]] const std::shared_ptr<NSFileWrapper>& fileWrapper() const { return m_fileWrapper; }

    virtual void setFileWrapper(std::shared_ptr<NSFileWrapper> fileWrapper);

    [[nodiscard]] const std::optional<NSData>& contents() const { return m_contents; }

    void setContents(std::optional<NSData> contents);

    /// The type identifier that was set; else, of a file wrapper with a preferred name, the type of the
    /// name's extension: public.data when it is unknown, public.folder for a folder. None without either.
    [[nodiscard]] std::optional<std::u16string> fileType() const;
    void setFileType(std::optional<std::u16string> fileType);

    /// Where the attachment is drawn, from the baseline of its line; empty for its natural size.
    [[nodiscard]] NSRect bounds() const { return m_bounds; }

    void setBounds(NSRect bounds) { m_bounds = bounds; }

    /// What draws the attachment. Null unless one was set or the class makes one.
    [[nodiscard]] virtual std::shared_ptr<NSTextAttachmentCell> attachmentCell();
    /// The cell gets to know its attachment, and the one before forgets it.
    void setAttachmentCell(std::shared_ptr<NSTextAttachmentCell> cell);

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    /// A derived class calls this first, then adds keys of its own.
    void encodeWithCoder(NSCoder& coder) const override;

protected:
    /// Takes what encodeWithCoder wrote. A derived class calls this first in its `initWithCoder`. Contents
    /// with a type are taken before a file wrapper.
    void decodeFromCoder(NSCoder& coder);

    /// The cell as it is, without making one.
    [[nodiscard]] const std::shared_ptr<NSTextAttachmentCell>& currentAttachmentCell() const
    {
        return m_attachmentCell;
    }

private:
    static NSAny initWithCoder(NSCoder& coder);

    std::shared_ptr<NSFileWrapper> m_fileWrapper;
    std::optional<NSData> m_contents;
    std::optional<std::u16string> m_fileType;
    NSRect m_bounds;
    std::shared_ptr<NSTextAttachmentCell> m_attachmentCell;
};
