#include "platform/html/HTMLTokenizer.h"

#include "platform/foundation/Unicode.h"
#include "platform/html/CharacterReference.h"
#include "platform/html/HTMLElements.h"

#include <algorithm>

namespace {

constexpr std::string_view kBlanks = " \t\n\r\f";
constexpr std::string_view kTagNameEnds = " \t\n\r\f/>";
constexpr std::string_view kAttributeNameEnds = " \t\n\r\f/>=";
constexpr std::string_view kUnquotedValueEnds = " \t\n\r\f>";
constexpr std::string_view kCommentOpening = "--";
constexpr std::string_view kCharacterDataOpening = "[CDATA[";
constexpr std::size_t kNameByteCount = 64;
constexpr std::size_t kValueByteCount = 4096;
constexpr std::size_t kAttributeCount = 32;

bool isBlank(char byte)
{
    return kBlanks.find(byte) != std::string_view::npos;
}

bool isLetter(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

char inLowerCase(char byte)
{
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

std::size_t lengthBefore(std::string_view text, std::string_view ends)
{
    return std::min(text.find_first_of(ends), text.size());
}

void appendBounded(std::string& target, std::string_view text, std::size_t maximumByteCount)
{
    target.append(
        prefixAtCharacterBorder(text, maximumByteCount - std::min(maximumByteCount, target.size())));
}

void appendName(std::string& name, std::string_view text)
{
    const auto start = name.size();
    appendBounded(name, text, kNameByteCount);
    std::transform(name.begin() + static_cast<std::ptrdiff_t>(start), name.end(),
                   name.begin() + static_cast<std::ptrdiff_t>(start), inLowerCase);
}

} // namespace

std::string_view HTMLTag::attribute(std::string_view attributeName) const
{
    const auto found = std::ranges::find(attributes, attributeName, &HTMLAttribute::name);
    return found == attributes.end() ? std::string_view() : found->value;
}

bool HTMLTag::hasAttribute(std::string_view attributeName) const
{
    return std::ranges::find(attributes, attributeName, &HTMLAttribute::name) != attributes.end();
}

void HTMLTokenizer::append(std::string_view text)
{
    while (!text.empty())
        text.remove_prefix(step(text));
}

void HTMLTokenizer::finish()
{
    if (m_state == State::Reference)
        m_handler.text(decodedCharacterReference(m_match, false));
    else if (m_state == State::TagOpening)
        m_handler.text("<");
    else if (m_state == State::ElementEnd)
        emitElementText("<" + m_match);
    m_state = State::Text;
}

std::size_t HTMLTokenizer::step(std::string_view text)
{
    switch (m_state) {
    case State::Text:
        return inText(text);
    case State::Reference:
        return inReference(text);
    case State::TagOpening:
        return inTagOpening(text.front());
    case State::EndTagOpening:
        return inEndTagOpening(text.front());
    case State::TagName:
        return inTagName(text);
    case State::BeforeAttribute:
        return inBeforeAttribute(text.front());
    case State::AttributeName:
        return inAttributeName(text);
    case State::AfterAttributeName:
        return inAfterAttributeName(text.front());
    case State::BeforeValue:
        return inBeforeValue(text.front());
    case State::QuotedValue:
        return inQuotedValue(text);
    case State::UnquotedValue:
        return inUnquotedValue(text);
    case State::Declaration:
        return inDeclaration(text.front());
    case State::Comment:
        return inComment(text);
    case State::CharacterData:
        return inCharacterData(text);
    case State::Ignored:
        return inIgnored(text);
    case State::ElementText:
        return inElementText(text);
    case State::ElementEnd:
        return inElementEnd(text.front());
    }
    return text.size();
}

std::size_t HTMLTokenizer::enter(State state, std::size_t taken)
{
    m_state = state;
    return taken;
}

std::size_t HTMLTokenizer::inText(std::string_view text)
{
    const auto length = lengthBefore(text, "<&");
    if (length > 0)
        m_handler.text(text.substr(0, length));
    if (length == text.size())
        return length;
    m_match.clear();
    m_stateAfterReference = State::Text;
    return enter(text[length] == '<' ? State::TagOpening : State::Reference, length + 1);
}

std::size_t HTMLTokenizer::inReference(std::string_view text)
{
    const auto room = kReferenceByteCount - m_match.size();
    const auto* const end
        = std::find_if_not(text.begin(), text.begin() + std::min(text.size(), room), isReferenceByte);
    const auto length = static_cast<std::size_t>(end - text.begin());
    m_match.append(text.substr(0, length));
    if (length == text.size() && length < room)
        return length;
    const bool isTerminated = length < text.size() && text[length] == ';';
    m_handler.text(decodedCharacterReference(m_match, isTerminated));
    return enter(m_stateAfterReference, length + (isTerminated ? 1 : 0));
}

std::size_t HTMLTokenizer::inTagOpening(char byte)
{
    if (isLetter(byte)) {
        startTag(false);
        return enter(State::TagName, 0);
    }
    if (byte == '/')
        return enter(State::EndTagOpening, 1);
    if (byte == '!')
        return enter(State::Declaration, 1);
    if (byte == '?')
        return enter(State::Ignored, 1);
    m_handler.text("<");
    return enter(State::Text, 0);
}

std::size_t HTMLTokenizer::inEndTagOpening(char byte)
{
    if (!isLetter(byte))
        return enter(State::Ignored, 0);
    startTag(true);
    return enter(State::TagName, 0);
}

std::size_t HTMLTokenizer::inTagName(std::string_view text)
{
    const auto length = lengthBefore(text, kTagNameEnds);
    appendName(m_tag.name, text.substr(0, length));
    return length == text.size() ? length : enter(State::BeforeAttribute, length);
}

std::size_t HTMLTokenizer::inBeforeAttribute(char byte)
{
    if (byte == '>') {
        finishTag();
        return 1;
    }
    if (isBlank(byte))
        return 1;
    m_tag.isSelfClosing = byte == '/';
    if (m_tag.isSelfClosing)
        return 1;
    // The attributes beyond the bound overwrite each other in the last place, which nobody is shown.
    if (m_tag.attributes.size() <= kAttributeCount)
        m_tag.attributes.emplace_back();
    m_tag.attributes.back() = {std::string(1, inLowerCase(byte)), {}};
    return enter(State::AttributeName, 1);
}

std::size_t HTMLTokenizer::inAttributeName(std::string_view text)
{
    const auto length = lengthBefore(text, kAttributeNameEnds);
    appendName(m_tag.attributes.back().name, text.substr(0, length));
    return length == text.size() ? length : enter(State::AfterAttributeName, length);
}

std::size_t HTMLTokenizer::inAfterAttributeName(char byte)
{
    if (isBlank(byte))
        return 1;
    return byte == '=' ? enter(State::BeforeValue, 1) : enter(State::BeforeAttribute, 0);
}

std::size_t HTMLTokenizer::inBeforeValue(char byte)
{
    if (isBlank(byte))
        return 1;
    if (byte == '>')
        return enter(State::BeforeAttribute, 0);
    if (byte != '"' && byte != '\'')
        return enter(State::UnquotedValue, 0);
    m_quote = byte;
    return enter(State::QuotedValue, 1);
}

std::size_t HTMLTokenizer::inQuotedValue(std::string_view text)
{
    const auto length = std::min(text.find(m_quote), text.size());
    appendBounded(m_tag.attributes.back().value, text.substr(0, length), kValueByteCount);
    return length == text.size() ? length : enter(State::BeforeAttribute, length + 1);
}

std::size_t HTMLTokenizer::inUnquotedValue(std::string_view text)
{
    const auto length = lengthBefore(text, kUnquotedValueEnds);
    appendBounded(m_tag.attributes.back().value, text.substr(0, length), kValueByteCount);
    return length == text.size() ? length : enter(State::BeforeAttribute, length);
}

std::size_t HTMLTokenizer::inDeclaration(char byte)
{
    m_match += byte;
    if (m_match == kCommentOpening) {
        // "<!-->" is a whole comment: its dashes close it as well.
        m_closingMarks = 2;
        return enter(State::Comment, 1);
    }
    m_closingMarks = 0;
    if (m_match == kCharacterDataOpening)
        return enter(State::CharacterData, 1);
    if (kCommentOpening.starts_with(m_match) || kCharacterDataOpening.starts_with(m_match))
        return 1;
    return enter(State::Ignored, 0);
}

std::size_t HTMLTokenizer::inComment(std::string_view text)
{
    if (text.front() == '>' && m_closingMarks >= 2)
        return enter(State::Text, 1);
    if (text.front() == '-') {
        ++m_closingMarks;
        return 1;
    }
    m_closingMarks = 0;
    return std::min(text.find('-'), text.size());
}

std::size_t HTMLTokenizer::inCharacterData(std::string_view text)
{
    if (text.front() == ']') {
        ++m_closingMarks;
        return 1;
    }
    const bool isEnd = text.front() == '>' && m_closingMarks >= 2;
    const auto kept = m_closingMarks - (isEnd ? 2 : 0);
    m_closingMarks = 0;
    m_handler.text(std::string(kept, ']'));
    if (isEnd)
        return enter(State::Text, 1);
    const auto length = std::min(text.find(']'), text.size());
    m_handler.text(text.substr(0, length));
    return length;
}

std::size_t HTMLTokenizer::inIgnored(std::string_view text)
{
    const auto length = std::min(text.find('>'), text.size());
    return length == text.size() ? length : enter(State::Text, length + 1);
}

std::size_t HTMLTokenizer::inElementText(std::string_view text)
{
    const bool hasReferences = contentKindOfElement(m_element) == HTMLContentKind::Characters;
    const auto length = hasReferences ? lengthBefore(text, "<&") : std::min(text.find('<'), text.size());
    emitElementText(text.substr(0, length));
    if (length == text.size())
        return length;
    m_match.clear();
    m_stateAfterReference = State::ElementText;
    return enter(text[length] == '<' ? State::ElementEnd : State::Reference, length + 1);
}

std::size_t HTMLTokenizer::inElementEnd(char byte)
{
    const auto expectedLength = m_element.size() + 1;
    if (m_match.size() < expectedLength) {
        const char expected = m_match.empty() ? '/' : m_element[m_match.size() - 1];
        if (inLowerCase(byte) == expected) {
            m_match += byte;
            return 1;
        }
    } else if (kTagNameEnds.find(byte) != std::string_view::npos) {
        startTag(true);
        m_tag.name = m_element;
        return enter(State::BeforeAttribute, 0);
    }
    emitElementText("<" + m_match);
    return enter(State::ElementText, 0);
}

void HTMLTokenizer::startTag(bool isEnd)
{
    m_tag = {};
    m_tag.isEnd = isEnd;
}

void HTMLTokenizer::finishTag()
{
    m_state = State::Text;
    if (m_tag.isEnd)
        return m_handler.endTag(m_tag.name);
    if (m_tag.attributes.size() > kAttributeCount)
        m_tag.attributes.pop_back();
    for (auto& attribute : m_tag.attributes)
        attribute.value = decodedCharacterReferences(attribute.value);
    m_handler.startTag(m_tag);
    if (!m_tag.isSelfClosing && contentKindOfElement(m_tag.name) != HTMLContentKind::Markup) {
        m_element = m_tag.name;
        m_state = State::ElementText;
    }
}

void HTMLTokenizer::emitElementText(std::string_view text)
{
    if (!text.empty() && contentKindOfElement(m_element) != HTMLContentKind::Hidden)
        m_handler.text(text);
}
