// What a document points at: links by relationship and by field, and notes with their marks.

#include "platform/word/WordLinks.h"
#include "tests/word/ReadWord.h"

namespace {

std::u16string linkAt(const NSAttributedString& text, std::u16string_view part)
{
    const auto link = attributeAt(text, part, NSLinkAttributeName);
    if (const auto* const url = link.url()) {
        const auto& string = url->absoluteString();
        return {string.begin(), string.end()};
    }
    return link.string() ? *link.string() : u"";
}

std::string fieldMark(std::string_view kind)
{
    return "<w:r><w:fldChar w:fldCharType='" + std::string(kind) + "'/></w:r>";
}

std::string instruction(std::string_view text)
{
    return "<w:r><w:instrText>" + std::string(text) + "</w:instrText></w:r>";
}

std::string note(std::string_view element, int identifier, std::string_view text)
{
    return "<w:" + std::string(element) + " w:id='" + std::to_string(identifier) + "'>" + wordParagraph(text)
        + "</w:" + std::string(element) + ">";
}

} // namespace

TEST(WordLinks, LeadWhereTheRelationshipSays)
{
    WordPackageBytes document;
    document.parts.push_back({"r1", "hyperlink", "https://example.com/a?b=c", {}, true});
    document.body = "<w:p>" + wordRun("before") + "<w:hyperlink r:id='r1' w:tooltip='Tip'>" + wordRun("link")
        + "</w:hyperlink><w:hyperlink r:id='r1' w:anchor='place'>" + wordRun("anchored")
        + "</w:hyperlink><w:hyperlink w:anchor='place'>" + wordRun("inner") + "</w:hyperlink>"
        + "<w:hyperlink r:id='absent'>" + wordRun("lost") + "</w:hyperlink></w:p>";
    const auto text = textOfWord(document);
    EXPECT_EQ(text.string(), u"beforelinkanchoredinnerlost\n");
    EXPECT_EQ(linkAt(text, u"before"), u"");
    EXPECT_EQ(linkAt(text, u"link"), u"https://example.com/a?b=c");
    EXPECT_EQ(attributeAt(text, u"link", NSToolTipAttributeName), NSAny(u"Tip"));
    EXPECT_EQ(linkAt(text, u"anchored"), u"https://example.com/a?b=c#place");
    EXPECT_EQ(linkAt(text, u"inner"), u"");
    EXPECT_EQ(linkAt(text, u"lost"), u"");
}

TEST(WordLinks, ThatAreNoURLsAreTexts)
{
    WordPackageBytes document;
    document.parts.push_back({"r1", "hyperlink", "two words", {}, true});
    document.body = "<w:p><w:hyperlink r:id='r1'>" + wordRun("link") + "</w:hyperlink></w:p>";
    const auto link = attributeAt(textOfWord(document), u"link", NSLinkAttributeName);
    ASSERT_TRUE(link.string());
    EXPECT_EQ(*link.string(), u"two words");
}

TEST(WordLinks, OfFieldsReachOverParagraphs)
{
    const auto text = textOfWordBody(
        "<w:p>" + fieldMark("begin") + instruction(" HYPER") + instruction("LINK \"http://x.y/\" ")
        + fieldMark("separate") + wordRun("one") + "</w:p><w:p>" + wordRun("two") + fieldMark("end")
        + wordRun("three") + "</w:p><w:p><w:fldSimple w:instr='HYPERLINK \"http://z\"'>" + wordRun("four")
        + "</w:fldSimple></w:p>");
    EXPECT_EQ(text.string(), u"one\ntwothree\nfour\n");
    EXPECT_EQ(linkAt(text, u"one"), u"http://x.y/");
    EXPECT_EQ(linkAt(text, u"two"), u"http://x.y/");
    EXPECT_EQ(linkAt(text, u"three"), u"");
    EXPECT_EQ(linkAt(text, u"four"), u"http://z");
}

TEST(WordLinks, OfFieldsGoOnBehindFieldsWithinThem)
{
    const auto text = textOfWordBody(
        "<w:p>" + fieldMark("begin") + instruction("HYPERLINK http://x") + fieldMark("separate")
        + wordRun("a") + fieldMark("begin") + instruction("PAGE") + fieldMark("separate") + wordRun("7")
        + fieldMark("end") + wordRun("b") + fieldMark("end") + fieldMark("end") + wordRun("c") + "</w:p>");
    EXPECT_EQ(text.string(), u"a7bc\n");
    EXPECT_EQ(linkAt(text, u"7"), u"http://x");
    EXPECT_EQ(linkAt(text, u"b"), u"http://x");
    EXPECT_EQ(linkAt(text, u"c"), u"");
}

TEST(WordLinks, AreReadFromInstructions)
{
    struct Row {
        const char* instruction;
        const char* address;
        const char* toolTip;
    };

    constexpr std::array<Row, 8> kRows{
        {{" HYPERLINK \"a b\" ", "a b", ""},
         {"hyperlink x", "x", ""},
         {R"(HYPERLINK "x" \l "y" \o "a \"tip\"")", "x#y", "a \"tip\""},
         {R"(HYPERLINK \l "y")", "", ""},
         {R"(HYPERLINK \t "_blank" \n "C:\\folder\\file")", R"(C:\folder\file)", ""},
         {"HYPERLINK \"unclosed", "unclosed", ""},
         {"HYPERLINK", "", ""},
         {"REF x", "", ""}}};
    for (const auto& row : kRows) {
        const auto link = linkOfFieldInstruction(row.instruction);
        EXPECT_EQ(link.address, row.address) << row.instruction;
        EXPECT_EQ(link.toolTip, row.toolTip) << row.instruction;
    }
}

