#pragma once

#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSAttributedString.h"

#include <cstddef>

/// A text whose files lie beside it.
struct TextWithFilesBeside {
    /// The files' attachments are placeholders, empty files with the names below.
    NSMutableAttributedString text;
    /// Each file once, under a name that a file in a folder can have and no other of them has. An attachment
    /// without a name gets one of its type. These are the text's own files, which keep their own names.
    NSFileWrapper::FileWrappers files;
    /// Attachments that have one of these files. Others, links among them, are not in the text any more.
    std::size_t keptCount = 0;
};

/// Takes the files out of a text that has no boxes and dividers. Linear in the text; no contents are copied
/// but those of attachments without a file.
[[nodiscard]] TextWithFilesBeside takeFilesOut(const NSAttributedString& text);

/// Attachments with a file or contents: all but boxes and dividers.
[[nodiscard]] std::size_t fileCountOf(const NSAttributedString& text);
