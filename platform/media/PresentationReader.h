#pragma once

#include "platform/media/ContentReader.h"
#include "platform/media/OfficePackage.h"

#include <string_view>

/// Reads a presentation of an Office package: the slides in their order, each followed by its notes,
/// comments, diagrams and charts. `Damaged` or `Locked` when the presentation part is; damage elsewhere costs
/// that part only.
[[nodiscard]] ReadResult readPresentation(OfficePackage& package, std::string_view mainPart,
                                          ContentSink& sink);
