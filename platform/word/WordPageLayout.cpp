#include "platform/word/WordPageLayout.h"

#include "platform/word/WordValues.h"

#include <cmath>

void WordPageLayout::readSize(const XMLAttributes& attributes)
{
    const auto width = wordLength(attributes.value("w"));
    const auto height = wordLength(attributes.value("h"));
    if (!paper && width && height && *width > 0 && *height > 0)
        paper = NSSize{*width, *height};
}

void WordPageLayout::readMargins(const XMLAttributes& attributes)
{
    if (margins)
        return;
    // A negative margin is one that headers must not push away.
    const auto length = [&attributes](std::string_view name) {
        return std::abs(wordLength(attributes.value(name)).value_or(0));
    };
    margins = NSEdgeInsets{length("top"), length("left"), length("bottom"), length("right")};
}
