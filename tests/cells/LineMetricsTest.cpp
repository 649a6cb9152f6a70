#include "cells/LineMetrics.h"

#include "paragraphs/FontMetrics.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"

#include <gtest/gtest.h>

#include <algorithm>

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

TEST(LineMetrics, DoNotCountRunsWithoutAFont)
{
    // The user's font at its usual size is larger than these six points.
    const auto tiny = NSFont::fontWithName(u"HelveticaNeue", 6);
    NSMutableAttributedString text(u"\uFFFC");
    text.appendAttributedString(NSAttributedString(u"item", inFont(tiny)));
    expectMetricsOf(lineMetricsAtIndex(&text, 0), *tiny);
}

TEST(LineMetrics, CountTheLineEndsFont)
{
    NSMutableAttributedString text(u"small", inFont(smallFont()));
    text.appendAttributedString(NSAttributedString(u"\n", inFont(largeFont())));
    text.appendAttributedString(NSAttributedString(u"behind", inFont(smallFont())));
    expectMetricsOf(lineMetricsAtIndex(&text, 0), *largeFont());
    expectMetricsOf(lineMetricsAtIndex(&text, 7), *smallFont());
}

TEST(LineMetrics, TakeHeightAndDescenderFromDifferentFonts)
{
    // Two faces of which one makes the taller line and the other reaches deeper.
    const auto menlo = NSFont::fontWithName(u"Menlo-Regular", 12);
    const auto neue = NSFont::fontWithName(u"HelveticaNeue", 12);
    ASSERT_TRUE(menlo && neue);
    const auto taller = CVLExtensions::lineHeight(*menlo) > CVLExtensions::lineHeight(*neue) ? menlo : neue;
    const auto other = taller == menlo ? neue : menlo;
    const auto name = other->fontName();
    // At the size where both lines are equally high, and just below it, the other one may reach deeper.
    for (double size = 8; size < 24; size += 0.25) {
        const auto scaled = NSFont::fontWithName(name, size);
        NSMutableAttributedString text(u"a", inFont(taller));
        text.appendAttributedString(NSAttributedString(u"b", inFont(scaled)));
        const auto metrics = lineMetricsAtIndex(&text, 0);
        EXPECT_EQ(metrics.lineHeight,
                  std::max(CVLExtensions::lineHeight(*taller), CVLExtensions::lineHeight(*scaled)));
        EXPECT_EQ(metrics.descender, std::min(taller->descender(), scaled->descender()));
    }
}
