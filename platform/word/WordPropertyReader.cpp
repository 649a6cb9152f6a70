#include "platform/word/WordPropertyReader.h"

#include "platform/word/WordParagraphReading.h"
#include "platform/word/WordRunReading.h"

namespace {

/// Looks before a change, and sections, whose elements bear names that mean other things here.
bool isLeftOut(std::string_view localName)
{
    return localName.ends_with("Change") || localName == "sectPr";
}

} // namespace

bool WordPropertyReader::startElement(std::string_view localName, const XMLAttributes& attributes)
{
    if (m_depth == 0) {
        if (localName != "pPr" && localName != "rPr")
            return false;
        begin(localName == "pPr");
        return true;
    }
    ++m_depth;
    if (m_skippedDepth != 0)
        return true;
    if (isLeftOut(localName))
        m_skippedDepth = m_depth;
    else if (localName == "rPr")
        m_markDepth = m_depth;
    else
        readElement(localName, attributes);
    return true;
}

void WordPropertyReader::begin(bool isParagraph)
{
    m_isParagraph = isParagraph;
    m_depth = 1;
    m_run = {};
    m_runStyle.clear();
    if (!isParagraph)
        return;
    m_paragraph = {};
    m_paragraphStyle.clear();
    m_isMarkDeleted = false;
}

void WordPropertyReader::readElement(std::string_view localName, const XMLAttributes& attributes)
{
    if (m_isParagraph && m_markDepth == 0) {
        if (localName == "pStyle")
            m_paragraphStyle = attributes.value("val");
        else
            readParagraphProperty(m_paragraph, localName, attributes);
    } else if (localName == "rStyle") {
        m_runStyle = attributes.value("val");
    } else if (localName == "del" || localName == "moveFrom") {
        m_isMarkDeleted = m_isParagraph;
    } else {
        readRunProperty(m_run, localName, attributes, m_theme);
    }
}

WordPropertyReader::Ended WordPropertyReader::endElement()
{
    if (m_skippedDepth == m_depth)
        m_skippedDepth = 0;
    if (m_markDepth == m_depth)
        m_markDepth = 0;
    if (m_depth == 0 || --m_depth > 0)
        return Ended::Nothing;
    return m_isParagraph ? Ended::Paragraph : Ended::Run;
}
