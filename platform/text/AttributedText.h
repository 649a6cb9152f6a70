#pragma once

#include "platform/foundation/NSRange.h"
#include "platform/text/AttributeRuns.h"
#include "platform/text/GapBuffer.h"

#include <string>
#include <string_view>

/// The characters and attribute runs of one text, kept in step. Ranges lie within the text.
class AttributedText {
public:
    [[nodiscard]] NSUInteger length() const { return m_characters.size(); }

    [[nodiscard]] char16_t characterAt(NSUInteger index) const { return m_characters[index]; }

    [[nodiscard]] std::u16string substring(NSRange range) const;

    [[nodiscard]] const AttributeRuns& runs() const { return m_runs; }

    /// All characters in one piece. What makes them so is no change of the text: two that share it, share it
    /// in this form.
    [[nodiscard]] std::u16string_view string();

    void replace(NSRange range, std::u16string_view characters, const SharedAttributes& attributes);
    void replace(NSRange range, const AttributedText& other, NSRange otherRange);
    void transformAttributes(NSRange range, const AttributeRuns::Change& change);
    [[nodiscard]] SharedAttributes shared(NSAttributes attributes);

private:
    void replaceCharacters(NSRange range, std::u16string_view characters);

    GapBuffer<char16_t> m_characters;
    AttributeRuns m_runs;
    AttributeCache m_cache;
};
