#pragma once

#include "platform/text/NSAttributedString.h"

#include <cstdint>

/// A text with everything that text can have, in an order that the seed decides: fonts, colours, lines,
/// highlights, links, lists in lists, checklists, tables, blocks, headings, images and other files, and
/// characters that mean something in HTML. The same for the same seed, wherever it is made.
[[nodiscard]] NSAttributedString generatedText(std::uint32_t seed);
