#pragma once

#include "platform/media/ContentReader.h"
#include "platform/media/XMLTextStream.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// Takes the visible text out of OpenDocument XML. Text counts only within a paragraph or heading; what
/// stands within one without being its text (a note's number, an annotation's author and date) does not.
class OpenDocumentHandler final : public XMLHandler {
public:
    /// Which paragraphs are wanted: all, or those of headers and footers, which share a part with the
    /// defaults of styles and master pages.
    enum class Extent { Everything, HeadersAndFooters };

    OpenDocumentHandler(Extent extent, ContentSink& sink);

    void startElement(std::string_view localName, const XMLAttributes& attributes) override;
    void endElement(std::string_view localName) override;
    void text(std::string_view text) override;

private:
    enum class Role;

    struct Frame {
        std::size_t depth;
        bool holdsText;
    };

    [[nodiscard]] static Role roleOf(std::string_view localName);
    void startRole(Role role, const XMLAttributes& attributes);
    void push(bool holdsText);

    ContentSink& m_sink;
    std::size_t m_depth = 0;
    /// The depth of the element that is left out with all it holds; 0 when none is.
    std::size_t m_skippedDepth = 0;
    /// The depth of the header or footer that is being read; 0 outside. Not 0 from the start when everything
    /// is wanted.
    std::size_t m_wantedDepth;
    /// Sheets have names that users give and see; tables in texts have names that programs make.
    bool m_isSpreadsheet = false;
    /// The open elements that begin or suspend a paragraph, outermost first.
    std::vector<Frame> m_frames;
};
