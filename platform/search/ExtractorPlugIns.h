#pragma once

#include "platform/types/UTType.h"

/// Whether files of this type are read: text always, everything else once SKLoadDefaultExtractorPlugIns was
/// called.
[[nodiscard]] bool isReadByLoadedExtractors(const UTType& type);
