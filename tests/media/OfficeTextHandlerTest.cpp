#include "platform/media/OfficeTextHandler.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::string textOf(std::string_view xml)
{
    ContentSink sink(ContentLimits{});
    OfficeTextHandler handler(sink);
    XMLTextStream stream(handler, sink);
    EXPECT_TRUE(stream.append(xml)) << xml;
    EXPECT_EQ(stream.finish(), PartStatus::Read) << xml;
    return sink.takeContent(ContentStatus::Read).text;
}

} // namespace

TEST(OfficeTextHandler, KeepsWhatIsSeen)
{
    struct Case {
        std::string_view xml;
        std::string_view text;
    };

    const std::vector<Case> cases{
        {"<d><p><r><t>one</t></r><r><t> two</t></r></p><p><r><t>three</t></r></p></d>", "one two\nthree\n"},
        {"<d><p><pPr><tabs><tab/></tabs></pPr><t>a</t><tab/><t>b</t><br/><t>c</t><cr/><t>d</t></p></d>",
         "a b\nc\nd\n"},
        {"<d><p><t>non</t><noBreakHyphen/><t>stop</t></p></d>", "non\u2011stop\n"},
        {"<d><p><t>soft</t><softHyphen/><t>ware</t></p></d>", "software\n"},
        {"<d><tr><tc><p><t>a</t></p></tc><tc><p><t>b</t></p></tc></tr></d>", "a\nb\n"},
        {"<p><ins><r><t>kept</t></r></ins><del><r><delText>gone</delText></r></del></p>", "kept\n"},
        {"<p><moveFrom><r><t>gone</t></r></moveFrom><moveTo><r><t>kept</t></r></moveTo></p>", "kept\n"},
        {"<p><instrText>PAGE</instrText><t>7</t></p>", "7\n"},
        {"<p><fldSimple instr='PAGE'><t>7</t></fldSimple></p>", "7\n"},
        {"<p><ruby><rt><r><t>kana</t></r></rt><rubyBase><r><t>base</t></r></rubyBase></ruby></p>", "base\n"},
        {"<p><sym char='03B1'/><sym char='F061'/><sym char='zz'/><sym char=''/><sym char='110000'/></p>",
         "α\n"},
        {"<p><textpath string='art'/></p>", "art\n"},
        {"<p>no text element</p>", ""},
        {"<text><r><t>a</t></r> <r><t>b</t></r></text>", "ab"},
        {"<c><comment><text>one</text></comment><comment><text>two</text></comment></c>", "one\ntwo\n"},
    };
    for (const auto& [xml, text] : cases)
        EXPECT_EQ(textOf(xml), text) << xml;
}

TEST(OfficeTextHandler, TakesTheFirstAlternativeWithText)
{
    EXPECT_EQ(textOf("<d><AlternateContent><Choice><t>a</t></Choice><Choice><t>b</t></Choice>"
                     "<Fallback><t>c</t></Fallback></AlternateContent><t>d</t></d>"),
              "ad");
    EXPECT_EQ(textOf("<d><AlternateContent><Choice><pic/></Choice><Fallback><t>c</t></Fallback></"
                     "AlternateContent></d>"),
              "c");
    EXPECT_EQ(textOf("<d><AlternateContent><Choice><AlternateContent><Choice><t>a</t></Choice>"
                     "<Fallback><t>b</t></Fallback></AlternateContent></Choice>"
                     "<Fallback><t>c</t></Fallback></AlternateContent></d>"),
              "a");
}

TEST(OfficeTextHandler, PutsATextBoxOnItsOwnLine)
{
    EXPECT_EQ(textOf("<p><t>before</t><txbxContent><p><t>box</t></p></txbxContent><t>after</t></p>"),
              "before\nbox\nafter\n");
}
