#pragma once

#include "platform/media/ContentReader.h"
#include "platform/media/OfficePackage.h"

#include <string_view>

/// Reads a workbook of an Office package: for each sheet in order its name, its rows (cells apart by tabs,
/// formulas as their stored results), its comments and the texts drawn on it. `Damaged` or `Locked` when the
/// workbook part is; damage elsewhere costs that part only.
[[nodiscard]] ReadResult readWorkbook(OfficePackage& package, std::string_view mainPart, ContentSink& sink);
