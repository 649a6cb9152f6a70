#include "platform/rtf/RTFCollectedText.h"

#include "platform/foundation/Unicode.h"

#include <utility>

namespace {

constexpr std::size_t kPieceByteCount = 16'384;

} // namespace

void RTFCollectedText::appendBytes(std::string_view bytes, std::uint16_t codePage, RTFDestination destination)
{
    finishPair(destination);
    const bool isEmpty = m_decoder.isEmpty() && m_text.empty();
    if (isEmpty && destination == RTFDestination::Text && isASCII(bytes))
        return m_handler.appendText(bytes);
    m_decoder.append(bytes, codePage, m_text);
    if (m_text.size() >= kPieceByteCount)
        give(destination);
}

void RTFCollectedText::appendCharacter(char32_t character, RTFDestination destination)
{
    finishPair(destination);
    m_decoder.flush(m_text);
    appendUTF8(m_text, character);
    if (m_text.size() >= kPieceByteCount)
        give(destination);
}

void RTFCollectedText::appendUnit(char16_t unit, RTFDestination destination)
{
    const bool isLead = (unit & 0xFC00U) == 0xD800;
    const bool isTrail = (unit & 0xFC00U) == 0xDC00;
    if (isLead) {
        finishPair(destination);
        m_leadSurrogate = unit;
    } else if (isTrail && m_leadSurrogate != 0) {
        const auto upper = static_cast<char32_t>(std::exchange(m_leadSurrogate, char16_t{0}) & 0x3FFU);
        appendCharacter(0x10000 + (upper << 10U) + (unit & 0x3FFU), destination);
    } else {
        appendCharacter(unit, destination); // A second half alone becomes a replacement character.
    }
}

void RTFCollectedText::finishPair(RTFDestination destination)
{
    if (std::exchange(m_leadSurrogate, char16_t{0}) != 0)
        appendCharacter(kReplacementCharacter, destination);
}

void RTFCollectedText::flush(RTFDestination destination)
{
    if (m_decoder.isEmpty() && m_text.empty())
        return;
    m_decoder.flush(m_text);
    give(destination);
}

void RTFCollectedText::finish(RTFDestination destination)
{
    finishPair(destination);
    flush(destination);
}

void RTFCollectedText::give(RTFDestination destination)
{
    if (destination == RTFDestination::Text)
        m_handler.appendText(m_text);
    else
        m_handler.takeDestinationText(destination, m_text);
    m_text.clear();
}
