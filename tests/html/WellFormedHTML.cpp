#include "tests/html/WellFormedHTML.h"

#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include <memory>
#include <regex>

std::string faultOfHTML(std::string_view page)
{
    constexpr std::string_view kDeclaration = "<!DOCTYPE html>\n";
    if (!page.starts_with(kDeclaration))
        return "the page does not declare itself";
    static const std::regex voidElement("<((?:br|meta|img)\\b[^>]*)>");
    const auto markup
        = std::regex_replace(std::string(page.substr(kDeclaration.size())), voidElement, "<$1/>");
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
        xmlReadMemory(markup.data(), static_cast<int>(markup.size()), nullptr, "UTF-8",
                      XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_HUGE),
        &xmlFreeDoc);
    if (document)
        return {};
    const auto* const error = xmlGetLastError();
    return error && error->message ? error->message : "the page is not well-formed";
}
