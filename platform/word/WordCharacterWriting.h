#pragma once

#include "platform/word/WordFontLooks.h"

/// Writes what text with these attributes looks like beyond the style that its paragraph has, as the content
/// of "w:rPr": fonts, lines, colours, grounds, spacing and position. The system's and a note's highlights are
/// grounds of their colour on white paper. `isLink` takes the style of links beneath it all. What the format
/// has no form for is left out: shadows, strokes, ligatures, obliqueness and expansion, the colours of
/// strike-through, writing directions within a line, vertical forms.
void writeWordCharacterProperties(WordXML& xml, const NSAttributes& attributes, const WordFontLook& style,
                                  bool isLink);
