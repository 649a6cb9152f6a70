#pragma once

#include "platform/text/NSAttributedString.h"

#include <string>
#include <string_view>

/// A range of an attributed string as an HTML page in UTF-8: one element a paragraph, styles as classes,
/// lists as lists, tables as tables. What HTML has no word for is left out: tab stops, ligatures beyond none
/// and usual, expansion, vertical forms. Linear in the text.
[[nodiscard]] std::string htmlPage(const NSAttributedString& text, NSRange range, std::u16string_view title);
