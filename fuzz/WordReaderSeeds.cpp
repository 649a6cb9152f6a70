#include "fuzz/Seeds.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"
#include "platform/word/NSAttributedStringWord.h"
#include "tests/support/WordPackageBytes.h"

#include <string_view>

// The target's first byte says which part the rest is.

namespace {

std::string body()
{
    return "<w:p><w:pPr><w:pStyle w:val='S'/><w:jc w:val='center'/><w:ind w:left='720' w:hanging='360'/>"
           "<w:spacing w:after='200' w:line='276' w:lineRule='auto'/><w:rPr><w:del/></w:rPr></w:pPr>"
        + wordRun("bold", "<w:b/><w:sz w:val='28'/><w:u w:val='double'/><w:color w:val='FF0000'/>")
        + "<w:r><w:tab/><w:br/><w:sym w:font='Symbol' w:char='F061'/></w:r><w:hyperlink r:id='l'>"
        + wordRun("link") + "</w:hyperlink></w:p>"
        + wordParagraph("item", "<w:numPr><w:ilvl w:val='1'/></w:numPr>")
        + "<w:p><w:r><w:fldChar w:fldCharType='begin'/><w:instrText>HYPERLINK \"http://y\" \\l "
          "z</w:instrText>"
          "<w:fldChar w:fldCharType='separate'/><w:t>field</w:t><w:fldChar w:fldCharType='end'/></w:r>"
          "<m:oMath><m:sSup><m:e><m:r><m:t>x</m:t></m:r></m:e><m:sup><m:r><m:t>2</m:t></m:r></m:sup></m:sSup>"
          "</m:oMath></w:p>"
        + "<w:sectPr><w:pgSz w:w='11900' w:h='16840'/><w:pgMar w:top='1440' w:left='1440'/></w:sectPr>";
}

std::string table()
{
    return "<w:tbl><w:tblPr><w:tblBorders><w:top w:val='single' w:sz='4'/></w:tblBorders></w:tblPr><w:tr>"
           "<w:tc><w:tcPr><w:vMerge w:val='restart'/><w:tcW w:w='1000' w:type='dxa'/></w:tcPr>"
        + wordParagraph("a") + "</w:tc><w:tc><w:tcPr><w:gridSpan w:val='2'/></w:tcPr><w:tbl><w:tr><w:tc>"
        + wordParagraph("inner")
        + "</w:tc></w:tr></w:tbl><w:p/></w:tc></w:tr><w:tr><w:tc><w:tcPr><w:vMerge/>"
          "</w:tcPr><w:p/></w:tc></w:tr></w:tbl>";
}

std::string shapes()
{
    return "<w:p><w:r><mc:AlternateContent><mc:Choice><w:drawing><wp:inline><wp:extent cx='127000' "
           "cy='127000'/>"
           "<pic:pic><a:blip r:embed='i'/></pic:pic></wp:inline><wps:txbx><w:txbxContent>"
        + wordParagraph("box")
        + "</w:txbxContent></wps:txbx></w:drawing></mc:Choice><mc:Fallback><w:pict>"
          "<v:shape style='width:10pt;height:10pt'><v:imagedata r:id='i'/></v:shape></w:pict></mc:Fallback>"
          "</mc:AlternateContent></w:r></w:p>";
}

std::string styles()
{
    return wordRoot(
        "styles",
        "<w:docDefaults><w:rPrDefault><w:rPr><w:sz w:val='22'/></w:rPr></w:rPrDefault></w:docDefaults>"
        "<w:style w:type='paragraph' w:styleId='S'><w:name w:val='heading 1'/><w:basedOn w:val='B'/>"
        "</w:style><w:style w:type='paragraph' w:styleId='B'><w:basedOn w:val='S'/><w:rPr><w:b/>"
        "</w:rPr></w:style><w:style w:type='character' w:styleId='C'><w:rPr><w:b/></w:rPr></w:style>");
}

std::string numbering()
{
    return wordRoot("numbering",
                    "<w:abstractNum w:abstractNumId='0'><w:lvl w:ilvl='0'><w:start w:val='3'/><w:numFmt "
                    "w:val='lowerRoman'/><w:lvlText w:val='%1.'/></w:lvl></w:abstractNum><w:num w:numId='1'>"
                    "<w:abstractNumId w:val='0'/><w:lvlOverride w:ilvl='0'><w:startOverride w:val='5'/>"
                    "</w:lvlOverride></w:num>");
}

std::string footnotes()
{
    return wordRoot("footnotes",
                    "<w:footnote w:type='separator' w:id='0'><w:p/></w:footnote><w:footnote w:id='1'>"
                        + wordParagraph("note") + "</w:footnote>");
}

std::string package()
{
    WordPackageBytes document;
    document.body = body() + table();
    document.parts = {{"s", "styles", "styles.xml", styles()},
                      {"n", "numbering", "numbering.xml", numbering()},
                      {"f", "footnotes", "footnotes.xml", footnotes()}};
    return document.file();
}

/// What our own writer makes of a list, a link and a table.
std::string written()
{
    auto table = std::make_shared<NSTextTable>();
    table->setNumberOfColumns(1);
    NSMutableParagraphStyle cell;
    cell.setTextBlocks({std::make_shared<NSTextTableBlock>(table, 0, 1, 0, 1)});
    NSMutableParagraphStyle item;
    item.setTextLists({std::make_shared<NSTextList>(u"{decimal}.")});
    NSMutableAttributedString text(
        NSAttributedString(u"\t1.\titem\n", {{std::u16string(NSParagraphStyleAttributeName), item.copy()}}));
    text.appendAttributedString(
        NSAttributedString(u"cell\n", {{std::u16string(NSParagraphStyleAttributeName), cell.copy()}}));
    text.appendAttributedString(
        NSAttributedString(u"link", {{std::u16string(NSLinkAttributeName), u"https://a.example/"}}));
    const auto document = NSAttributedStringDocumentFormats::WordDocumentFromRange(text, {0, text.length()});
    return document ? document->bytes : std::string();
}

} // namespace

std::vector<Seed> wordReaderSeeds()
{
    return {
        {"body", "b" + body()},
        {"table", "b" + table()},
        {"shapes", "b" + shapes()},
        {"styles", "s" + styles()},
        {"numbering", "n" + numbering()},
        {"footnotes", "f" + footnotes()},
        {"theme",
         "t<a:theme xmlns:a='a'><a:clrScheme><a:accent1><a:srgbClr val='204060'/></a:accent1></a:clrScheme>"
         "<a:majorFont><a:latin typeface='Courier New'/></a:majorFont></a:theme>"},
        {"package", "p" + package()},
        {"written", "p" + written()}};
}
