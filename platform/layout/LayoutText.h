#pragma once

#include "platform/text/NSAttributedString.h"

/// The text as it is set and drawn: links in the link colour and underlined, text without a colour in that of
/// text, raised and lowered letters smaller and off the baseline, slanted and widened ones in such a face of
/// their family. Background colours are left out: they are drawn as high as the line.
[[nodiscard]] NSAttributedString layoutText(const NSAttributedString& text);
