#pragma once

#include "platform/media/ContentReader.h"

/// Reads an EPUB book: its chapters in reading order, and its description.
/// `Locked` when the chapters are encrypted; `Damaged` for a file that is no container or whose table of
/// contents cannot be found. A chapter that is missing or damaged costs that chapter only.
[[nodiscard]] ReadResult readEPUB(const ContentSource& source, ContentSink& sink);
