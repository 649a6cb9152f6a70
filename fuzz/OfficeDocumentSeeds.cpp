#include "fuzz/Seeds.h"
#include "tests/support/ZipBytes.h"

#include <string_view>

// The target's first byte chooses the reader; what is none of these stands before bare XML.

namespace {

constexpr char kOfficeOpenXML = 0;
constexpr char kOpenDocument = 1;
constexpr char kEPUB = 2;
constexpr char kXML = 'x';

struct Relationship {
    std::string_view kind;
    std::string_view target;
};

/// The relationships get the identifiers "r0", "r1" and so on.
std::string relationships(const std::vector<Relationship>& links)
{
    constexpr std::string_view kType = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
    std::string xml = "<Relationships xmlns='r'>";
    for (std::size_t index = 0; index < links.size(); ++index) {
        xml.append("<Relationship Id='r").append(std::to_string(index)).append("' Type='").append(kType);
        xml.append(links[index].kind).append("' Target='").append(links[index].target).append("'/>");
    }
    return xml + "</Relationships>";
}

std::string root(std::string_view name, std::string_view content)
{
    return std::string("<w:").append(name).append(" xmlns:w='w' xmlns:r='r'>").append(content)
        + "</w:" + std::string(name) + ">";
}

std::string paragraph(std::string_view text)
{
    return std::string("<w:p><w:r><w:t>").append(text) + "</w:t></w:r></w:p>";
}

std::string wordDocument()
{
    return zipOf(
        {{"_rels/.rels", relationships({{"officeDocument", "word/document.xml"}})},
         {"word/document.xml",
          root("document",
               "<w:body>" + paragraph("A café &amp; more") + "<w:tbl><w:tr><w:tc>" + paragraph("cell")
                   + "</w:tc></w:tr></w:tbl><w:del>" + paragraph("gone") + "</w:del></w:body>")},
         {"word/_rels/document.xml.rels",
          relationships({{"footnotes", "footnotes.xml"}, {"header", "/word/header1.xml"}})},
         {"word/footnotes.xml", root("footnotes", paragraph("note"))},
         {"word/header1.xml", root("hdr", paragraph("header"))},
         {"docProps/core.xml",
          "<c:coreProperties xmlns:c='c' xmlns:d='d'><d:title>Title</d:title></c:coreProperties>"}});
}

std::string workbook()
{
    return zipOf(
        {{"_rels/.rels", relationships({{"officeDocument", "xl/workbook.xml"}})},
         {"xl/workbook.xml",
          root("workbook", "<sheets><sheet name='R&amp;D' sheetId='1' r:id='r0'/></sheets>")},
         {"xl/_rels/workbook.xml.rels",
          relationships({{"worksheet", "worksheets/sheet1.xml"}, {"sharedStrings", "sharedStrings.xml"}})},
         {"xl/worksheets/sheet1.xml",
          root("worksheet",
               "<row><c t='s'><v>1</v></c><c><v>0.1</v></c><c t='inlineStr'><is><t>in</t></is></c></row>")},
         {"xl/sharedStrings.xml", root("sst", "<si><t>zero</t></si><si><r><t>one</t></r></si>")}});
}

std::string presentation()
{
    return zipOf(
        {{"_rels/.rels", relationships({{"officeDocument", "ppt/presentation.xml"}})},
         {"ppt/presentation.xml", root("presentation", "<sldIdLst><sldId id='256' r:id='r0'/></sldIdLst>")},
         {"ppt/_rels/presentation.xml.rels", relationships({{"slide", "slides/slide1.xml"}})},
         {"ppt/slides/slide1.xml", root("sld", paragraph("slide"))},
         {"ppt/slides/_rels/slide1.xml.rels",
          relationships({{"notesSlide", "../notesSlides/notesSlide1.xml"}})},
         {"ppt/notesSlides/notesSlide1.xml", root("notes", paragraph("notes"))}});
}

std::string openDocumentXML()
{
    return "<office:document xmlns:office='o' xmlns:text='t' xmlns:table='b' xmlns:style='s'><office:text>"
           "<text:h>Head</text:h><text:p>a<text:tab/>b<text:s "
           "text:c='3'/>c<text:note><text:note-body><text:p>"
           "note</text:p></text:note-body></text:note></text:p><table:table table:name='T'><table:table-cell>"
           "<text:p>cell</text:p></table:table-cell></table:table></office:text></office:document>";
}

std::string openDocument()
{
    return zipOf(
        {{"mimetype", "application/vnd.oasis.opendocument.text"},
         {"content.xml", openDocumentXML()},
         {"meta.xml",
          "<office:document-meta xmlns:office='o' xmlns:dc='c'><office:meta><dc:title>Title</dc:title>"
          "</office:meta></office:document-meta>"}});
}

std::string book()
{
    return zipOf(
        {{"META-INF/container.xml",
          "<container><rootfiles><rootfile full-path='book/content.opf'/></rootfiles></container>"},
         {"book/content.opf",
          "<package><metadata xmlns:dc='d'><dc:title>Book</dc:title></metadata><manifest>"
          "<item id='a' href='a%20b.xhtml'/></manifest><spine><itemref idref='a'/></spine></package>"},
         {"book/a b.xhtml", "<html><body><p>the <b>begin</b>ning</p></body></html>"}});
}

} // namespace

std::vector<Seed> officeDocumentSeeds()
{
    return {{"word-document", kOfficeOpenXML + wordDocument()},
            {"workbook", kOfficeOpenXML + workbook()},
            {"presentation", kOfficeOpenXML + presentation()},
            {"open-document", kOpenDocument + openDocument()},
            {"flat-open-document", kOpenDocument + openDocumentXML()},
            {"book", kEPUB + book()},
            {"xml", kXML + root("document", "<w:body>" + paragraph("A café &#x26; more") + "</w:body>")}};
}
