#pragma once

#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSTextAttachment.h"

#include <concepts>
#include <memory>

/// Calls `visit` with each attachment of a class, or of one derived from it, and with its range, which is one
/// character unless an attachment stands several times in a row. The visitor may change the text in that
/// range.
template <std::derived_from<NSTextAttachment> Attachment,
          std::invocable<const std::shared_ptr<const Attachment>&, NSRange> Visitor>
void enumerateAttachments(const NSAttributedString& text, NSEnumerationOptions options, Visitor visit)
{
    text.enumerateAttribute(NSAttachmentAttributeName, {0, text.length()}, options,
                            [&visit](const NSAny& value, NSRange range, bool&) {
                                if (const auto attachment = value.object<Attachment>())
                                    visit(attachment, range);
                            });
}

/// The same, front to back.
template <std::derived_from<NSTextAttachment> Attachment,
          std::invocable<const std::shared_ptr<const Attachment>&, NSRange> Visitor>
void enumerateAttachments(const NSAttributedString& text, Visitor visit)
{
    enumerateAttachments<Attachment>(text, {}, visit);
}
