#include "cells/LineMetrics.h"

#include "paragraphs/FontMetrics.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"

#include <gtest/gtest.h>

namespace {

NSAttributes inFont(const NSFont::Ref& font)
{
    return {{std::u16string(NSFontAttributeName), font}};
}

NSFont::Ref smallFont()
{
    return NSFont::fontWithName(u"HelveticaNeue", 10);
}

NSFont::Ref largeFont()
{
    return NSFont::fontWithName(u"HelveticaNeue", 30);
}

void expectMetricsOf(const LineMetrics& metrics, const NSFont& font)
{
    EXPECT_EQ(metrics.lineHeight, CVLExtensions::lineHeight(font));
    EXPECT_EQ(metrics.descender, font.descender());
}

} // namespace

TEST(LineMetrics, AreThoseOfTheLargestFontOfTheLine)
{
    NSMutableAttributedString text(u"small ", inFont(smallFont()));
    text.appendAttributedString(NSAttributedString(u"large", inFont(largeFont())));
    expectMetricsOf(lineMetricsAtIndex(&text, 0), *largeFont());
}

TEST(LineMetrics, CountNoOtherLines)
{
    NSMutableAttributedString text(u"before\n", inFont(largeFont()));
    text.appendAttributedString(NSAttributedString(u"line\n", inFont(smallFont())));
    text.appendAttributedString(NSAttributedString(u"behind", inFont(largeFont())));
    expectMetricsOf(lineMetricsAtIndex(&text, 8), *smallFont());
}

TEST(LineMetrics, OfTextWithoutAFontAreThoseOfTheUsersFont)
{
    const auto font = NSFont::userFontOfSize(12);
    const NSAttributedString plain(u"text");
    expectMetricsOf(lineMetricsAtIndex(&plain, 0), *font);
    expectMetricsOf(lineMetricsAtIndex(nullptr, 0), *font);
}

TEST(LineMetrics, OfAnEmptyLineAreThoseOfTheFontAtTheIndex)
{
    const NSAttributedString text(u"large\n", inFont(largeFont()));
    expectMetricsOf(lineMetricsAtIndex(&text, 6), *NSFont::userFontOfSize(12));
    const NSAttributedString empty;
    expectMetricsOf(lineMetricsAtIndex(&empty, 0), *NSFont::userFontOfSize(12));
}

TEST(LineMetrics, AtTheEndOfATextAreThoseOfItsLastLine)
{
    const NSAttributedString text(u"one\ntwo", inFont(largeFont()));
    expectMetricsOf(lineMetricsAtIndex(&text, 7), *largeFont());
}
