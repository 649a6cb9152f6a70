#pragma once

#include "platform/foundation/NSClassTable.h"

/// textClasses() and the class of this layer: note text styles.
[[nodiscard]] const NSClassTable& styleClasses();
