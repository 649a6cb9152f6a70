#pragma once

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"

#include <optional>
#include <string_view>

/// The kinds of files that a note can be made of, or be written as.
enum class DocumentKind {
    /// A note's package.
    Note,
    Markdown,
    /// A page of HTML.
    Page,
    RTF,
    /// A folder; also its serialised form, one file, which is read only.
    RTFD,
    /// Office Open XML.
    Word,
    PlainText,
    /// Written only.
    PDF,
    /// The keyed archive of an attributed string; read only.
    Archive,
};

/// By what people call it, or its usual extension, whatever its case: "markdown", "md", "html", "rtf",
/// "rtfd", "docx", "word", "text", "txt", "pdf", "note" and "cvlnote". None for anything else.
[[nodiscard]] std::optional<DocumentKind> documentKindNamed(std::string_view name);

/// By the extension of a file that need not be there. None for an extension of no such kind.
[[nodiscard]] std::optional<DocumentKind> documentKindOfPath(std::string_view path);

/// Of a file to be read: by its name, and by its contents where the name says nothing. None, with the reason
/// in `error`, for anything that cannot be read as a text: FileReadUnknown of NSCocoaErrorDomain, or what the
/// system says.
[[nodiscard]] std::optional<DocumentKind> documentKindOfFile(const NSURL& url, NSError* error = nullptr);
