#pragma once

#include "platform/media/ContentReader.h"

/// Reads plain text in any encoding, as a stream: memory does not grow with the file. The encoding is found
/// at the first bytes beyond ASCII. Control characters become spaces; bytes that are no text at all give what
/// they give.
[[nodiscard]] ReadResult readPlainText(const ContentSource& source, ContentSink& sink);
