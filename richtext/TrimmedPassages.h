#pragma once

#include "platform/text/NSAttributedString.h"

#include <string>
#include <vector>

/// Appends the characters of a range without white space and line ends at both ends, unless nothing is left.
void appendTrimmedPassage(std::vector<std::u16string>& passages, const NSAttributedString& text,
                          NSRange range);
