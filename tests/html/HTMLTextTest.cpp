#include "platform/html/HTMLText.h"

#include "platform/foundation/Unicode.h"

#include <gtest/gtest.h>

namespace {

struct Page {
    std::string title;
    std::string text;
};

Page rendered(std::string_view bytes, std::string_view charsetName = {})
{
    Page page;
    page.title = renderHTMLText(bytes, charsetName, [&page](std::string_view piece) {
        page.text.append(piece);
        return true;
    });
    return page;
}

std::string textOf(std::string_view html)
{
    return rendered(html).text;
}

std::string repeated(std::string_view piece, std::size_t count)
{
    std::string text;
    text.reserve(piece.size() * count);
    for (std::size_t index = 0; index < count; ++index)
        text += piece;
    return text;
}

} // namespace

TEST(HTMLText, PutsBlocksOnLinesOfTheirOwn)
{
    EXPECT_EQ(textOf("<h1>One</h1><p>Two<p>Three<div>Four<div>Five</div></div>Six"),
              "One\nTwo\nThree\nFour\nFive\nSix");
    EXPECT_EQ(textOf("<ul><li>One<li>Two</ul>Three<br>Four<br/>Five<hr>Six"),
              "One\nTwo\nThree\nFour\nFive\nSix");
}

TEST(HTMLText, KeepsWordsTogetherAcrossInlineElements)
{
    EXPECT_EQ(textOf("un<b>break</b>able <i>word</i>s, <a href='x'>a link</a>."),
              "unbreakable words, a link.");
    EXPECT_EQ(textOf("soft&shy;ly hy\xC2\xADphenated"), "softly hyphenated");
}

TEST(HTMLText, SeparatesTableCells)
{
    EXPECT_EQ(textOf("<table><tr><td>a<td>b</td></tr><tr><th>c</th><th>d</th></tr></table>"), "a\tb\nc\td");
}

TEST(HTMLText, CollapsesWhiteSpace)
{
    EXPECT_EQ(textOf(" \n one \t\r\n two&nbsp; \xC2\xA0three <b> four </b> five\n"),
              "one two three four five");
}

TEST(HTMLText, KeepsWhiteSpaceInPreformattedText)
{
    EXPECT_EQ(textOf("a<pre>\n  b\n\n    c</pre>d"), "a\n  b\n\n    c\nd");
    EXPECT_EQ(textOf("<pre>a<br>b</pre>"), "a\nb");
    EXPECT_EQ(textOf("<textarea> a &lt;b> </textarea>"), " a <b> ");
}

TEST(HTMLText, LeavesOutWhatIsNotSeen)
{
    EXPECT_EQ(
        textOf("a<script>if (x</b>y) '</scripty'</script>b<style>p{}</STYLE >c<template><p>x</template>d"
               "<noscript>no</noscript>e<!-- <p>x --->f<!doctype html>g<?php x ?>h<!-->i<iframe>x</iframe>j"),
        "abcdefghij");
}

TEST(HTMLText, GivesTheFirstTitleApart)
{
    const auto page = rendered(
        "<html><head><title> The\n&amp; <b>Title</title></head><body>Text<svg><title>Drawing</title>");
    EXPECT_EQ(page.title, "The & <b>Title");
    EXPECT_EQ(page.text, "Text\nDrawing");
}

TEST(HTMLText, ShowsTheTextsOfImages)
{
    EXPECT_EQ(textOf("see<img src=x alt='a  cat' title=\"Tom &amp; Co\">here"), "see a cat Tom & Co here");
    EXPECT_EQ(textOf("<img alt=same title=same><img alt=\"\"><img>"), "same");
}

