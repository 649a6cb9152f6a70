#pragma once

#include "platform/rtf/RTFOutput.h"
#include "platform/text/NSFont.h"

#include <cstdint>
#include <string>
#include <unordered_map>

/// The fonts of a document that is being written, by number: each PostScript name once.
class RTFFontWriting {
public:
    [[nodiscard]] std::int32_t numberOf(const NSFont& font);

    void write(RTFOutput& output) const;

private:
    std::unordered_map<std::u16string, std::int32_t> m_numbers;
    RTFOutput m_entries;
};
