#pragma once

#include "platform/rtf/RTFAttributes.h"
#include "platform/rtf/RTFListReading.h"
#include "platform/rtf/RTFParagraphFormat.h"

#include <cstdint>
#include <memory>

/// How a text that is read looks: what a group inherits and gives back at its end.
struct RTFReaderState {
    RTFListPart listPart = RTFListPart::None;
    /// Of the group itself, both; not inherited.
    bool isField = false;
    bool isListMarker = false;
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
