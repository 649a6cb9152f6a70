#pragma once

#include "platform/foundation/NSObject.h"

class NSTextAttachment;

/// What draws an attachment and takes clicks on it. The attachment owns its cell; the cell knows its
/// attachment as long as both live. This base class draws nothing.
class NSTextAttachmentCell : public NSObject {
public:
    /// Null while the cell belongs to no attachment.
    [[nodiscard]] NSTextAttachment* attachment() const { return m_attachment; }

    virtual void setAttachment(NSTextAttachment* attachment) { m_attachment = attachment; }

private:
    NSTextAttachment* m_attachment = nullptr;
};
