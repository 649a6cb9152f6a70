#pragma once

#include "platform/rtf/RTFListReading.h"
#include "platform/rtf/RTFPage.h"
#include "platform/rtf/RTFParagraphFormat.h"
#include "platform/text/NSParagraphStyle.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

/// Makes paragraph styles of formats. Equal formats share theirs. When all styles together have as many tab
/// stops as the limit says, further ones have none.
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

    [[nodiscard]] NSParagraphStyle::Ref makeStyle(const RTFParagraphFormat& format, const RTFPage& page);
    [[nodiscard]] NSParagraphStyle::TabStops tabStopsFor(const std::vector<RTFTab>& tabs);

    RTFListReading& m_lists;
    std::map<std::pair<RTFTabKind, std::int32_t>, NSTextTab::Ref> m_tabStops;
    std::size_t m_tabCount = 0;
    std::unordered_map<RTFParagraphFormat, NSParagraphStyle::Ref, Hash> m_known;
};
