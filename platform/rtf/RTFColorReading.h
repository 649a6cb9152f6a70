#pragma once

#include "platform/rtf/RTFParameter.h"
#include "platform/text/NSColor.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The colours of a document that is being read, from its two tables. Those of the platform's own table count
/// before those of the other, entry by entry.
class RTFColorReading {
public:
    /// Takes a word of the table that every reader knows, and of the platform's own.
    void takePlainWord(std::string_view name, RTFParameter parameter);
    void takeExpandedWord(std::string_view name, RTFParameter parameter);
    /// Takes text of a table: semicolons end entries, other text is a name.
    void takePlainText(std::string_view text);
    void takeExpandedText(std::string_view text);

    /// Null for a number without a colour, and for an entry that leaves the colour to the reader.
    [[nodiscard]] NSColor::Ref colorAt(std::int32_t number) const;

private:
    struct ExpandedEntry {
        std::string space;
        std::vector<double> components;
        std::string name;
        bool isNamed = false;
    };

    struct PlainEntry {
        double red = 0;
        double green = 0;
        double blue = 0;
        bool isSet = false;
    };

    [[nodiscard]] static NSColor::Ref colorOf(const ExpandedEntry& entry);

    PlainEntry m_plain;
    ExpandedEntry m_expanded;
    std::vector<NSColor::Ref> m_plainColors;
    std::vector<NSColor::Ref> m_expandedColors;
};
