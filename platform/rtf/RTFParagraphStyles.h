#pragma once

#include "platform/rtf/RTFListReading.h"
#include "platform/rtf/RTFPage.h"
#include "platform/rtf/RTFParagraphFormat.h"
#include "platform/text/NSParagraphStyle.h"

#include <unordered_map>

/// Makes paragraph styles of formats. Equal formats share theirs.
class RTFParagraphStyles {
public:
    /// Must outlive it.
    explicit RTFParagraphStyles(RTFListReading& lists)
        : m_lists(lists)
    {
    }

    [[nodiscard]] const NSParagraphStyle::Ref& styleFor(const RTFParagraphFormat& format,
                                                        const RTFPage& page);

private:
    struct Hash {
        std::size_t operator()(const RTFParagraphFormat& format) const noexcept;
    };

    RTFListReading& m_lists;
    std::unordered_map<RTFParagraphFormat, NSParagraphStyle::Ref, Hash> m_known;
};
