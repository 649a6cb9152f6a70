#include "platform/html/HTMLStyleRules.h"

#include <gtest/gtest.h>

namespace {

std::string textOf(const CSSDeclarations& declarations)
{
    std::string text;
    for (const auto& [property, value] : declarations.all())
        text += property + ":" + value + ";";
    return text;
}

HTMLTag tagOf(std::string_view name, std::string_view classes = {}, std::string_view identifier = {})
{
    HTMLTag tag;
    tag.name = name;
    tag.attributes = {{"class", std::string(classes)}, {"id", std::string(identifier)}};
    return tag;
}

/// What a sheet says of a tag, the weakest first.
std::string styleIn(std::string_view sheet, const HTMLTag& tag)
{
    HTMLStyleRules rules;
    rules.addSheet(sheet);
    std::string text;
    for (const auto* declarations : rules.declarationsFor(tag))
        text += textOf(*declarations);
    return text;
}

} // namespace

TEST(CSSDeclarations, ReadsPairsAndLeavesWhatIsNone)
{
    EXPECT_EQ(textOf(CSSDeclarations("Color : Red ; ;x;margin:0 auto!important;font-family: 'A;b', c")),
              "color:Red;margin:0 auto;font-family:'A;b', c;");
    EXPECT_EQ(textOf(CSSDeclarations("color:;:red")), ":red;");
    EXPECT_EQ(textOf(CSSDeclarations("")), "");
}

TEST(CSSDeclarations, KeepsTheLastOfAProperty)
{
    EXPECT_EQ(textOf(CSSDeclarations("color:red;margin:0;color:blue")), "margin:0;color:blue;");
}

TEST(CSSDeclarations, KeepsSoManyPropertiesAndNoLongValues)
{
    std::string text;
    for (int index = 0; index < 100; ++index)
        text += "p" + std::to_string(index) + ":1;";
    EXPECT_EQ(CSSDeclarations(text).all().size(), 64U);
    EXPECT_EQ(CSSDeclarations("a:" + std::string(1024, 'x')).all().size(), 1U);
    EXPECT_EQ(CSSDeclarations("a:" + std::string(1025, 'x')).all().size(), 0U);
}

TEST(HTMLStyleRules, MatchesElementsClassesAndIdentifiers)
{
    struct Case {
        std::string_view sheet;
        std::string_view style;
    };

    const auto tag = tagOf("p", "a b", "x");
    for (const auto& [sheet, style] : {
             Case{"p{c:1}", "c:1;"},
             Case{"P{c:1}", "c:1;"},
             Case{".a{c:1}", "c:1;"},
             Case{".A{c:1}", ""},
             Case{"p.b{c:1}", "c:1;"},
             Case{"#x{c:1}", "c:1;"},
             Case{"p#x{c:1}", "c:1;"},
             Case{"div{c:1}", ""},
             Case{".c{c:1}", ""},
             Case{"div.a{c:1}", ""},
             Case{"q,p,div{c:1}", "c:1;"},
             Case{"p:link{c:1}", "c:1;"},
             Case{"p:visited{c:1}", "c:1;"},
         })
        EXPECT_EQ(styleIn(sheet, tag), style) << sheet;
}

TEST(HTMLStyleRules, PassesOverSelectorsOfOtherKinds)
{
    for (const auto* selector :
         {"div p", "div>p", "p+p", "p~p", "*", "p:hover", "p[a]", ".a.b", "p.a#x", "\\70"})
        EXPECT_EQ(styleIn(std::string(selector) + "{c:1}", tagOf("p", "a b", "x")), "") << selector;
}

TEST(HTMLStyleRules, GivesTheWeakestFirst)
{
    EXPECT_EQ(styleIn("p#x{e:1}#x{d:1}p.a{c:1}.a{b:1}p{a:1}", tagOf("p", "a", "x")), "a:1;b:1;c:1;d:1;e:1;");
}

TEST(HTMLStyleRules, LetsLaterRulesOfASelectorWin)
{
    EXPECT_EQ(styleIn("p{a:1;b:1}p{a:2}", tagOf("p")), "b:1;a:2;");
}

TEST(HTMLStyleRules, PassesOverAtRulesAndComments)
{
    EXPECT_EQ(styleIn("@import 'x';@media print{p{a:1}q{b:1}}p{c:1}", tagOf("p")), "c:1;");
    EXPECT_EQ(styleIn("@media screen{p{a:1}", tagOf("p")), "");
    EXPECT_EQ(styleIn("/*p{a:1}*/p{/* x */c:1}", tagOf("p")), "c:1;");
    EXPECT_EQ(styleIn("p{c:1}/* p{a:1}", tagOf("p")), "c:1;");
}

TEST(HTMLStyleRules, ReadsSheetsThatHideThemselves)
{
    EXPECT_EQ(styleIn("<!-- p{c:1} -->", tagOf("p")), "c:1;");
}

TEST(HTMLStyleRules, TakesUnfinishedRulesAsFarAsTheyGo)
{
    EXPECT_EQ(styleIn("p{c:1", tagOf("p")), "c:1;");
    EXPECT_EQ(styleIn("p", tagOf("p")), "");
    EXPECT_EQ(styleIn("}}p{c:1}", tagOf("p")), "c:1;");
}

TEST(HTMLStyleRules, LooksAtTheFirstClassesOnly)
{
    std::string classes;
    for (int index = 0; index < 16; ++index)
        classes += "x ";
    EXPECT_EQ(styleIn(".a{c:1}", tagOf("p", classes + "a")), "");
    EXPECT_EQ(styleIn(".a{c:1}", tagOf("p", classes.substr(2) + "a")), "c:1;");
}

TEST(HTMLStyleRules, KeepsSoManySelectors)
{
    std::string sheet;
    for (int index = 0; index < 20'000; ++index)
        sheet += ".c" + std::to_string(index) + "{a:1}";
    EXPECT_EQ(styleIn(sheet + ".b{a:1}", tagOf("p", "b")), "");
    EXPECT_EQ(styleIn(sheet + ".c0{b:1}", tagOf("p", "c0")), "a:1;b:1;");
}
