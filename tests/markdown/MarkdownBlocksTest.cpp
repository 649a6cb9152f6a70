#include "markdown/MarkdownBlocks.h"

#include "platform/foundation/Unicode.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

/// A line for each block: its quotes, lists and kind, and its text with bars for line ends.
std::string blocksOf(std::u16string_view markdown)
{
    std::string lines;
    readMarkdownBlocks(markdown, [&lines](const MarkdownBlock& block) {
        std::string line(block.quoteDepth, '>');
        for (const auto& list : block.lists)
            line += fmt::format("{}{}", list.isOrdered ? "o" : "u", list.identifier);
        if (block.beginsItem)
            line += block.isTicked ? (*block.isTicked ? "[x]" : "[ ]") : fmt::format("({})", block.number);
        constexpr std::array<char, 4> kKinds{'p', 'h', 'c', 'r'};
        line += kKinds.at(static_cast<std::size_t>(block.kind));
        if (block.level > 0)
            line += std::to_string(block.level);
        auto text = UTF8FromUTF16(block.text);
        std::replace(text.begin(), text.end(), '\n', '|');
        lines += fmt::format("{}{}{}\n", line, text.empty() ? "" : " ", text);
    });
    return lines;
}

struct Case {
    std::u16string_view markdown;
    std::string_view blocks;
};

std::u16string repeated(std::u16string_view text, std::size_t count)
{
    std::u16string result;
    while (count-- > 0)
        result += text;
    return result;
}

} // namespace

TEST(MarkdownBlocks, AreParagraphsBetweenBlankLines)
{
    for (const auto& [markdown, blocks] : {
             Case{u"", ""},
             Case{u"\n \n", ""},
             Case{u"a", "p a\n"},
             Case{u"a\nb\n\nc", "p a|b\np c\n"},
             Case{u"a\r\nb\r\n\r\nc\rd", "p a|b\np c|d\n"},
             Case{u"a  \n   b", "p a  |b\n"},
             Case{u"    a", "p a\n"},
         })
        EXPECT_EQ(blocksOf(markdown), blocks);
}

TEST(MarkdownBlocks, AreHeadingsOfBothKinds)
{
    for (const auto& [markdown, blocks] : {
             Case{u"# a\nb", "h1 a\np b\n"},
             Case{u"a\n## b", "p a\nh2 b\n"},
             Case{u"a\n===\nb\n--", "h1 a\nh2 b\n"},
             Case{u"a\nb\n---", "h2 a|b\n"},
             Case{u"#a", "p #a\n"},
             Case{u"===", "p ===\n"},
         })
        EXPECT_EQ(blocksOf(markdown), blocks);
}

TEST(MarkdownBlocks, AreRules)
{
    EXPECT_EQ(blocksOf(u"a\n\n---\n***\nb"), "p a\nr\nr\np b\n");
    EXPECT_EQ(blocksOf(u"* * *"), "r\n");
}

TEST(MarkdownBlocks, AreItemsOfLists)
{
    for (const auto& [markdown, blocks] : {
             Case{u"- a\n- b", "u1(1)p a\nu1(2)p b\n"},
             Case{u"- a\n\n- b", "u1(1)p a\nu1(2)p b\n"},
             Case{u"- a\n* b", "u1(1)p a\nu2(1)p b\n"},
             Case{u"3. a\n9. b", "o1(3)p a\no1(4)p b\n"},
             Case{u"1. a\n1) b", "o1(1)p a\no2(1)p b\n"},
             Case{u"- a\n  - b\n- c", "u1(1)p a\nu1u2(1)p b\nu1(2)p c\n"},
             Case{u"- a\n    - b\n        - c\n- d", "u1(1)p a\nu1u2(1)p b\nu1u2u3(1)p c\nu1(2)p d\n"},
             Case{u"- - a", "u1(1)p\nu1u2(1)p a\n"},
             Case{u"-\n- a", "u1(1)p\nu1(2)p a\n"},
             Case{u"- # a", "u1(1)h1 a\n"},
             Case{u"- a\nb", "u1(1)p a|b\n"},
             Case{u"- a\n\nb\n- c", "u1(1)p a\np b\nu2(1)p c\n"},
             Case{u"- a\n\n  b", "u1(1)p a\nu1p b\n"},
             Case{u"a\n- b", "p a\nu1(1)p b\n"},
             Case{u"a\n2. b", "p a|2. b\n"},
             Case{u"a\n1. b", "p a\no1(1)p b\n"},
         })
        EXPECT_EQ(blocksOf(markdown), blocks) << UTF8FromUTF16(std::u16string(markdown));
}

TEST(MarkdownBlocks, AreItemsToTick)
{
    for (const auto& [markdown, blocks] : {
             Case{u"- [ ] a\n- [x] b\n* [X] c", "u1[ ]p a\nu1[x]p b\nu2[x]p c\n"},
             Case{u"- [ ] a\n    - [x] b", "u1[ ]p a\nu1u2[x]p b\n"},
             Case{u"    - [x] a", "u1[x]p a\n"},
             Case{u"- [x]", "u1[x]p\n"},
             Case{u"- [x]a", "u1(1)p [x]a\n"},
             Case{u"1. [x] a", "o1(1)p [x] a\n"},
         })
        EXPECT_EQ(blocksOf(markdown), blocks);
}

TEST(MarkdownBlocks, AreCodeBetweenFences)
{
    for (const auto& [markdown, blocks] : {
             Case{u"```cpp\na\n\n  # b\n```\nc", "c a||  # b\np c\n"},
             Case{u"~~~\n```\n~~~", "c ```\n"},
             Case{u"````\n```\n````", "c ```\n"},
             Case{u"```\na", "c a\n"},
             Case{u"  ```\n    a\n  ```", "c   a\n"},
             Case{u"- ```\n  a\n  ```", "u1(1)c a\n"},
             Case{u"> ```\n> a\nb", ">c a\np b\n"},
             Case{u"```\n```", "c\n"},
         })
        EXPECT_EQ(blocksOf(markdown), blocks) << UTF8FromUTF16(std::u16string(markdown));
}

TEST(MarkdownBlocks, StandInQuotes)
{
    for (const auto& [markdown, blocks] : {
             Case{u"> a\n> b\n\nc", ">p a|b\np c\n"},
             Case{u"> a\n>> b", ">p a\n>>p b\n"},
             Case{u"> - a\n> - b", ">u1(1)p a\n>u1(2)p b\n"},
             Case{u"> a\nb", ">p a\np b\n"},
             Case{u">a\n>\n>b", ">p a\n>p b\n"},
         })
        EXPECT_EQ(blocksOf(markdown), blocks);
}

TEST(MarkdownBlocks, StandNoDeeperThanTheBounds)
{
    std::size_t deepest = 0;
    const auto measure = [&deepest](const MarkdownBlock& block) {
        deepest = std::max(deepest, block.lists.size() + block.quoteDepth);
    };
    readMarkdownBlocks(repeated(u"- ", 10'000) + u"x", measure);
    EXPECT_EQ(deepest, 16U);
    deepest = 0;
    readMarkdownBlocks(repeated(u">", 10'000) + u"x", measure);
    EXPECT_EQ(deepest, 8U);
    deepest = 0;
    std::u16string nested;
    for (std::size_t depth = 0; depth < 200; ++depth)
        nested += std::u16string(2 * depth, u' ') + u"- x\n";
    readMarkdownBlocks(nested, measure);
    EXPECT_EQ(deepest, 16U);
}
