#pragma once

#include "documents/DocumentKind.h"
#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"

#include <optional>

/// Whether what stands at a URL may be replaced.
enum class ExistingFiles {
    Keep,
    Replace,
    /// An empty file or a PNG image only: programs that show thumbnails make the file first.
    ReplaceImage,
};

/// Where a document is to be written.
struct DocumentPlace {
    NSURL url;
    DocumentKind kind = DocumentKind::PlainText;
    ExistingFiles existing = ExistingFiles::Keep;
    /// What the document is made of, if that is a file or a folder.
    std::optional<NSURL> source{};
};

/// Whether a document may be written there, so that nothing of a person's goes away by a slip. A link means
/// what it leads to, and must lead to something. Never written is what is the source, or lies in it or in any
/// other note or RTFD package. What is there must be allowed to be replaced, and be what would be written: a
/// file for a file, and for a package a folder with the extension of one that is empty, or a note for a note
/// and an RTFD document for one. Pipes and devices are written to, and need no leave.
///
/// False with the reason in `error`.
[[nodiscard]] bool mayWriteDocument(const DocumentPlace& place, NSError* error = nullptr);

/// Whether something at the URL lies, or would lie, in a note or an RTFD package. Links are followed.
/// `error` says so then.
[[nodiscard]] bool isInPackage(const NSURL& url, NSError* error = nullptr);

/// Where a link leads to; the URL itself of anything else.
[[nodiscard]] NSURL resolvedDocumentURL(const NSURL& url);
