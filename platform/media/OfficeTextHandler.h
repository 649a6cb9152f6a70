#pragma once

#include "platform/media/ContentReader.h"
#include "platform/media/XMLTextStream.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// Takes the visible text out of WordprocessingML and DrawingML, which share their ideas of paragraph, run
/// and table: documents, notes, headers, slides, diagrams, charts and comments. Deleted text, field
/// instructions and phonetic guides are left out; of alternative contents the first that gives text is taken.
class OfficeTextHandler final : public XMLHandler {
public:
    explicit OfficeTextHandler(ContentSink& sink);

    void startElement(std::string_view localName, const XMLAttributes& attributes) override;
    void endElement(std::string_view localName) override;
    void text(std::string_view text) override;

private:
    enum class Role;

    [[nodiscard]] static Role roleOf(std::string_view localName);
    [[nodiscard]] bool startsSkipping(Role role) const;
    void put(std::string_view text);
    void putSymbol(const XMLAttributes& attributes);

    ContentSink& m_sink;
    std::size_t m_depth = 0;
    /// The depth of the element that is left out with all it holds; 0 when none is.
    std::size_t m_skippedDepth = 0;
    /// The depth of the element whose own text is wanted; 0 outside.
    std::size_t m_textDepth = 0;
    /// How much text there was when each open choice of alternatives began.
    std::vector<std::size_t> m_alternatives;
};
