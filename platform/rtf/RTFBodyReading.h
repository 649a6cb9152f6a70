#pragma once

#include "platform/rtf/RTFAttributes.h"
#include "platform/rtf/RTFColorReading.h"
#include "platform/rtf/RTFDocumentReading.h"
#include "platform/rtf/RTFFontReading.h"
#include "platform/rtf/RTFListReading.h"
#include "platform/rtf/RTFParagraphStyles.h"
#include "platform/rtf/RTFReaderState.h"
#include "platform/rtf/RTFTableReading.h"
#include "platform/rtf/RTFTextAssembly.h"
#include "platform/text/NSTextAttachment.h"

#include <memory>
#include <string_view>

/// The text of a document that is being read, with its paragraphs and tables, and the tables of fonts,
/// colours and lists that it is made with.
class RTFBodyReading {
public:
    RTFFontReading fonts;
    RTFColorReading colors;
    RTFListReading lists;
    RTFDocumentSettings settings;
    RTFTableReading tables;
    RTFAttributes attributes{fonts, colors};

    /// Characters in the looks of a state. Behind the limit there are none.
    void append(std::u16string_view characters, const RTFReaderState& state);
    void appendAttachment(const std::shared_ptr<NSTextAttachment>& attachment, const RTFReaderState& state);

    /// What the paragraph has so far is its marker.
    void endListMarker() { m_assembly.endListMarker(); }

    void endParagraph(const RTFReaderState& state);
    void endCell(const RTFReaderState& state, std::size_t depth);
    void endRow(std::size_t depth);

    /// \pard: a paragraph is to come, though it may stay empty.
    void beginParagraph() { m_isBehindRow = false; }

    /// The text, when everything is read.
    [[nodiscard]] NSAttributedString finish(const RTFReaderState& state);

private:
    void endParagraphInCell(const RTFReaderState& state, std::size_t depth);

    RTFParagraphStyles m_styles{lists};
    RTFTextAssembly m_assembly;
    std::size_t m_attachments = 0;
    bool m_isBehindRow = false;
};
