#pragma once

#include "platform/text/NSAttributedString.h"

/// A note's text with its boxes as the markers of lists, its dividers as centred lines of asterisks and its
/// highlights in the platform's form: what writers of characters know to write.
///
/// As noteTextForExport, except that files at the start of the text stay, and that nothing changes its
/// colour. Linear in the text.
[[nodiscard]] NSMutableAttributedString noteTextWithPlainMarks(const NSAttributedString& noteText);
