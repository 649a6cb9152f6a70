#include "platform/html/HTMLPageScanner.h"

#include "platform/html/CSSValues.h"
#include "platform/html/CharacterReference.h"

#include <algorithm>

namespace {

constexpr std::string_view kBlanks = " \t\n\r\f";

bool isLetter(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

} // namespace

HTMLPageScanner::Token HTMLPageScanner::next()
{
    while (m_offset < m_page.size()) {
        if (byteAt(m_offset) != '<')
            return readText();
        const char following = byteAt(m_offset + 1);
        if (isLetter(following) || (following == '/' && isLetter(byteAt(m_offset + 2)))) {
            readTag();
            return m_tag.isEnd ? Token::EndTag : Token::StartTag;
        }
        if (!skipDeclaration())
            return readText();
    }
    return Token::End;
}

bool HTMLPageScanner::skipDeclaration()
{
    const auto rest = m_page.substr(m_offset);
    const bool isComment = rest.starts_with("<!--");
    if (!isComment && !rest.starts_with("<!") && !rest.starts_with("<?") && !rest.starts_with("</"))
        return false;
    // "<!-->" is a whole comment.
    const auto end = isComment ? m_page.find("-->", m_offset + 2) : m_page.find('>', m_offset);
    m_offset = end == std::string_view::npos ? m_page.size() : end + (isComment ? 3 : 1);
    return true;
}

HTMLPageScanner::Token HTMLPageScanner::readText()
{
    // A sign that begins no tag is text, with what follows it.
    const auto end = std::min(m_page.find('<', m_offset + 1), m_page.size());
    m_text = decodedCharacterReferences(m_page.substr(m_offset, end - m_offset));
    m_offset = end;
    return Token::Text;
}

void HTMLPageScanner::readTag()
{
    m_tag = {};
    m_tag.isEnd = byteAt(m_offset + 1) == '/';
    m_offset += m_tag.isEnd ? 2 : 1;
    m_tag.name = inASCIILowerCase(takeUntil(" \t\n\r\f/>"));
    while (m_offset < m_page.size()) {
        skipBlanks();
        const char byte = byteAt(m_offset);
        if (byte == '>') {
            ++m_offset;
            return;
        }
        m_tag.isSelfClosing = byte == '/';
        if (m_tag.isSelfClosing)
            ++m_offset;
        else if (m_offset < m_page.size())
            readAttribute();
    }
}

void HTMLPageScanner::readAttribute()
{
    const auto start = m_offset++;
    takeUntil(" \t\n\r\f/>=");
    const auto name = m_page.substr(start, m_offset - start);
    skipBlanks();
    std::string_view value;
    if (byteAt(m_offset) == '=') {
        ++m_offset;
        value = readValue();
    }
    if (m_tag.attributes.size() < kMostAttributes)
        m_tag.attributes.push_back({inASCIILowerCase(name), decodedCharacterReferences(value)});
}

std::string_view HTMLPageScanner::readValue()
{
    skipBlanks();
    const char quote = byteAt(m_offset);
    if (quote != '"' && quote != '\'')
        return takeUntil(" \t\n\r\f>");
    ++m_offset;
    const auto value = takeUntil({&quote, 1});
    m_offset = std::min(m_offset + 1, m_page.size());
    return value;
}

std::string_view HTMLPageScanner::takeUntil(std::string_view ends)
{
    const auto end = std::min(m_page.find_first_of(ends, m_offset), m_page.size());
    const auto taken = m_page.substr(m_offset, end - m_offset);
    m_offset = end;
    return taken;
}

void HTMLPageScanner::skipBlanks()
{
    m_offset = std::min(m_page.find_first_not_of(kBlanks, m_offset), m_page.size());
}

std::string_view HTMLPageScanner::takeRawContent()
{
    const auto start = m_offset;
    const auto name = m_tag.name;
    for (auto end = m_page.find("</", start); end != std::string_view::npos;
         end = m_page.find("</", end + 2)) {
        const auto nameEnd = end + 2 + name.size();
        if (nameEnd < m_page.size() && isLetter(m_page[nameEnd]))
            continue;
        if (inASCIILowerCase(m_page.substr(end + 2, name.size())) != name)
            continue;
        m_offset = end;
        readTag();
        return m_page.substr(start, end - start);
    }
    m_offset = m_page.size();
    return m_page.substr(start);
}
