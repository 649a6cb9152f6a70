#pragma once

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"
#include "platform/text/NSAttributedString.h"

#include <optional>

/// Attributed strings out of documents.
namespace NSAttributedStringDocumentFormats {

/// The text of the Word document at `url`, whatever the file's name says; for now without attributes. A
/// document that is damaged in parts beside its body still reads. None when the file cannot be read (`error`
/// is of NSPOSIXErrorDomain), or is damaged or encrypted or holds no Word document (`error` is
/// FileReadCorruptFile of NSCocoaErrorDomain).
[[nodiscard]] std::optional<NSAttributedString> initWithURL(const NSURL& url, NSError* error = nullptr);

} // namespace NSAttributedStringDocumentFormats
