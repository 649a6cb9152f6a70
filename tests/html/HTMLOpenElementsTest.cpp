#include "platform/html/HTMLOpenElements.h"

#include "platform/html/CSSValues.h"
#include "platform/html/HTMLImpliedEnds.h"

#include <gtest/gtest.h>

#include <array>

namespace {

constexpr std::size_t kNone = HTMLOpenElement::kNone;

/// The elements of these names within each other; the first is in place 1.
HTMLOpenElements elementsOf(std::string_view names)
{
    HTMLOpenElements elements{HTMLOpenElement()};
    for (const auto name : cssWords(names)) {
        HTMLOpenElement element;
        element.name.assign(name);
        element.isBlock = name == "p" || name == "div";
        elements.push(std::move(element));
    }
    return elements;
}

} // namespace

TEST(HTMLOpenElements, FindsTheInnermostOfAName)
{
    auto elements = elementsOf("p b p i");
    EXPECT_EQ(elements.placeOf("p", {}), 3U);
    EXPECT_EQ(elements.placeOf("p", {}, 3), 1U);
    EXPECT_EQ(elements.placeOf("p", {}, 1), kNone);
    EXPECT_EQ(elements.placeOf("q", {}), kNone);
    elements.pop();
    elements.pop();
    EXPECT_EQ(elements.placeOf("p", {}), 1U);
    EXPECT_EQ(elements.placeOf("i", {}), kNone);
}

TEST(HTMLOpenElements, LooksNoFurtherThanALimit)
{
    const auto elements = elementsOf("p td b");
    constexpr std::array<std::string_view, 1> kLimits{"td"};
    EXPECT_EQ(elements.placeOf("p", kLimits), kNone);
    EXPECT_EQ(elements.placeOf("td", kLimits), 2U);
}

TEST(HTMLOpenElements, EndsFormattingThatABlockBeganWithin)
{
    auto elements = elementsOf("b p i");
    elements[1].style.weight = 700;
    elements[1].meaning.link = std::u16string(u"x");
    elements[2].style.weight = 700;
    elements[3].style.weight = 900;
    EXPECT_TRUE(elements.holdsBlock(1));
    EXPECT_FALSE(elements.holdsBlock(2));
    elements.endFormatting(1);
    EXPECT_EQ(elements.size(), 4U);
    EXPECT_EQ(elements[2].style.weight, 400);
    EXPECT_EQ(elements[3].style.weight, 900);
    EXPECT_EQ(elements[1].meaning.link, u"");
    EXPECT_EQ(elements.placeOf("b", {}), kNone);
}

TEST(HTMLOpenElements, KeepsSomeFormattingOfAnElementThatEnds)
{
    EXPECT_EQ(elementsOf("p b span i").formattingWithin(1).size(), 2U);
    EXPECT_EQ(elementsOf("p b b b b b b b b b b b b").formattingWithin(1).size(), 8U);
    EXPECT_EQ(elementsOf("b p").formattingWithin(2).size(), 0U);
}

TEST(HTMLImpliedEnds, KnowsWhatAStartTagEnds)
{
    struct Case {
        std::string_view open;
        std::string_view name;
        std::size_t place;
    };

    for (const auto& [open, name, place] : {
             Case{"ul li b", "li", 2},
             Case{"ul li ul", "li", kNone},
             Case{"dl dt", "dd", 2},
             Case{"dl dd dl", "dd", kNone},
             Case{"table tr td b", "td", 3},
             Case{"table tr th", "td", 3},
             Case{"table tr td", "tr", 2},
             Case{"table tbody tr td", "tbody", 2},
             Case{"table tr td table", "tr", kNone},
             Case{"table tr td table tr", "tr", 5},
             Case{"select option", "option", 2},
             Case{"p", "p", kNone},
             Case{"", "li", kNone},
         })
        EXPECT_EQ(elementEndedByStart(name, elementsOf(open)), place) << open << ", " << name;
}

TEST(HTMLImpliedEnds, KnowsWhatAnEndTagEnds)
{
    struct Case {
        std::string_view open;
        std::string_view name;
        std::size_t place;
    };

    for (const auto& [open, name, place] : {
             Case{"p b i", "p", 1},
             Case{"p table tr td", "p", kNone},
             Case{"table tr td b", "table", 1},
             Case{"table tr td table tr td", "table", 4},
             Case{"table tr td b", "tr", 2},
             Case{"table tr td table", "td", kNone},
             Case{"b", "i", kNone},
         })
        EXPECT_EQ(elementEndedByEnd(name, elementsOf(open)), place) << open << ", " << name;
}

TEST(HTMLImpliedEnds, FindsTheParagraphOfTheInnermostCell)
{
    EXPECT_EQ(openParagraph(elementsOf("p b")), 1U);
    EXPECT_EQ(openParagraph(elementsOf("p table tr td")), kNone);
    EXPECT_EQ(openParagraph(elementsOf("p table tr td p i")), 5U);
}
