#pragma once

#include "platform/foundation/NSClassTable.h"

/// textClasses() and the classes of this layer: the attachment kinds, and the checklist's cell.
[[nodiscard]] const NSClassTable& attachmentClasses();
