#include "tests/support/WordPackageBytes.h"

namespace {

std::string relationship(const WordPart& part)
{
    constexpr std::string_view kTypes
        = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
    std::string xml = "<Relationship Id='" + part.identifier + "' Type='";
    xml.append(kTypes).append(part.kind).append("' Target='").append(part.target);
    return xml + (part.isExternal ? "' TargetMode='External'/>" : "'/>");
}

std::string relationships(const std::vector<WordPart>& parts)
{
    std::string xml = "<Relationships xmlns='r'>";
    for (const auto& part : parts)
        xml += relationship(part);
    return xml + "</Relationships>";
}

} // namespace

std::string WordPackageBytes::file() const
{
    auto package = packageParts;
    package.push_back({"main", "officeDocument", "word/document.xml", {}});
    auto all = members;
    all.push_back({"_rels/.rels", relationships(package)});
    all.push_back({"word/document.xml", wordRoot("document", "<w:body>" + body + "</w:body>")});
    all.push_back({"word/_rels/document.xml.rels", relationships(parts)});
    for (const auto& part : parts) {
        if (!part.isExternal)
            all.push_back({"word/" + part.target, part.bytes});
    }
    return zipOf(all);
}

std::string wordRoot(std::string_view name, std::string_view content)
{
    std::string xml = "<w:";
    xml.append(name).append(" xmlns:w='w' xmlns:r='r' xmlns:a='a' xmlns:m='m' xmlns:v='v' xmlns:wp='wp'"
                            " xmlns:pic='pic' xmlns:mc='mc' xmlns:wps='wps' xmlns:o='o'>");
    xml.append(content).append("</w:").append(name).append(">");
    return xml;
}

std::string wordRun(std::string_view text, std::string_view properties)
{
    std::string xml = "<w:r>";
    if (!properties.empty())
        xml.append("<w:rPr>").append(properties).append("</w:rPr>");
    return xml.append("<w:t>").append(text).append("</w:t></w:r>");
}

std::string wordParagraph(std::string_view text, std::string_view properties)
{
    std::string xml = "<w:p>";
    if (!properties.empty())
        xml.append("<w:pPr>").append(properties).append("</w:pPr>");
    return xml.append(wordRun(text)).append("</w:p>");
}
