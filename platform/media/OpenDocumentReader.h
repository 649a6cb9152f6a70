#pragma once

#include "platform/media/ContentReader.h"

/// Reads an OpenDocument text, spreadsheet, presentation or drawing, packed or as one XML file: the body with
/// its notes and annotations, then the headers and footers. Deletions that are tracked are left out. `Locked`
/// for an encrypted document; `Damaged` for one without a whole body.
[[nodiscard]] ReadResult readOpenDocument(const ContentSource& source, ContentSink& sink);
