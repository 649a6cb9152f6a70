#pragma once

#include "platform/rtf/RTFAttributes.h"
#include "platform/rtf/RTFListReading.h"
#include "platform/rtf/RTFParagraphFormat.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

/// What the content of a group goes to.
enum class RTFDestination : std::uint8_t {
    Text,
    Nothing,
    FontTable,
    ColorTable,
    ExpandedColorTable,
    ListTable,
    ListNumberTable,
    Information,
    InformationEntry,
    FieldInstruction,
    Alternatives,
    Attachment,
    Picture,
};

/// What a group inherits and gives back at its end.
struct RTFReaderState {
    RTFDestination destination = RTFDestination::Text;
    /// What the second of two alternatives goes to.
    RTFDestination alternative = RTFDestination::Text;
    RTFListPart listPart = RTFListPart::None;
    bool isHidden = false;
    bool usesAssociatedFont = false;
    /// The group's end is that of its destination.
    bool endsDestination = false;
    bool isField = false;
    std::int32_t standIns = 1;
    std::optional<std::int32_t> associatedFont;
    RTFRunFormat run;
    /// Null before the first word about paragraphs; shared between groups until one changes it.
    std::shared_ptr<RTFParagraphFormat> paragraph;

    /// The paragraph's format, to be changed.
    [[nodiscard]] RTFParagraphFormat& changedParagraph()
    {
        if (!paragraph)
            paragraph = std::make_shared<RTFParagraphFormat>();
        else if (paragraph.use_count() > 1)
            paragraph = std::make_shared<RTFParagraphFormat>(*paragraph);
        return *paragraph;
    }

    /// How many tables the paragraph is in.
    [[nodiscard]] std::size_t tableDepth() const
    {
        if (!paragraph || !paragraph->isInTable)
            return 0;
        return paragraph->tableDepth > 1 ? static_cast<std::size_t>(paragraph->tableDepth) : 1;
    }
};

/// The states of the groups that are open. Deeper groups than the limit share the state of the deepest one
/// that has its own, and are counted.
class RTFReaderStates {
public:
    [[nodiscard]] RTFReaderState& current() { return m_current; }

    [[nodiscard]] const RTFReaderState& current() const { return m_current; }

    [[nodiscard]] bool isOutside() const { return m_outer.empty() && m_uncounted == 0; }

    void begin();
    /// The state of the group that ended; none for one that had no state of its own.
    std::optional<RTFReaderState> end();

private:
    RTFReaderState m_current;
    std::vector<RTFReaderState> m_outer;
    std::size_t m_uncounted = 0;
};
