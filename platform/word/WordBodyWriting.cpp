#include "platform/word/WordBodyWriting.h"

#include "platform/html/HTMLListMarkers.h"
#include "platform/word/WordDirections.h"
#include "platform/word/WordParagraphWriting.h"

namespace {

/// The namespaces of all that a body holds.
constexpr std::string_view kDrawingNamespaces
    = " xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing\""
      " xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\""
      " xmlns:pic=\"http://schemas.openxmlformats.org/drawingml/2006/picture\""
      " xmlns:asvg=\"http://schemas.microsoft.com/office/drawing/2016/SVG/main\"";

/// What a line of plain text is high, near enough: fonts differ little in it.
double lineHeightOf(const WordFontLook& look)
{
    constexpr double kLinesPerSize = 1.2;
    return static_cast<double>(look.size) / 2 * kLinesPerSize;
}

bool isRightToLeft(const NSParagraphStyle& style, std::u16string_view characters)
{
    if (style.baseWritingDirection() == NSWritingDirection::Natural)
        return beginsRightToLeft(characters);
    return style.baseWritingDirection() == NSWritingDirection::RightToLeft;
}

} // namespace

WordBodyWriting::WordBodyWriting(const NSAttributedString& text, NSRange range, const WordPage& page,
                                 const WordStyleLooks& styles, WordRelationshipWriting& relationships,
                                 WordPictureWriting& pictures, WordListWriting& lists)
    : m_page(page)
    , m_lineHeight(lineHeightOf(styles[0]))
    , m_paragraphs(text, range)
    , m_runs(m_xml, text, styles, relationships, pictures)
    , m_lists(lists)
    , m_tables(m_xml, m_paragraphs, page.textWidth())
{
}

std::string WordBodyWriting::part()
{
    m_xml.raw(kWordXMLDeclaration);
    m_xml.raw("<w:document");
    m_xml.raw(kWordNamespace);
    m_xml.raw(kWordReferenceNamespace);
    m_xml.raw(kDrawingNamespaces);
    m_xml.raw("><w:body>");
    auto paragraph = m_paragraphs.paragraphAt(m_paragraphs.range().location);
    if (!paragraph)
        m_xml.raw("<w:p/>");
    while (paragraph) {
        auto next = m_paragraphs.paragraphAt(paragraph->end);
        m_tables.openCells(*paragraph);
        writeParagraph(*paragraph);
        m_tables.closeCells(next);
        paragraph = std::move(next);
    }
    m_tables.finish();
    writeWordSection(m_xml, m_page);
    m_xml.raw("</w:body></w:document>");
    return m_xml.takeBytes();
}

WordBodyWriting::Marker WordBodyWriting::markerOf(const WordTextParagraph& paragraph) const
{
    const auto& lists = paragraph.style->textLists();
    if (lists.empty())
        return {};
    const auto characters = m_paragraphs.characters(paragraph.content);
    const auto marker = listMarkerAtStart(characters, *lists.back());
    if (!marker)
        return {};
    return {marker->length, characters.substr(1, marker->length - 2)};
}

void WordBodyWriting::writeParagraph(const WordTextParagraph& paragraph)
{
    const auto& style = *paragraph.style;
    const auto index = wordStyleIndexOf(style);
    const auto marker = markerOf(paragraph);
    const bool isMarked = marker.length > 0 || !NSTextList::includesTextListMarkers();
    WordParagraphContext context;
    if (!style.textLists().empty() && isMarked)
        context.item = m_lists.itemOf(style.textLists(), marker.text);
    const NSRange content{paragraph.content.location + marker.length,
                          paragraph.content.length - marker.length};
    context.isRightToLeft = isRightToLeft(style, m_paragraphs.characters(content));
    // The looks stay valid while nothing else is written.
    context.endProperties = m_runs.endProperties(paragraph.end - 1, index);
    m_xml.raw("<w:p>");
    writeWordParagraphProperties(m_xml, style, m_page, m_lineHeight, context);
    m_runs.writeContent(content, index);
    m_xml.raw("</w:p>");
}
