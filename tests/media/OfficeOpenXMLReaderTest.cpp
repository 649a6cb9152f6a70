#include "platform/media/OfficeOpenXMLReader.h"

#include "platform/media/OfficePackage.h"
#include "tests/support/CompoundFileBytes.h"
#include "tests/support/ReadWith.h"
#include "tests/support/ZipBytes.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr std::string_view kType = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
constexpr std::string_view kStrictType = "http://purl.oclc.org/ooxml/officeDocument/relationships/";

struct Link {
    std::string identifier;
    std::string kind;
    std::string target;
};

ZipMember relationships(const std::string& name, const std::vector<Link>& links,
                        std::string_view type = kType)
{
    std::string xml = "<Relationships xmlns='r'>";
    for (const auto& [identifier, kind, target] : links) {
        xml.append("<Relationship Id='").append(identifier).append("' Type='").append(type).append(kind);
        xml.append("' Target='").append(target).append("'/>");
    }
    return {name, xml + "</Relationships>"};
}

std::string paragraph(const std::string& text)
{
    return "<w:p><w:r><w:t>" + text + "</w:t></w:r></w:p>";
}

std::string part(const std::string& root, const std::string& content)
{
    return "<w:" + root + " xmlns:w='w' xmlns:r='r'>" + content + "</w:" + root + ">";
}

std::vector<ZipMember> wordDocument(const std::string& body)
{
    return {relationships("_rels/.rels", {{"rId1", "officeDocument", "word/document.xml"}}),
            {"word/document.xml", part("document", "<w:body>" + body + "</w:body>")}};
}

} // namespace

TEST(OfficeOpenXMLReader, ReadsTheBodyAndThePartsThatBelongToIt)
{
    auto members = wordDocument(paragraph("body"));
    members.insert(members.begin(), {"word/footnotes.xml", part("footnotes", paragraph("note"))});
    members.push_back({"word/header1.xml", part("hdr", paragraph("header"))});
    members.push_back({"word/styles.xml", part("styles", paragraph("style"))});
    members.push_back(relationships("word/_rels/document.xml.rels",
                                    {{"a", "header", "header1.xml"},
                                     {"b", "header", "/word/HEADER1.xml"},
                                     {"c", "header", "header1.xml"},
                                     {"d", "styles", "styles.xml"},
                                     {"e", "footnotes", "../word/footnotes.xml"}}));
    const auto content = readWith(readOfficeOpenXML, zipOf(members));
    EXPECT_EQ(content.status, ContentStatus::Read) << content.reason;
    EXPECT_EQ(content.text, "body\nheader\nnote\n");
}

TEST(OfficeOpenXMLReader, FindsAMainPartAnywhere)
{
    const ZipMember main{"here/main part.xml", part("document", paragraph("text"))};
    for (const auto type : {kType, kStrictType}) {
        const auto root
            = relationships("_rels/.rels", {{"a", "officeDocument", "/here/main%20part.xml"}}, type);
        EXPECT_EQ(readWith(readOfficeOpenXML, zipOf({root, main})).text, "text\n");
    }
    // Without relationships it is looked for where it usually is.
    EXPECT_EQ(readWith(readOfficeOpenXML, zipOf({{"word/document.xml", main.bytes}})).text, "text\n");
}

TEST(OfficeOpenXMLReader, TakesTheDescription)
{
    auto members = wordDocument(paragraph("text"));
    members.push_back(
        {"docProps/core.xml",
         "<cp:coreProperties xmlns:cp='c' xmlns:dc='d'><dc:title> A &amp; B "
         "</dc:title><dc:creator>Ann</dc:creator>"
         "<dc:subject/><cp:keywords>k1 k2</cp:keywords><cp:revision>4</cp:revision></cp:coreProperties>"});
    const auto content = readWith(readOfficeOpenXML, zipOf(members));
    EXPECT_EQ(fieldOf(content, "title"), "A & B");
    EXPECT_EQ(fieldOf(content, "author"), "Ann");
    EXPECT_EQ(fieldOf(content, "keywords"), "k1 k2");
    EXPECT_EQ(content.fields.size(), 3U);
}

TEST(OfficeOpenXMLReader, ReadsASheetThroughItsSharedStrings)
{
    const auto content = readWith(
        readOfficeOpenXML,
        zipOf({relationships("_rels/.rels", {{"a", "officeDocument", "xl/workbook.xml"}}),
               {"xl/worksheets/sheet1.xml",
                part("worksheet",
                     "<row><c t='s'><v>1</v></c><c><v>0.10000000000000001</v></c><c t='b'><v>1</v></c><c "
                     "t='e'><v>#REF!</v></c>"
                     "</row><row><c t='inlineStr'><is><t>in</t><t>line</t></is></c><c "
                     "t='str'><f>A1</f><v>result</v></c>"
                     "<c t='s'><v>99</v></c><c t='s'><v>x</v></c><c/></row>")},
               {"xl/sharedStrings.xml",
                part("sst",
                     "<si><t>zero</t></si><si><r><t>o</t></r><rPh><t>guide</t></rPh><r><t>ne</t></r></si>")},
               {"xl/comments1.xml",
                part("comments",
                     "<authors><author>Ann</author></authors><comment><text><t>remark</t></text></comment>")},
               relationships("xl/worksheets/_rels/sheet1.xml.rels", {{"a", "comments", "../comments1.xml"}}),
               relationships("xl/_rels/workbook.xml.rels",
                             {{"a", "worksheet", "worksheets/sheet1.xml"},
                              {"b", "sharedStrings", "sharedStrings.xml"}}),
               {"xl/workbook.xml",
                part("workbook", "<sheets><sheet name='R&amp;D' sheetId='1' r:id='a'/></sheets>")}}));
    EXPECT_EQ(content.status, ContentStatus::Read) << content.reason;
    EXPECT_EQ(content.text, "R&D\none\t0.1\tTRUE\t\ninline\tresult\t\nremark\n");
}

