#include "cells/LineMetrics.h"

#include "paragraphs/FontMetrics.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"

#include <algorithm>

namespace {

NSFont::Ref fontOf(const NSAny& value)
{
    auto font = value.object<NSFont>();
    return font ? font : NSFont::userFontOfSize(NSFont::kDefaultSize);
}

LineMetrics metricsOf(const NSFont& font)
{
    return {CVLExtensions::lineHeight(font), font.descender()};
}

} // namespace

LineMetrics lineMetricsAtIndex(const NSAttributedString* text, NSUInteger index)
{
    if (!text)
        return metricsOf(*fontOf({}));
    const auto line = text->lineRangeAtIndex(index);
    if (line.length == 0)
        return metricsOf(*fontOf(text->attribute(NSFontAttributeName, index)));
    LineMetrics metrics;
    const auto visit = [&metrics](const NSAny& value, NSRange /*range*/, bool& /*stop*/) {
        const auto run = metricsOf(*fontOf(value));
        metrics.lineHeight = std::max(metrics.lineHeight, run.lineHeight);
        metrics.descender = std::min(metrics.descender, run.descender);
    };
    text->enumerateAttribute(NSFontAttributeName, line, {.longestEffectiveRangeNotRequired = true}, visit);
    return metrics;
}
