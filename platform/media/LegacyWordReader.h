#pragma once

#include "platform/media/ContentReader.h"

/// Reads a binary Word document of the versions 2 to 2003: text, notes, headers, comments and text boxes, in
/// the order in which the file keeps them. A file of another kind under Word's name (RTF, HTML, XML, a newer
/// document, plain text) is given to that kind's reader. `Locked` for an encrypted document; `Damaged` when
/// the tables that lead to the text make no sense.
[[nodiscard]] ReadResult readLegacyWord(const ContentSource& source, ContentSink& sink);
