#pragma once

#include "documents/DocumentKind.h"
#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"
#include "platform/text/NSAttributedString.h"

#include <optional>
#include <string>

/// A file read as rich text, in the form in which its reader gives it: what is a box to tick in Markdown, a
/// page, RTF or a Word document is an item of a list, and a divider a line of asterisks. NoteImport.h makes a
/// note's text of it. Of a note it is the note's text as it is.
struct Document {
    DocumentKind kind = DocumentKind::PlainText;
    NSAttributedString text;
    /// What the file says, else its name without the extension.
    std::u16string title;
};

/// Reads a file of any kind but PDF, in the user's Body style where Markdown, a page and plain text say
/// nothing of fonts. Plain text may be in any encoding, which is found out.
///
/// Images that lie in the folder of Markdown or of a page, or below it, become attachments with names of
/// their own; nothing else beside the file is read, and nothing is fetched. The files of packages and Word
/// documents are attachments too. A link at `url` is followed, links within packages are not.
///
/// None, with the reason in `error`, when the file cannot be read or is of another kind than its name says
/// (FileReadCorruptFile of NSCocoaErrorDomain), and when it is too large (FileReadTooLarge): 32 MB for
/// Markdown, pages, plain text and archives; the bounds of their own readers for the others.
[[nodiscard]] std::optional<Document> readDocument(const NSURL& url, NSError* error = nullptr);

/// The same for a file that is of this kind, whatever its name and contents say.
[[nodiscard]] std::optional<Document> readDocument(const NSURL& url, DocumentKind kind,
                                                   NSError* error = nullptr);

/// The same for what is in memory and has no folder: no images are looked for, and the title is what the
/// document says. Nothing in memory is a note.
[[nodiscard]] std::optional<Document> documentWithData(NSData data, DocumentKind kind,
                                                       NSError* error = nullptr);
