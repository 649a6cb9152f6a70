#include "platform/word/WordRelationships.h"

#include <utility>

WordRelationships::WordRelationships(OfficePackage& package, std::string_view part)
{
    for (auto& relationship : package.relationshipsOf(part)) {
        if (relationship.kind == "image")
            m_pictures.emplace(std::move(relationship.identifier), std::move(relationship.target));
    }
    for (auto& link : package.externalLinksOf(part))
        m_addresses.emplace(std::move(link.identifier), std::move(link.target));
}

std::string WordRelationships::pictureMember(std::string_view identifier) const
{
    const auto found = m_pictures.find(identifier);
    return found == m_pictures.end() ? std::string() : found->second;
}

std::string WordRelationships::address(std::string_view identifier) const
{
    const auto found = m_addresses.find(identifier);
    return found == m_addresses.end() ? std::string() : found->second;
}
