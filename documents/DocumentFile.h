#pragma once

#include "documents/DocumentExport.h"
#include "documents/DocumentPlace.h"
#include "platform/foundation/NSError.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/NSURL.h"

/// The folder beside a document at the URL in which its files lie: "list_files" for "list.md".
[[nodiscard]] std::u16string filesFolderOfDocument(const NSURL& url);

/// Writes the files of an exported document into `filesFolder` beside the URL, and then the document, each as
/// a whole or not at all. A folder that is there is used, and only files of the same names are replaced in
/// it: if that is not allowed they must be the same, as when a note was written beside it as another kind.
/// Replacing keeps a file's permissions and follows a link. Pipes and devices are written to.
///
/// Between the looking and the writing another program may put a file at the URL, which is replaced then.
/// @return false, with the reason in `error`, when the document is not at the URL. Files of it may be.
[[nodiscard]] bool writeDocument(const ExportedDocument& document, const DocumentPlace& place,
                                 const std::u16string& filesFolder, NSError* error = nullptr);
