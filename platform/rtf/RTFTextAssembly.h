#pragma once

#include "platform/rtf/RTFTableReading.h"
#include "platform/text/AttributeRuns.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSParagraphStyle.h"

#include <string>
#include <string_view>
#include <vector>

/// Puts a text together whose paragraph styles become known at the paragraphs' ends, and whose cells become
/// known at the end of everything.
class RTFTextAssembly {
public:
    void append(std::u16string_view characters, const SharedAttributes& attributes);

    /// The characters since the last paragraph's end are the marker of a list, if the paragraph is in one.
    /// Other writers have no tab before their markers, or none behind them; it gets both, as the platform has
    /// it.
    void endListMarker() { m_markerEnd = m_characters.size(); }

    /// Gives the characters since the last paragraph's end a style, which may be null, and a cell.
    void endParagraph(const NSParagraphStyle::Ref& style, std::int32_t cell);

    [[nodiscard]] std::size_t length() const { return m_characters.size(); }

    /// Whether there are characters behind the last paragraph's end.
    [[nodiscard]] bool hasOpenParagraph() const { return m_characters.size() > m_paragraphStart; }

    /// The text.
    [[nodiscard]] NSAttributedString finish(const RTFTableReading& tables);

private:
    void putTabsAroundMarker();
    /// Puts a tab there, which looks like the character before or behind it at `model`.
    void insertTab(std::size_t place, std::size_t model);

    struct Run {
        std::size_t end = 0;
        SharedAttributes attributes;
    };

    struct Paragraph {
        std::size_t end = 0;
        NSParagraphStyle::Ref style;
        std::int32_t cell = RTFTableReading::kNoCell;
    };

    std::u16string m_characters;
    std::vector<Run> m_runs;
    std::vector<Paragraph> m_paragraphs;
    std::size_t m_paragraphStart = 0;
    /// Before the paragraph's start when it has no marker.
    std::size_t m_markerEnd = 0;
};
