#pragma once

#include "platform/html/HTMLOpenElements.h"

/// Gives a block of the text what the box of its element has.
void setBox(NSTextBlock& block, const HTMLBox& box);

/// The paragraphs of an element with a border or a ground of its own stand in a block of the text.
void openBoxedBlock(HTMLOpenElement& element);

/// Those of another one are indented by its margins.
void indentBlock(HTMLOpenElement& element);
