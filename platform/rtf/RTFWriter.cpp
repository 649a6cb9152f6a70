#include "platform/rtf/RTFWriter.h"

#include "platform/rtf/RTFDocumentWriting.h"
#include "platform/rtf/RTFListMarkers.h"
#include "platform/rtf/RTFParagraphWriting.h"
#include "platform/rtf/RTFTableStack.h"

#include <optional>

namespace {

/// As the text system of the platform's version 15 begins its documents.
constexpr std::string_view kHeader
    = "{\\rtf1\\ansi\\ansicpg1252\\cocoartf2822\n\\cocoatextscaling0\\cocoaplatform0";

class DocumentWriter {
public:
    DocumentWriter(const NSAttributedString& text, NSRange range, const NSAny::Dictionary& documentAttributes,
                   const RTFAttachmentNamer& nameOfAttachment)
        : m_paragraphs(text, NSIntersectionRange(range, {0, text.length()}))
        , m_documentAttributes(documentAttributes)
        , m_page(pageOf(documentAttributes))
        , m_runs(m_output, text, m_colors, nameOfAttachment)
        , m_tables(m_output, m_paragraphs, m_colors)
    {
    }

    std::string document()
    {
        writeBody();
        RTFOutput document;
        document.raw(kHeader);
        m_runs.fonts().write(document);
        m_colors.write(document);
        m_lists.write(document);
        writeDocumentAttributes(document, m_documentAttributes);
        document.reserve(m_output.bytes().size() + 1);
        document.raw(m_output.bytes());
        document.endGroup();
        return document.takeBytes();
    }

private:
    void writeBody()
    {
        auto paragraph = m_paragraphs.paragraphAt(m_paragraphs.start());
        while (paragraph) {
            auto next = m_paragraphs.paragraphAt(paragraph->end);
            if (m_tables.openCells(*paragraph))
                m_format.reset();
            writeParagraph(*paragraph);
            if (m_tables.closeCells(next))
                m_format.reset();
            else if (paragraph->isEnded)
                m_output.paragraphEnd();
            paragraph = std::move(next);
        }
    }

    void writeParagraph(const RTFTextParagraph& paragraph)
    {
        enterParagraph(paragraph);
        auto content = paragraph.content;
        const auto end = NSMaxRange(content);
        const bool isItem = m_format && m_format->list > 0;
        const auto marker = isItem ? listMarkerLength(m_paragraphs.characters(content)) : 0;
        if (marker > 0)
            m_runs.writeMarker({content.location, marker});
        content = {content.location + marker, content.length - marker};
        m_runs.writeContent(content, {end, paragraph.end - end});
    }

    /// Writes the paragraph's format where it is another one than before. Before the first paragraph with a
    /// style nothing is said, which is how text without a style is read.
    void enterParagraph(const RTFTextParagraph& paragraph)
    {
        if (!paragraph.style && !m_hasFormats)
            return;
        if (m_format && m_style == paragraph.style)
            return;
        m_style = paragraph.style;
        const auto& style = m_style ? *m_style : *NSParagraphStyle::defaultParagraphStyle();
        auto format = paragraphFormatOf(style, m_page, m_lists);
        format.isInTable = !paragraph.cells.empty();
        format.tableDepth = static_cast<std::int32_t>(paragraph.cells.size());
        if (m_format == format)
            return;
        writeParagraphFormat(m_output, format, m_page);
        m_runs.repeatColor();
        m_format = std::move(format);
        m_hasFormats = true;
    }

    RTFTextParagraphs m_paragraphs;
    const NSAny::Dictionary& m_documentAttributes;
    RTFPage m_page;
    RTFOutput m_output;
    RTFColorWriting m_colors;
    RTFListWriting m_lists;
    RTFRunWriting m_runs;
    RTFTableStack m_tables;
    NSParagraphStyle::Ref m_style;
    /// As it stands in the document; none where it must be written anew.
    std::optional<RTFParagraphFormat> m_format;
    bool m_hasFormats = false;
};

} // namespace

std::string rtfDocument(const NSAttributedString& text, NSRange range,
                        const NSAny::Dictionary& documentAttributes,
                        const RTFAttachmentNamer& nameOfAttachment)
{
    return DocumentWriter(text, range, documentAttributes, nameOfAttachment).document();
}
