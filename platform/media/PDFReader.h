#pragma once

#include "platform/media/ContentReader.h"

/// Reads a PDF: the text of all its pages in order, and of its description the title, author, subject and
/// keywords. `Locked` when the empty password does not open it, `Damaged` when it is no PDF.
[[nodiscard]] ReadResult readPDF(const ContentSource& source, ContentSink& sink);
