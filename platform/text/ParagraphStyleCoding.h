#pragma once

#include "platform/foundation/NSCoder.h"
#include "platform/text/NSParagraphStyle.h"

/// Paragraph styles in archives. Every value but the tab stops is left out when it is what an absent key
/// means, which is not always what a fresh style has: docs/keyed-archives.md has the table.
class ParagraphStyleCoding {
public:
    using Values = NSParagraphStyle::Values;

    /// A style whatever the coder holds: what is missing or malformed has the absent value.
    [[nodiscard]] static NSAny decode(NSCoder& coder);
    static void encode(const NSParagraphStyle& style, NSCoder& coder);

private:
    static void decodeKinds(NSCoder& coder, Values& values);
    static void decodeObjectLists(NSCoder& coder, Values& values);
    static void encodeKinds(const Values& values, NSCoder& coder);
    static void encodeTabStops(const Values& values, NSCoder& coder);
};
