#include "cells/LineMetrics.h"

#include "paragraphs/FontMetrics.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"

#include <algorithm>
#include <optional>

namespace {

LineMetrics metricsOf(const NSFont& font)
{
    return {CVLExtensions::lineHeight(font), font.descender()};
}

/// Of the fonts that there are in the range; none when there is none.
std::optional<LineMetrics> metricsInRange(const NSAttributedString& text, NSRange range)
{
    std::optional<LineMetrics> metrics;
    const auto visit = [&metrics](const NSAny& value, NSRange /*run*/, bool& /*stop*/) {
        const auto font = value.object<NSFont>();
        if (!font)
            return;
        const auto run = metricsOf(*font);
        metrics = metrics ? LineMetrics{std::max(metrics->lineHeight, run.lineHeight),
                                        std::min(metrics->descender, run.descender)}
                          : run;
    };
    text.enumerateAttribute(NSFontAttributeName, range, {.longestEffectiveRangeNotRequired = true}, visit);
    return metrics;
}

} // namespace

LineMetrics lineMetricsAtIndex(const NSAttributedString* text, NSUInteger index)
{
    const auto metrics = text ? metricsInRange(*text, text->lineRangeAtIndex(index)) : std::nullopt;
    return metrics ? *metrics : metricsOf(*NSFont::userFontOfSize(NSFont::kDefaultSize));
}
