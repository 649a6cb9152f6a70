#pragma once

#include "platform/media/ContentReader.h"

/// The character data of an XML file of any vocabulary, its elements apart from each other. Nothing outside
/// the file is ever opened, and what stands before an error is kept.
[[nodiscard]] ReadResult readXML(const ContentSource& source, ContentSink& sink);
