#include "platform/word/WordStylesWriting.h"

namespace {

constexpr std::string_view kDefaultStyles
    = "<w:style w:type=\"character\" w:default=\"1\" w:styleId=\"DefaultParagraphFont\">"
      "<w:name w:val=\"Default Paragraph Font\"/><w:uiPriority w:val=\"1\"/><w:semiHidden/></w:style>"
      "<w:style w:type=\"table\" w:default=\"1\" w:styleId=\"TableNormal\"><w:name w:val=\"Normal Table\"/>"
      "<w:uiPriority w:val=\"99\"/><w:semiHidden/><w:tblPr><w:tblInd w:w=\"0\" w:type=\"dxa\"/><w:tblCellMar>"
      "<w:top w:w=\"0\" w:type=\"dxa\"/><w:left w:w=\"108\" w:type=\"dxa\"/><w:bottom w:w=\"0\" "
      "w:type=\"dxa\"/>"
      "<w:right w:w=\"108\" w:type=\"dxa\"/></w:tblCellMar></w:tblPr></w:style>"
      "<w:style w:type=\"numbering\" w:default=\"1\" w:styleId=\"NoList\"><w:name w:val=\"No List\"/>"
      "<w:uiPriority w:val=\"99\"/><w:semiHidden/></w:style>";

constexpr std::string_view kFurtherStyles
    = "<w:style w:type=\"paragraph\" w:styleId=\"ListParagraph\"><w:name w:val=\"List Paragraph\"/>"
      "<w:basedOn w:val=\"Normal\"/><w:uiPriority w:val=\"34\"/><w:qFormat/>"
      "<w:pPr><w:ind w:left=\"720\"/></w:pPr></w:style>"
      "<w:style w:type=\"character\" w:styleId=\"Hyperlink\"><w:name w:val=\"Hyperlink\"/>"
      "<w:uiPriority w:val=\"99\"/><w:rPr><w:color w:val=\"0563C1\"/><w:u "
      "w:val=\"single\"/></w:rPr></w:style>";

void writeToggles(WordXML& xml, const WordFontLook& look, const WordFontLook& base)
{
    for (const auto* const name : {"w:b", "w:bCs"}) {
        if (look.isBold != base.isBold)
            xml.toggle(name, look.isBold);
    }
    for (const auto* const name : {"w:i", "w:iCs"}) {
        if (look.isItalic != base.isItalic)
            xml.toggle(name, look.isItalic);
    }
}

void writeDefaults(WordXML& xml, const WordFontLook& look)
{
    xml.raw("<w:docDefaults><w:rPrDefault><w:rPr>");
    writeWordFamily(xml, look.family);
    writeWordFontSize(xml, look.size);
    xml.raw("</w:rPr></w:rPrDefault><w:pPrDefault/></w:docDefaults>");
}

/// Bold and slanted are said here and not in the defaults, which no style could switch off again.
void writeNormal(WordXML& xml, const WordFontLook& look)
{
    xml.raw("<w:style w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Normal\"><w:name w:val=\"Normal\"/>"
            "<w:qFormat/>");
    if (look.isBold || look.isItalic) {
        xml.raw("<w:rPr>");
        writeToggles(xml, look, {});
        xml.raw("</w:rPr>");
    }
    xml.raw("</w:style>");
}

void writeHeading(WordXML& xml, std::size_t level, const WordFontLook& look, const WordFontLook& plain)
{
    const auto number = std::to_string(level);
    xml.raw("<w:style w:type=\"paragraph\"");
    xml.attribute("w:styleId", std::string_view("Heading" + number));
    xml.raw(">");
    xml.property("w:name", std::string_view("heading " + number));
    xml.raw("<w:basedOn w:val=\"Normal\"/><w:next w:val=\"Normal\"/><w:uiPriority w:val=\"9\"/><w:qFormat/>"
            "<w:pPr><w:keepNext/><w:keepLines/>");
    xml.property("w:outlineLvl", static_cast<std::int64_t>(level - 1));
    xml.raw("</w:pPr><w:rPr>");
    if (look.family != plain.family)
        writeWordFamily(xml, look.family);
    writeToggles(xml, look, plain);
    writeWordFontSize(xml, look.size);
    xml.raw("</w:rPr></w:style>");
}

} // namespace

std::string wordStylesPart(const WordStyleLooks& looks)
{
    WordXML xml;
    xml.raw(kWordXMLDeclaration);
    xml.raw("<w:styles");
    xml.raw(kWordNamespace);
    xml.raw(">");
    writeDefaults(xml, looks[0]);
    writeNormal(xml, looks[0]);
    xml.raw(kDefaultStyles);
    for (std::size_t level = 1; level < looks.size(); ++level)
        writeHeading(xml, level, looks.at(level), looks[0]);
    xml.raw(kFurtherStyles);
    xml.raw("</w:styles>");
    return xml.takeBytes();
}
