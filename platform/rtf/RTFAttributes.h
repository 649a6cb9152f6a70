#pragma once

#include "platform/rtf/RTFCharacterFormat.h"
#include "platform/rtf/RTFColorReading.h"
#include "platform/rtf/RTFFontReading.h"
#include "platform/text/AttributeRuns.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

/// What a run of text that is read looks like, and where it links to.
struct RTFRunFormat {
    RTFCharacterFormat character;
    /// The number of a link; 0 for none.
    std::size_t link = 0;

    friend bool operator==(const RTFRunFormat&, const RTFRunFormat&) = default;
};

/// Makes attributes of formats. Equal formats share theirs.
class RTFAttributes {
public:
    /// Both must outlive it.
    RTFAttributes(RTFFontReading& fonts, const RTFColorReading& colors)
        : m_fonts(fonts)
        , m_colors(colors)
    {
    }

    /// The number of a link for RTFRunFormat; the same for an equal one that was the last.
    [[nodiscard]] std::size_t numberOfLink(const NSAny& link);

    /// `isCocoa` tells whether the platform wrote the document, for which colour 1 as a ground is none.
    [[nodiscard]] const SharedAttributes& attributesFor(const RTFRunFormat& format, bool isCocoa);

private:
    struct Hash {
        std::size_t operator()(const RTFRunFormat& format) const noexcept;
    };

    [[nodiscard]] NSAttributes makeAttributes(const RTFRunFormat& format, bool isCocoa);

    RTFFontReading& m_fonts;
    const RTFColorReading& m_colors;
    std::vector<NSAny> m_links;
    std::unordered_map<RTFRunFormat, SharedAttributes, Hash> m_known;
};
