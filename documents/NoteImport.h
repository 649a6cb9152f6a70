#pragma once

#include "documents/Document.h"
#include "platform/text/NSAttributedString.h"

/// A document's text as a note's text. A note's own stays as it is; of every other kind, in this order:
///
/// 1. Pages only: the clean-up of imported web text, as far as the user's settings ask for it, with the Body
///    style's font family (richtext/WebPageCleanup.h).
/// 2. Paragraphs that only look like items of lists get lists; items with the check and the circle marker
///    become checklists.
/// 3. Paragraphs of three asterisks and nothing else become dividers: in Markdown and pages, which have
///    rules, only those that stand for one, being centred; in all other kinds every one. A divider takes the
///    place of the line and adds none; one that would end the text gets a line end, as notes lose the divider
///    they end with.
/// 4. Text without a font gets that of the Body style.
/// 5. Superscripts and subscripts, which notes do not store, become smaller text that stands higher or lower:
///    three quarters of the font's size, a third of it up or a fifth of it down for each level, up to three.
/// 6. Files become file attachments, unless they are shown in place.
/// 7. The platform's highlights become the note's own.
/// 8. Black, and text without a colour, gets the dynamic text colour.
/// 9. A table that ends the text gets a paragraph behind it.
///
/// Linear in the text.
[[nodiscard]] NSAttributedString noteTextOfDocument(const Document& document);