TEST(HTMLText, DecodesReferences)
{
    EXPECT_EQ(textOf("&lt;&amp;&gt;&quot;&eacute;&euro;&#65;&#x42;&#X63;&#8364;"), "<&>\"é€ABc€");
    EXPECT_EQ(textOf("&copy2024 AT&T &nosuch; &amp &#; &#xg; a&b"), "©2024 AT&T &nosuch; & &#; &#xg; a&b");
    EXPECT_EQ(textOf("&#150;&#0;&#xD800;&#x110000;&#99999999999;"), "–\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(textOf("&euro"), "&euro");
    EXPECT_EQ(textOf("x&eacute"), "xé");
}

TEST(HTMLText, TakesStrayMarksForText)
{
    EXPECT_EQ(textOf("1 < 2 <3 a<"), "1 < 2 <3 a<");
    EXPECT_EQ(textOf("a</>b</ x>c</3>d"), "abcd");
}

TEST(HTMLText, SurvivesAttributesOfAnyShape)
{
    EXPECT_EQ(textOf("<p a='>' b=\">\" c=>x<p = d / e f=g/h>y<p a=\"b\"c>z<br/ >w"), "x\ny\nz\nw");
}

TEST(HTMLText, ReadsXHTML)
{
    const auto page = rendered("<?xml version='1.0'?><html><head><script src='x'/><title/></head>"
                               "<body><p>One</p><![CDATA[a < b ]] > c]]></body></html>");
    EXPECT_EQ(page.text, "One\na < b ]] > c");
    EXPECT_EQ(page.title, "");
}

TEST(HTMLText, StopsWhenTheReceiverHasEnough)
{
    const auto html = repeated("<p>some words", 100'000);
    std::size_t calls = 0;
    (void)renderHTMLText(html, "", [&calls](std::string_view) { return ++calls < 2; });
    EXPECT_EQ(calls, 2U);
}

TEST(HTMLText, TakesTheMarkBeforeTheGivenCharset)
{
    EXPECT_EQ(rendered("\xEF\xBB\xBF<p>\xC3\xA9", "iso-8859-1").text, "é");
    EXPECT_EQ(rendered(std::string_view("\xFF\xFE<\0p\0>\0\xE9\0", 10), "utf-8").text, "é");
}

TEST(HTMLText, TakesTheGivenCharsetBeforeThePage)
{
    EXPECT_EQ(rendered("<meta charset=koi8-r><p>\xE9", "iso-8859-2").text, "é");
    EXPECT_EQ(rendered("<meta charset='iso-8859-5'><p>\xB4\xD0", "no-such-charset").text, "Да");
    EXPECT_EQ(rendered("<meta http-equiv=Content-Type content='text/html; charset=koi8-r'><p>\xE4\xC1").text,
              "Да");
    EXPECT_EQ(rendered("<p>plain letters", "utf-16").text, "plain letters");
}

TEST(HTMLText, DecodesCharactersThatLieAcrossChunks)
{
    for (std::size_t padding = 65530; padding < 65540; ++padding) {
        const auto text = textOf(std::string(padding, 'x') + "€&euro;<b>€</b>");
        EXPECT_EQ(text, std::string(padding, 'x') + "€€€");
    }
}

TEST(HTMLText, FindsTheTextOfHostilePages)
{
    EXPECT_EQ(textOf(repeated("<div>", 20'000) + "deep" + repeated("</div>", 20'000)), "deep");
    EXPECT_EQ(textOf(repeated("<b><p><i></p>", 20'000) + "mixed"), "mixed");
    EXPECT_EQ(textOf("<p title='" + std::string(500'000, 'x') + "'>attribute"), "attribute");
    EXPECT_EQ(textOf("<" + std::string(500'000, 'x') + ">name"), "name");
    EXPECT_EQ(textOf("<p " + repeated("a=b ", 100'000) + ">attributes"), "attributes");
    EXPECT_EQ(textOf("<script>" + repeated("</scrip", 500'000) + "</script>script"), "script");
    EXPECT_EQ(textOf("<!--" + repeated("--", 100'000) + "-->comment"), "comment");
    EXPECT_EQ(textOf(repeated("<", 100'000)).size(), 100'000U);
    EXPECT_EQ(textOf(repeated("&#", 100'000)).size(), 200'000U);
    EXPECT_EQ(textOf(repeated("<pre>", 20'000) + " x"), " x");
}

TEST(HTMLText, GivesValidTextForAnyCut)
{
    const std::string html
        = "<?xml?><title>T&eacute;</title><p a='b&amp;é'>é<![CDATA[x]]><!--y--><script>z</script>"
          "<textarea>&lt;</textarea><img alt='é'>&#x20AC;";
    for (std::size_t length = 0; length <= html.size(); ++length) {
        const auto page = rendered(std::string_view(html).substr(0, length), "utf-8");
        EXPECT_TRUE(isValidUTF8(page.text)) << length;
        EXPECT_TRUE(isValidUTF8(page.title)) << length;
    }
}

TEST(HTMLText, CutsLongTitlesAndAttributesBetweenCharacters)
{
    for (const auto* start : {"", "x", "xx"}) {
        const auto page = rendered("<title>" + (start + repeated("€", 2000)) + "</title>", "utf-8");
        EXPECT_TRUE(isValidUTF8(page.title));
        EXPECT_GT(page.title.size(), 4090U);
        EXPECT_TRUE(isValidUTF8(rendered("<img alt='" + (start + repeated("€", 2000)) + "'>", "utf-8").text));
    }
}

TEST(HTMLText, RendersNothingForNothing)
{
    EXPECT_EQ(textOf(""), "");
    EXPECT_EQ(textOf("<html><body></body></html>"), "");
    EXPECT_EQ(textOf("<!-- never closed <p>x"), "");
    EXPECT_EQ(textOf("<p never closed"), "");
}
