#pragma once

#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSAttributedString.h"

/// Gives placeholder attachments the package's members of their names; those that name no member stay as they
/// are, and so do checklist boxes. Files that the text shows as icons become CVLFileAttachments: audio, and
/// PDF documents that a password protects; those stored to be shown in place become plain attachments.
///
/// One pass over the runs. A document is opened once, however many attachments name it.
void bindAttachmentsToMembers(NSMutableAttributedString& text, const NSFileWrapper& package);
