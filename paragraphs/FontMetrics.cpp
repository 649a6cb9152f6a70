#include "paragraphs/FontMetrics.h"

#include <cmath>

double CVLExtensions::lineHeight(const NSFont& font)
{
    return lineHeightFromMetrics(font.ascender(), font.descender(), font.leading());
}

double CVLExtensions::lineHeightFromMetrics(double ascender, double descender, double leading)
{
    return std::ceil(static_cast<float>(ascender + std::fabs(descender) + leading));
}
