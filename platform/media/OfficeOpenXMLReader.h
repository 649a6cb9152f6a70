#pragma once

#include "platform/media/ContentReader.h"

/// Reads a document, workbook or presentation in an Office Open XML package, whichever its bytes hold, in the
/// transitional and in the strict form.
/// `Locked` for an encrypted package; `Damaged` for a file that is no package or whose main part is no whole
/// XML.
[[nodiscard]] ReadResult readOfficeOpenXML(const ContentSource& source, ContentSink& sink);
