#pragma once

#include "platform/text/NSColor.h"
#include "platform/word/WordValues.h"
#include "platform/word/WordXML.h"

#include <optional>
#include <string>

/// Colours of texts and those of the format, which are opaque.

/// Null for none and for an automatic one.
[[nodiscard]] NSColor::Ref colorOfWordColor(const std::optional<WordColor>& color);

/// What the colour looks like on white paper, in a light appearance. The system's colours of text are
/// automatic; none for null, for what is wholly transparent, and for patterns.
[[nodiscard]] std::optional<WordColor> wordColorOf(const NSColor::Ref& color);

/// Six hexadecimal digits, or "auto".
[[nodiscard]] std::string wordColorDigits(const WordColor& color);

/// Writes a ground.
void writeWordShading(WordXML& xml, const WordColor& color);
