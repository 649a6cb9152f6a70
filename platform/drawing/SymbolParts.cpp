#include "platform/drawing/SymbolParts.h"

#include "platform/drawing/NSGraphicsContext.h"

void drawSymbolParts(const SymbolParts& parts, const std::vector<NSColor::Ref>& palette,
                     NSGraphicsContext& context)
{
    for (const auto& [ink, path, index] : parts) {
        if (index >= palette.size() || !palette[index])
            continue;
        if (ink == SymbolPart::Ink::Fill)
            context.fillPath(path, *palette[index]);
        else
            context.strokePath(path, *palette[index]);
    }
}
