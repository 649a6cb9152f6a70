#pragma once

#include "platform/foundation/NSClassTable.h"

/// foundationClasses() and the classes of this layer: attributed strings, fonts, colours, paragraph styles
/// and what they hold, shadows, attachments.
[[nodiscard]] const NSClassTable& textClasses();
