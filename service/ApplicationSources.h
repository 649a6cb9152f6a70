#pragma once

#include "service/ItemSources.h"

/// Where the service takes texts from: those of notes out of their packages. What a note's members hold is
/// bounded by ContentLimits::noteMemberBytes.
[[nodiscard]] ItemSources applicationSources();