TEST(WordNotes, FollowTheBodyInTheOrderOfTheirReferences)
{
    WordPackageBytes document;
    document.parts = {
        {"f", "footnotes", "footnotes.xml",
         wordRoot("footnotes",
                  "<w:footnote w:type='separator' w:id='-1'><w:p><w:r><w:separator/></w:r></w:p></w:footnote>"
                      + note("footnote", 1, "first") + note("footnote", 2, "second")
                      + note("footnote", 3, "orphan"))},
        {"e", "endnotes", "endnotes.xml", wordRoot("endnotes", note("endnote", 1, "end"))},
        {"c", "comments", "comments.xml", wordRoot("comments", note("comment", 0, "remark"))},
        {"h", "header", "header1.xml", wordRoot("hdr", wordParagraph("head"))},
    };
    document.body = "<w:p>" + wordRun("a") + "<w:r><w:footnoteReference w:id='2'/></w:r>" + wordRun("b")
        + "<w:r><w:footnoteReference w:id='1'/></w:r>" + wordRun("c")
        + "<w:r><w:endnoteReference w:id='1'/></w:r>" + wordRun("d")
        + "<w:r><w:commentReference w:id='0'/></w:r></w:p>";
    const auto text = textOfWord(document);
    EXPECT_EQ(text.string(),
              u"a[1]b[2]c[i]d[c1]\n[1] second\n[2] first\norphan\n[i] end\n[c1] remark\nhead\n");
    EXPECT_EQ(attributeAt(text, u"[1]", NSSuperscriptAttributeName), NSAny(1));
    EXPECT_FALSE(attributeAt(text, u"b[2]", NSSuperscriptAttributeName));
    EXPECT_EQ(attributeAt(text, u"[1] second", NSSuperscriptAttributeName), NSAny(1));
    EXPECT_FALSE(attributeAt(text, u"second", NSSuperscriptAttributeName));
}

TEST(WordNotes, HaveTheirMarkWhereTheirTextSaysSo)
{
    WordPackageBytes document;
    document.parts = {{"f", "footnotes", "footnotes.xml",
                       wordRoot("footnotes",
                                "<w:footnote w:id='1'><w:p>" + wordRun("See ") + "<w:r><w:footnoteRef/></w:r>"
                                    + wordRun(": x")
                                    + "</w:p></w:footnote>"
                                      "<w:footnote w:id='2'><w:p><w:r><w:footnoteRef/></w:r>"
                                    + wordRun(" y") + "</w:p></w:footnote>")}};
    document.body = "<w:p>" + wordRun("a") + "<w:r><w:footnoteReference w:id='2'/></w:r></w:p>";
    EXPECT_EQ(textOfWord(document).string(), u"a[1]\n[1] y\nSee : x\n");
}

TEST(WordNotes, WithMarksOfTheirOwnKeepThem)
{
    WordPackageBytes document;
    document.parts
        = {{"f", "footnotes", "footnotes.xml", wordRoot("footnotes", note("footnote", 1, "* note"))}};
    document.body = "<w:p>" + wordRun("a")
        + "<w:r><w:footnoteReference w:customMarkFollows='1' w:id='1'/><w:t>*</w:t></w:r></w:p>";
    EXPECT_EQ(textOfWord(document).string(), u"a*\n* note\n");
}

TEST(WordNotes, HaveLinksOfTheirOwnPart)
{
    WordPackageBytes document;
    document.parts = {{"f", "footnotes", "footnotes.xml",
                       wordRoot("footnotes",
                                "<w:footnote w:id='1'><w:p><w:hyperlink r:id='r1'>" + wordRun("link")
                                    + "</w:hyperlink></w:p></w:footnote>")},
                      {"r1", "hyperlink", "http://body", {}, true}};
    document.members
        = {{"word/_rels/footnotes.xml.rels",
            "<Relationships xmlns='r'><Relationship Id='r1' Type='x/hyperlink' TargetMode='External' "
            "Target='http://note'/></Relationships>"}};
    document.body = wordParagraph("a");
    EXPECT_EQ(linkAt(textOfWord(document), u"link"), u"http://note");
}

TEST(WordNotes, InDiagramsAndInsertedDocumentsComeLastAsPlainText)
{
    WordPackageBytes document;
    document.parts = {{"i", "aFChunk", "part.txt", "inserted"},
                      {"d", "diagramData", "data.xml", "<a:p xmlns:a='a'><a:t>diagram</a:t></a:p>"},
                      {"f", "footer", "footer1.xml", wordRoot("ftr", wordParagraph("foot"))}};
    document.body = wordParagraph("body");
    EXPECT_EQ(textOfWord(document).string(), u"body\ninserted\ndiagram\nfoot\n");
}
