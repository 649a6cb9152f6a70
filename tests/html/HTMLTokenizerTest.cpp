#include "platform/html/HTMLTokenizer.h"

#include <gtest/gtest.h>

namespace {

/// Writes down what it is told, pieces of text joined.
class Recorder final : public HTMLTokenHandler {
public:
    void text(std::string_view text) override { record.append(text); }

    void startTag(const HTMLTag& tag) override
    {
        record += "[" + tag.name;
        for (const auto& attribute : tag.attributes)
            record += " " + attribute.name + "=" + attribute.value;
        record += tag.isSelfClosing ? "/]" : "]";
    }

    void endTag(std::string_view name) override { record.append("[/").append(name).append("]"); }

    std::string record;
};

std::string tokens(std::string_view html, std::size_t pieceByteCount)
{
    Recorder recorder;
    HTMLTokenizer tokenizer(recorder);
    for (; !html.empty(); html.remove_prefix(std::min(pieceByteCount, html.size())))
        tokenizer.append(html.substr(0, pieceByteCount));
    tokenizer.finish();
    return recorder.record;
}

} // namespace

TEST(HTMLTokenizer, TellsTagsFromText)
{
    EXPECT_EQ(tokens("<P Class=a ID='b c' disabled>x</P ><br/>&amp;", 1000),
              "[p class=a id=b c disabled=]x[/p][br/]&");
    EXPECT_EQ(tokens("<a href=\"?a=1&amp;b=2\">", 1000), "[a href=?a=1&b=2]");
}

TEST(HTMLTokenizer, GivesTheSameForAnyPieces)
{
    constexpr std::string_view kPage
        = "<!DOCTYPE html><html><!-- c -- > --><title>a &lt; b</title><p a='1' b=2 c>x&copy2 y</p>"
          "<script>'</scr' </script ><![CDATA[ ]] ]]]><textarea></text</textarea><br/>&#x41;<";
    const auto whole = tokens(kPage, kPage.size());
    EXPECT_EQ(
        whole,
        "[html][title]a < b[/title][p a=1 b=2 c=]x©2 y[/p][script][/script] ]] ][textarea]</text[/textarea]"
        "[br/]A<");
    for (std::size_t pieceByteCount = 1; pieceByteCount < kPage.size(); ++pieceByteCount)
        EXPECT_EQ(tokens(kPage, pieceByteCount), whole) << pieceByteCount;
}

TEST(HTMLTokenizer, BoundsWhatItKeepsOfATag)
{
    Recorder recorder;
    HTMLTokenizer tokenizer(recorder);
    tokenizer.append("<p ");
    for (int index = 0; index < 1000; ++index)
        tokenizer.append("a='" + std::string(10'000, 'x') + "' ");
    tokenizer.append(">");
    EXPECT_LT(recorder.record.size(), 200'000U);
    EXPECT_TRUE(recorder.record.starts_with("[p a=xxx"));
}
