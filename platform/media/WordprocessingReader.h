#pragma once

#include "platform/media/ContentReader.h"
#include "platform/media/OfficePackage.h"

#include <string_view>

/// Reads a word-processing document of an Office package: the body, then headers, footers, notes, comments,
/// diagrams, charts and inserted documents. `Damaged` or `Locked` when the body is; damage elsewhere costs
/// that part only.
[[nodiscard]] ReadResult readWordprocessingDocument(OfficePackage& package, std::string_view mainPart,
                                                    ContentSink& sink);

/// Reads a word-processing document that is one XML file instead of a package.
[[nodiscard]] ReadResult readFlatWordprocessingDocument(const ContentSource& source, ContentSink& sink);
