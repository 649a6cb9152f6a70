#pragma once

#include "platform/media/ContentReader.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/word/WordTextAttributes.h"

#include <memory>
#include <string>
#include <string_view>

/// Puts text together piece by piece; pieces that look alike become one. The sink keeps the limits: what it
/// does not take is left out.
class WordTextBuilder {
public:
    /// Both must outlive the builder.
    WordTextBuilder(ContentSink& sink, WordTextAttributes& attributes)
        : m_sink(sink)
        , m_attributes(attributes)
    {
    }

    void append(std::string_view text, const WordTextLook& look);
    void append(char16_t unit, const WordTextLook& look);
    void appendAttachment(const std::shared_ptr<NSTextAttachment>& attachment, const WordTextLook& look);
    void appendText(const NSAttributedString& text);
    /// Ends the paragraph that began at `start`.
    void endParagraph(NSUInteger start, const NSParagraphStyle::Ref& style, const WordTextLook& look);
    /// Removes what stands from `start` on.
    void removeFrom(NSUInteger start);

    [[nodiscard]] NSUInteger length() const { return m_text.length() + m_pending.size(); }

    /// The text, for changes; of what was appended nothing is missing.
    [[nodiscard]] NSMutableAttributedString& text();

private:
    void flush();
    void take(std::u16string_view units, const WordTextLook& look);

    ContentSink& m_sink;
    WordTextAttributes& m_attributes;
    NSMutableAttributedString m_text;
    std::u16string m_pending;
    WordTextLook m_pendingLook;
    std::size_t m_flushCount = 0;
};
