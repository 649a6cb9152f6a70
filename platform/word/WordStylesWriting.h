#pragma once

#include "platform/word/WordFontLooks.h"

#include <string>

/// The part of the styles: Normal, in what most of the text is set in, headings, items of lists, and links.
/// The fonts of plain text are the document's defaults.
[[nodiscard]] std::string wordStylesPart(const WordStyleLooks& looks);
