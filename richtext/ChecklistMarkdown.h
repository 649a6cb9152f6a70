#pragma once

#include "platform/text/NSAttributedString.h"

namespace DynamicColors {

/// Puts "- [x] " or "- [ ] ", behind four spaces for each level, in place of every checklist box, and gives
/// the box's whole line the default paragraph style: nothing of lists and indents stays. One pass.
void convertChecklistAttachmentsToMarkdownSyntax(NSMutableAttributedString& text);

} // namespace DynamicColors
