#pragma once

#include "styles/CVLNoteTextStyle.h"

#include <vector>

/// All styles that the standard user defaults hold, in their order; none when there are none. What cannot be
/// read is logged and left where it is.
[[nodiscard]] std::vector<CVLNoteTextStyle::Ref> savedStyles();
