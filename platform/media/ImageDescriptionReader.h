#pragma once

#include "platform/media/ContentReader.h"

/// Reads what an image says about itself: titles, descriptions, keywords, authors and comments, as fields and
/// as text, each once. No pixel is decoded. An image without any, or with broken ones, is `Read` with no
/// text.
[[nodiscard]] ReadResult readImageDescription(const ContentSource& source, ContentSink& sink);
