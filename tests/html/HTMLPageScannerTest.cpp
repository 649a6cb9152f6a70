#include "platform/html/HTMLPageScanner.h"

#include <gtest/gtest.h>

namespace {

using Token = HTMLPageScanner::Token;

std::string textOf(const HTMLTag& tag)
{
    std::string text = tag.isEnd ? "[/" : "[";
    text += tag.name;
    for (const auto& attribute : tag.attributes)
        text += " " + attribute.name + "=" + attribute.value;
    return text + (tag.isSelfClosing ? "/]" : "]");
}

/// All tokens, tags in brackets.
std::string tokensOf(std::string_view page)
{
    HTMLPageScanner scanner(page);
    std::string tokens;
    for (auto token = scanner.next(); token != Token::End; token = scanner.next())
        tokens += token == Token::Text ? scanner.text() : textOf(scanner.tag());
    return tokens;
}

std::size_t tokenCountOf(std::string_view page)
{
    HTMLPageScanner scanner(page);
    std::size_t count = 0;
    while (scanner.next() != Token::End)
        ++count;
    return count;
}

std::string repeated(std::string_view text, std::size_t count)
{
    std::string result;
    while (count-- > 0)
        result += text;
    return result;
}

} // namespace

TEST(HTMLPageScanner, TellsTagsFromText)
{
    struct Case {
        std::string_view page;
        std::string_view tokens;
    };

    for (const auto& [page, tokens] : {
             Case{"", ""},
             Case{"x", "x"},
             Case{"<P Class=a ID='b c' disabled>x</P ><br/>&amp;", "[p class=a id=b c disabled=]x[/p][br/]&"},
             Case{"a < b <3 </ 4> c", "a < b <3  c"},
             Case{"<a href = \"x>y\" b>", "[a href=x>y b=]"},
             Case{"<a b=c/d>", "[a b=c/d]"},
             Case{"<a/b>", "[a b=]"},
             Case{"<a =b>", "[a =b=]"},
             Case{"<a b=&lt;>", "[a b=<]"},
             Case{"</p a=b>", "[/p a=b]"},
         })
        EXPECT_EQ(tokensOf(page), tokens) << page;
}

TEST(HTMLPageScanner, PassesOverCommentsAndDeclarations)
{
    EXPECT_EQ(tokensOf("a<!-- <b> -->c<!DOCTYPE html>d<?php x ?>e<![CDATA[f>g"), "acdeg");
    EXPECT_EQ(tokensOf("a<!-->b"), "ab");
    EXPECT_EQ(tokensOf("a<!-- b"), "a");
}

TEST(HTMLPageScanner, EndsWithThePageWhereverThatEnds)
{
    const std::string page = "<p a='b' c=d>&lt;</p><!-- -->";
    for (std::size_t length = 0; length <= page.size(); ++length) {
        const auto part = page.substr(0, length);
        EXPECT_LE(tokenCountOf(part), 4U) << part;
    }
}

TEST(HTMLPageScanner, KeepsSoManyAttributes)
{
    std::string page = "<p";
    for (std::size_t index = 0; index < HTMLPageScanner::kMostAttributes + 10; ++index)
        page += " a" + std::to_string(index);
    page += '>';
    HTMLPageScanner scanner(page);
    ASSERT_EQ(scanner.next(), Token::StartTag);
    EXPECT_EQ(scanner.tag().attributes.size(), HTMLPageScanner::kMostAttributes);
    EXPECT_EQ(scanner.next(), Token::End);
}

TEST(HTMLPageScanner, KeepsValuesInFullLength)
{
    const auto value = repeated("x", 100'000);
    const auto page = "<img src='" + value + "'>";
    HTMLPageScanner scanner(page);
    ASSERT_EQ(scanner.next(), Token::StartTag);
    EXPECT_EQ(scanner.tag().attribute("src"), value);
}

TEST(HTMLPageScanner, GivesWhatStandsBeforeAnEndTag)
{
    struct Case {
        std::string_view page;
        std::string_view content;
        std::string_view rest;
    };

    for (const auto& [page, content, rest] : {
             Case{"<style>p{}<b></style>x", "p{}<b>", "x"},
             Case{"<style></STYLE >x", "", "x"},
             Case{"<style></styles></style>x", "</styles>", "x"},
             Case{"<style>a</b></style", "a</b>", ""},
             Case{"<style>a", "a", ""},
         }) {
        HTMLPageScanner scanner(page);
        ASSERT_EQ(scanner.next(), Token::StartTag);
        EXPECT_EQ(scanner.takeRawContent(), content) << page;
        EXPECT_EQ(scanner.next(), rest.empty() ? Token::End : Token::Text) << page;
        if (!rest.empty()) {
            EXPECT_EQ(scanner.text(), rest);
        }
    }
}

TEST(HTMLPageScanner, GivesNoMoreTokensThanThePageHasTagsAndTexts)
{
    // Each piece is one token wherever it stands, or all of them are one: none is looked at twice.
    constexpr std::size_t kCount = 1000;
    EXPECT_EQ(tokenCountOf(repeated("<b>", kCount)), kCount);
    EXPECT_EQ(tokenCountOf(repeated("<b>x", kCount)), 2 * kCount);
    EXPECT_EQ(tokenCountOf(repeated("< ", kCount)), kCount);
    EXPECT_EQ(tokenCountOf(repeated("<!--", kCount)), 0U);
    EXPECT_EQ(tokenCountOf(repeated("<a href='", kCount)), 1U);
    EXPECT_EQ(tokenCountOf(repeated("&amp", kCount)), 1U);
}
