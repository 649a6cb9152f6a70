#pragma once

#include "platform/text/NSColor.h"

#include <string>
#include <utility>
#include <vector>

/// The parts of a colour's archive that were read, in the order in which they are written.
struct NSColor::ArchivedForm {
    std::int64_t colorSpace = 0;
    /// Component texts and what else stands as bytes, by key.
    std::vector<std::pair<std::string_view, std::string>> bytes;
    NSColorSpace::Ref customSpace;
};

/// Colours in keyed archives.
class ColorCoding {
public:
    static NSAny colorFromCoder(NSCoder& coder);
    /// The form that the platform's smaller sibling gives its colours.
    static NSAny colorFromMobileCoder(NSCoder& coder);
    static void encode(const NSColor& color, NSCoder& coder);

private:
    static NSColor::Ref catalogColor(NSCoder& coder);
    static NSColor::Ref componentColor(NSCoder& coder, std::int64_t colorSpace);
    static void encodeComponents(const NSColor::Components& components, NSCoder& coder);
};

/// The class of colours from the platform's smaller sibling; they become NSColor objects.
[[nodiscard]] const NSClass& UIColorClass();
