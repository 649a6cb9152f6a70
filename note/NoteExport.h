#pragma once

#include "platform/text/NSAttributedString.h"

/// A note's text as other programs understand it: checklists are lists, dividers asterisks, highlights the
/// platform's own, and what is in the text colour, which follows the appearance, is black.
[[nodiscard]] NSMutableAttributedString noteTextForExport(const NSAttributedString& noteText);
