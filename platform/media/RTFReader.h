#pragma once

#include "platform/media/ContentReader.h"

/// Reads the text of an RTF document, or of the one in an RTFD package when the source is a folder; of its
/// description the title, author, subject, keywords and comment. `Damaged` when it does not begin as RTF
/// does.
[[nodiscard]] ReadResult readRTF(const ContentSource& source, ContentSink& sink);
