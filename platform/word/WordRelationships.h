#pragma once

#include "platform/media/OfficePackage.h"

#include <map>
#include <string>
#include <string_view>

/// What one part of a document points at, by the identifiers that its text uses.
class WordRelationships {
public:
    WordRelationships() = default;
    WordRelationships(OfficePackage& package, std::string_view part);

    /// The stored name of a picture within the package; empty for anything else.
    [[nodiscard]] std::string pictureMember(std::string_view identifier) const;
    /// The address of a link to somewhere outside; empty for anything else.
    [[nodiscard]] std::string address(std::string_view identifier) const;

private:
    std::map<std::string, std::string, std::less<>> m_pictures;
    std::map<std::string, std::string, std::less<>> m_addresses;
};
