#pragma once

#include <string_view>

/// The attribute of a note's own highlights. Its value is an integer: a highlight colour type from 1 to 5
/// (HighlightColours.h); 0, like no attribute, is "not highlighted".
inline constexpr std::u16string_view CVLHighlightTextAttributeName = u"CVLHighlightTextAttribute";
