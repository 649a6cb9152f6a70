#pragma once

#include "platform/foundation/NSError.h"

#include <string_view>

/// An error whose description is a text of the catalogues, in the user's language.
[[nodiscard]] NSError documentError(NSCocoaError code, std::u16string_view text);