TEST(OfficeOpenXMLReader, ReadsSlidesInTheirOrderWithTheirNotes)
{
    const auto content = readWith(
        readOfficeOpenXML,
        zipOf({relationships("_rels/.rels", {{"a", "officeDocument", "ppt/presentation.xml"}}),
               {"ppt/presentation.xml",
                part("presentation",
                     "<sldIdLst><sldId id='256' r:id='b'/><sldId id='257' r:id='a'/><sldId id='1' "
                     "r:id='none'/></sldIdLst>")},
               relationships("ppt/_rels/presentation.xml.rels",
                             {{"a", "slide", "slides/slide1.xml"}, {"b", "slide", "slides/slide2.xml"}}),
               {"ppt/slides/slide1.xml", part("sld", paragraph("first file"))},
               {"ppt/slides/slide2.xml", part("sld", paragraph("second file"))},
               {"ppt/notesSlides/notesSlide1.xml", part("notes", paragraph("notes"))},
               relationships("ppt/slides/_rels/slide2.xml.rels",
                             {{"a", "notesSlide", "../notesSlides/notesSlide1.xml"}})}));
    EXPECT_EQ(content.status, ContentStatus::Read) << content.reason;
    EXPECT_EQ(content.text, "second file\nnotes\nfirst file\n");
}

TEST(OfficeOpenXMLReader, TellsDamageOfTheBodyFromDamageElsewhere)
{
    auto members = wordDocument(paragraph("body"));
    members.push_back({"word/footnotes.xml", "<w:footnotes xmlns:w='w'>" + paragraph("note") + "<broken"});
    members.push_back(relationships("word/_rels/document.xml.rels", {{"a", "footnotes", "footnotes.xml"}}));
    members.push_back({"docProps/core.xml", "<no XML"});
    const auto content = readWith(readOfficeOpenXML, zipOf(members));
    EXPECT_EQ(content.status, ContentStatus::Read);
    EXPECT_EQ(content.text, "body\nnote\n");

    members[1].bytes.resize(members[1].bytes.size() - 10);
    const auto damaged = readWith(readOfficeOpenXML, zipOf(members));
    EXPECT_EQ(damaged.status, ContentStatus::Damaged);
    EXPECT_EQ(damaged.text, "body\nnote\n");
}

TEST(OfficeOpenXMLReader, RefusesWhatHoldsNoDocument)
{
    EXPECT_EQ(readWith(readOfficeOpenXML, "").status, ContentStatus::Damaged);
    EXPECT_EQ(readWith(readOfficeOpenXML, "not a zip file").status, ContentStatus::Damaged);
    EXPECT_EQ(readWith(readOfficeOpenXML, zipOf({{"photo.jpg", "x"}})).status, ContentStatus::Damaged);
    const auto whole = zipOf(wordDocument(paragraph("text")));
    EXPECT_EQ(readWith(readOfficeOpenXML, std::string_view(whole).substr(0, whole.size() / 2)).status,
              ContentStatus::Damaged);
}

TEST(OfficeOpenXMLReader, TellsBothKindsOfEncryption)
{
    EXPECT_EQ(readWith(readOfficeOpenXML, zipOf(wordDocument(paragraph("text")), "password")).status,
              ContentStatus::Locked);
    EXPECT_EQ(readWith(readOfficeOpenXML, compoundFileOf({{"EncryptedPackage", "x"}})).status,
              ContentStatus::Locked);
    EXPECT_EQ(readWith(readOfficeOpenXML, compoundFileOf({{"WordDocument", "x"}})).status,
              ContentStatus::Damaged);
}

TEST(OfficeOpenXMLReader, KeepsWhatFitsIntoItsLimits)
{
    ContentLimits limits;
    limits.textBytes = 1000;
    std::string body;
    for (int count = 0; count < 1000; ++count)
        body += paragraph("word");
    const auto content = readWith(readOfficeOpenXML, zipOf(wordDocument(body)), limits);
    EXPECT_EQ(content.status, ContentStatus::Read);
    EXPECT_EQ(content.text.size(), 1000U);
    EXPECT_FALSE(content.cutNotes.empty());
}

TEST(OfficePackage, ResolvesTargets)
{
    struct Case {
        std::string_view base;
        std::string_view target;
        std::string_view name;
    };

    const std::vector<Case> cases{
        {"word/document.xml", "header1.xml", "word/header1.xml"},
        {"word/document.xml", "/docProps/core.xml", "docProps/core.xml"},
        {"word/document.xml", "../xl/./a.xml", "xl/a.xml"},
        {"word/document.xml", "../../../a.xml", "a.xml"},
        {"word/document.xml", "media\\a%20b.xml#part", "word/media/a b.xml"},
        {"", "word/document.xml", "word/document.xml"},
        {"a.opf", "", ""},
    };
    for (const auto& [base, target, name] : cases)
        EXPECT_EQ(resolvedMemberName(base, target), name) << target;
}
