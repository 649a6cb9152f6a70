#pragma once

#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/NSURL.h"
#include "platform/text/NSAttributedString.h"

#include <vector>

/// The files in a note's text. Checklist boxes and dividers are attachments without a file and do not count.
/// Each operation is one pass over the runs.
namespace DynamicColors {

[[nodiscard]] bool containsFileAttachments(const NSAttributedString& text);

/// In the text's order; a file that is there twice is given twice.
[[nodiscard]] std::vector<NSFileWrapper::Ref> fileAttachments(const NSAttributedString& text);

/// Writes the files that are no images into a folder, and gives the URLs of those that were written, in the
/// text's order. They are what htmlStringForSharingToMail leaves out of a message's body.
///
/// A file takes part when it has a file name and its attachment a file type; a type that the system does not
/// know is no image. Nothing is replaced: a file whose name is taken in the folder, by an earlier one of
/// these perhaps, is left out, like any that cannot be written. A name that is none for a file in a folder,
/// "../a", is left out and logged.
[[nodiscard]] std::vector<NSURL> fileURLsForNonImageAttachmentsWrittenToURL(const NSAttributedString& text,
                                                                            const NSURL& folder);

/// Makes preferred file names of 256 units and more safe and short (stringSanitizedForFileName). The files
/// are renamed, in whichever texts they stand.
void fixLengthOfAttachmentFilenames(NSMutableAttributedString& text);

} // namespace DynamicColors
