#pragma once

#include "platform/foundation/NSClassTable.h"

/// The classes of this layer that archives hold: strings, collections, URLs and the like, and file wrappers.
[[nodiscard]] const NSClassTable& foundationClasses();
