#pragma once

#include "platform/media/ContentReader.h"
#include "platform/media/XMLTextStream.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The texts of a workbook that its cells name by number, in one buffer.
class SharedStrings {
public:
    /// Empty for a number that no text has.
    [[nodiscard]] std::string_view at(std::size_t index) const;

    void append(std::string_view piece) { m_text += piece; }

    void endString() { m_ends.push_back(static_cast<std::uint32_t>(m_text.size())); }

    [[nodiscard]] std::size_t byteCount() const { return m_text.size(); }

    [[nodiscard]] std::size_t count() const { return m_ends.size(); }

private:
    std::string m_text;
    std::vector<std::uint32_t> m_ends;
};

/// Fills SharedStrings from their part. Phonetic guides are left out. Stops, with a note, at the sink's limit
/// for text.
class SharedStringsHandler final : public XMLHandler {
public:
    SharedStringsHandler(SharedStrings& strings, ContentSink& sink);

    void startElement(std::string_view localName, const XMLAttributes& attributes) override;
    void endElement(std::string_view localName) override;
    void text(std::string_view text) override;

private:
    [[nodiscard]] bool isFull();

    SharedStrings& m_strings;
    ContentSink& m_sink;
    bool m_isInText = false;
    bool m_isInGuide = false;
};
