#pragma once

#include "documents/DocumentKind.h"
#include "platform/foundation/NSError.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/NSURL.h"
#include "platform/text/NSAttributedString.h"

#include <cstddef>
#include <optional>
#include <string>

class CVLNoteFile;

struct DocumentExportOptions {
    /// What pages, and the documents of word processors, say of themselves.
    std::u16string title{};
    /// The name of the folder in which Markdown and pages have their files; empty to leave the files out.
    std::u16string filesFolder{};
};

/// A note as a file of another kind, in memory.
struct ExportedDocument {
    /// A file; of RTFD a folder.
    NSFileWrapper::Ref document;
    /// What belongs into the folder of the options.
    NSFileWrapper::FileWrappers files{};
    /// How many attachments the document and the folder do not have.
    std::size_t leftOutCount = 0;
};

/// Writes a note, in UTF-8 where there is a choice.
///
/// RTF, RTFD, pages and Word documents hold the text for other programs (CVLNoteFile's
/// noteTextSuitableForExport): checklists as lists, dividers as asterisks, highlights in the platform's form.
/// Markdown has them in its own form, and plain text as PlainTextDocument.h says. Files are members of RTFD
/// packages; Markdown and pages name them in their folder; Word documents hold pictures, and of other files
/// the names; RTF and plain text leave them out. Links are left out everywhere. PDF shows the note on pages
/// (rendering/NoteRendering.h), files as icons. Takes time in proportion to the text.
///
/// None, with the reason in `error`: FileWriteInapplicableStringEncoding of NSCocoaErrorDomain for kinds that
/// notes are not written as, archives and notes among them.
[[nodiscard]] std::optional<ExportedDocument> exportedDocument(const CVLNoteFile& note, DocumentKind kind,
                                                               const DocumentExportOptions& options = {},
                                                               NSError* error = nullptr);
