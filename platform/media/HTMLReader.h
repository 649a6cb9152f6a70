#pragma once

#include "platform/media/ContentReader.h"

/// The text of an HTML or XHTML page as its reader sees it; its title is a field. Every file is a page, the
/// first ContentLimits::wholeFileBytes of it are read.
[[nodiscard]] ReadResult readHTML(const ContentSource& source, ContentSink& sink);
