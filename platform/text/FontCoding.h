#pragma once

#include "platform/text/NSFont.h"

/// Fonts in keyed archives. Only name and size stand there; all else follows from the name, which is looked
/// up among the known and installed faces and is never a path. A font unknown here keeps its name, so that a
/// text that passes through loses nothing.
class FontCoding {
public:
    static NSAny fontFromCoder(NSCoder& coder);
    /// The form that the platform's smaller sibling gives its fonts.
    static NSAny fontFromMobileCoder(NSCoder& coder);

private:
    static NSAny archivedFont(std::u16string_view name, double size);
};

/// The class of fonts from the platform's smaller sibling; they become NSFont objects.
[[nodiscard]] const NSClass& UIFontClass();
