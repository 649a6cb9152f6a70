#include "cli/StringLines.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using nlohmann::json;

TEST(StringLines, ListTagsInTheirOrder)
{
    const std::vector<std::u16string> names = {u"to do", u"caf\u00E9"};
    const std::vector<NSRange> ranges = {{0, 6}, {7, 5}};
    EXPECT_EQ(hashtagsLine(names, ranges),
              "[{\"name\":\"to do\",\"location\":0,\"length\":6},"
              "{\"name\":\"caf\xC3\xA9\",\"location\":7,\"length\":5}]");
    EXPECT_EQ(hashtagsLine({}, {}), "[]");
}

TEST(StringLines, ListRanges)
{
    const std::vector<NSRange> ranges = {{1, 2}};
    EXPECT_EQ(rangesLine(ranges), "[{\"location\":1,\"length\":2}]");
    EXPECT_EQ(rangesLine({}), "[]");
}

TEST(StringLines, SayWhatALineOfMarkdownIs)
{
    const auto ordered = json::parse(markdownLine(u"  12. Milk"));
    EXPECT_EQ(ordered.at("listType"), "ordered");
    EXPECT_EQ(ordered.at("bullet"), "  12. ");
    EXPECT_EQ(ordered.at("number"), 12);
    EXPECT_EQ(ordered.at("checklist"), nullptr);
    const auto item = json::parse(markdownLine(u"    - [x] Milk"));
    EXPECT_EQ(item.at("listType"), "unordered");
    EXPECT_EQ(item.at("number"), nullptr);
    EXPECT_EQ(item.at("checklist"), (json{{"value", true}, {"indentationLevel", 1}}));
    const auto marked = json::parse(markdownLine(u"***a***"));
    EXPECT_EQ(marked.at("strong"), "**");
    EXPECT_EQ(marked.at("emphasized"), "*");
    EXPECT_EQ(json::parse(markdownLine(u"~a~")).at("struckthrough"), true);
    EXPECT_EQ(json::parse(markdownLine(u"<mark>a</mark>")).at("highlighted"), true);
    EXPECT_EQ(json::parse(markdownLine(u"## a")).at("headingLevel"), 2);
}

TEST(StringLines, SayWhatALinkIs)
{
    const auto link = json::parse(markdownLine(u"[a](b \"c\")"));
    EXPECT_EQ(link.at("link"), (json{{"text", "a"}, {"link", "b"}, {"title", "c"}}));
    EXPECT_EQ(link.at("image"), nullptr);
    const auto image = json::parse(markdownLine(u"![a](b)"));
    EXPECT_EQ(image.at("image"), (json{{"altText", "a"}, {"link", "b"}, {"title", nullptr}}));
    EXPECT_EQ(image.at("link"), nullptr);
}

TEST(StringLines, SayThatPlainTextIsNothing)
{
    const json expected
        = {{"listType", "none"},   {"bullet", nullptr}, {"number", nullptr},     {"checklist", nullptr},
           {"headingLevel", 0},    {"strong", nullptr}, {"emphasized", nullptr}, {"struckthrough", false},
           {"highlighted", false}, {"link", nullptr},   {"image", nullptr}};
    EXPECT_EQ(json::parse(markdownLine(u"Milk")), expected);
    EXPECT_EQ(json::parse(markdownLine(u"")), expected);
}

} // namespace
