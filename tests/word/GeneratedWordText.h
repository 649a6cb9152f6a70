#pragma once

#include "platform/text/NSAttributedString.h"

/// A text by chance, always the same for a seed, of everything that a Word document holds as it is: looks,
/// links in the look of links, paragraph styles, lists that count as their markers say, tables. It ends with
/// a plain paragraph's end.
[[nodiscard]] NSAttributedString generatedWordText(unsigned seed);
