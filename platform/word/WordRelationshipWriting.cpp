#include "platform/word/WordRelationshipWriting.h"

namespace {

constexpr std::string_view kUsualTypes
    = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

} // namespace

std::string WordRelationshipWriting::begin(std::string_view type, std::string_view target)
{
    auto identifier = "rId" + std::to_string(++m_count);
    const auto isFull = type.find('/') != std::string_view::npos;
    m_list.raw("<Relationship");
    m_list.attribute("Id", std::string_view(identifier));
    m_list.attribute("Type", std::string_view((isFull ? "" : std::string(kUsualTypes)).append(type)));
    m_list.attribute("Target", target);
    return identifier;
}

std::string WordRelationshipWriting::add(std::string_view type, std::string_view target)
{
    auto identifier = begin(type, target);
    m_list.raw("/>");
    return identifier;
}

std::string WordRelationshipWriting::addLink(const std::string& address)
{
    auto& identifier = m_links[address];
    if (!identifier.empty())
        return identifier;
    identifier = begin("hyperlink", address);
    m_list.raw(" TargetMode=\"External\"/>");
    return identifier;
}

std::string WordRelationshipWriting::part() const
{
    std::string part(kWordXMLDeclaration);
    part += "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";
    return part.append(m_list.bytes()).append("</Relationships>");
}
