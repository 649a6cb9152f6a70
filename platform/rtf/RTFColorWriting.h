#pragma once

#include "platform/rtf/RTFOutput.h"
#include "platform/text/NSColor.h"

#include <cstdint>
#include <string>
#include <unordered_map>

/// The colours of a document that is being written, by number: each form of a colour once.
///
/// Two tables hold them. The one that every reader knows has 8 bits of generic RGB; the platform's own has
/// the space and, for a colour of the system's catalog, the name. Colours of other catalogs are written as
/// what they are in a light appearance, and patterns are none.
class RTFColorWriting {
public:
    /// 0 for no colour.
    [[nodiscard]] std::int32_t numberOf(const NSColor::Ref& color);

    void write(RTFOutput& output) const;

private:
    /// The first number that a colour gets: 0 is no colour, and 1 is white, which as a ground means none.
    static constexpr std::int32_t kFirst = 2;

    std::unordered_map<std::string, std::int32_t> m_numbers;
    std::string m_plainEntries;
    std::string m_expandedEntries;
};
