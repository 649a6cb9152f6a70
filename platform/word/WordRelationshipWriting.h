#pragma once

#include "platform/word/WordXML.h"

#include <map>
#include <string>
#include <string_view>

/// What one part of a document, or the package itself, points at.
class WordRelationshipWriting {
public:
    /// The identifier of the relationship to a part. `type` is a full one, or the last component of those
    /// that the format's own have.
    std::string add(std::string_view type, std::string_view target);
    /// The same for an address outside; equal addresses share one.
    std::string addLink(const std::string& address);

    /// The part that lists them.
    [[nodiscard]] std::string part() const;

private:
    std::string begin(std::string_view type, std::string_view target);

    WordXML m_list;
    std::size_t m_count = 0;
    std::map<std::string, std::string> m_links;
};
