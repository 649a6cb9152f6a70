#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/media/ContentReader.h"
#include "platform/text/NSAttributedString.h"

/// What a Word document came to.
struct WordDocument {
    NSAttributedString text;
    /// By the names of NSDocumentAttributes.h.
    NSAny::Dictionary attributes;
};

/// Reads a Word document, a package of Office Open XML, within the sink's limits, which bound the text as
/// they bound what is indexed: the sink gets all of it as plain text, too. The text's order is the body,
/// footnotes, endnotes and comments in the order in which the body refers to them, then headers, footers,
/// diagrams, charts and inserted documents in the order in which the body has them.
///
/// `UnknownKind` for another kind of document, `Damaged` or `Locked` when the package or its body is. Damage
/// elsewhere costs that part only.
[[nodiscard]] ReadResult readWordDocument(const ContentSource& source, ContentSink& sink,
                                          WordDocument& document);
