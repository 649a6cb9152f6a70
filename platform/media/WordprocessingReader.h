#pragma once

#include "platform/media/ContentReader.h"
#include "platform/media/OfficePackage.h"

#include <string_view>

/// Reads a word-processing document of an Office package: the body, then headers, footers, notes, comments,
/// diagrams, charts and inserted documents. `Damaged` or `Locked` when the body is; damage elsewhere costs
/// that part only.
[[nodiscard]] ReadResult readWordprocessingDocument(OfficePackage& package, std::string_view mainPart,
                                                    ContentSink& sink);

/// Reads what a part of a document points at as text of its own: a header, notes, a diagram, an inserted
/// document of whatever type. What cannot be read costs that part only.
void readFurtherPart(OfficePackage& package, const OfficePackage::Relationship& relationship,
                     ContentSink& sink);

/// Reads a word-processing document that is one XML file instead of a package.
[[nodiscard]] ReadResult readFlatWordprocessingDocument(const ContentSource& source, ContentSink& sink);
