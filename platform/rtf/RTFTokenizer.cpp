#include "platform/rtf/RTFTokenizer.h"

#include <algorithm>
#include <limits>

namespace {

constexpr std::string_view kBinaryWord = "bin";

bool isLetter(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

// Line ends between tokens mean nothing, so that they end a run.
bool endsText(char byte)
{
    return byte == '\\' || byte == '{' || byte == '}' || byte == '\r' || byte == '\n';
}

std::optional<unsigned> hexValue(char byte)
{
    if (isDigit(byte))
        return static_cast<unsigned>(byte - '0');
    if (byte >= 'a' && byte <= 'f')
        return static_cast<unsigned>(byte - 'a') + 10;
    if (byte >= 'A' && byte <= 'F')
        return static_cast<unsigned>(byte - 'A') + 10;
    return std::nullopt;
}

} // namespace

RTFTokenizer::RTFTokenizer(std::string_view bytes)
    : m_bytes(bytes)
{
}

RTFToken RTFTokenizer::next()
{
    while (!isAtEnd() && (m_bytes[m_offset] == '\r' || m_bytes[m_offset] == '\n'))
        ++m_offset;
    if (isAtEnd())
        return {};
    switch (m_bytes[m_offset]) {
    case '{':
        ++m_offset;
        return {.kind = RTFToken::Kind::GroupStart};
    case '}':
        ++m_offset;
        return {.kind = RTFToken::Kind::GroupEnd};
    case '\\':
        ++m_offset;
        return controlToken();
    default:
        return textToken();
    }
}

RTFToken RTFTokenizer::controlToken()
{
    if (isAtEnd())
        return {};
    const char first = m_bytes[m_offset];
    if (isLetter(first))
        return wordToken();
    ++m_offset;
    if (first == '\'')
        return hexToken();
    if (first == '\r' && !isAtEnd() && m_bytes[m_offset] == '\n')
        ++m_offset;
    if (first == '\\' || first == '{' || first == '}')
        return {.kind = RTFToken::Kind::Byte, .byte = first};
    return {.kind = RTFToken::Kind::Symbol, .byte = first};
}

RTFToken RTFTokenizer::wordToken()
{
    const auto start = m_offset;
    while (!isAtEnd() && isLetter(m_bytes[m_offset]))
        ++m_offset;
    RTFToken token{.kind = RTFToken::Kind::Word, .bytes = m_bytes.substr(start, m_offset - start)};
    token.parameter = parameter();
    if (!isAtEnd() && m_bytes[m_offset] == ' ')
        ++m_offset;
    if (token.bytes != kBinaryWord || token.parameter.value_or(0) <= 0)
        return token;
    const auto data = m_bytes.substr(m_offset, static_cast<std::size_t>(*token.parameter));
    m_offset += data.size();
    return {.kind = RTFToken::Kind::Binary, .bytes = data};
}

std::optional<std::int32_t> RTFTokenizer::parameter()
{
    const bool isNegative
        = m_offset + 1 < m_bytes.size() && m_bytes[m_offset] == '-' && isDigit(m_bytes[m_offset + 1]);
    if (isNegative)
        ++m_offset;
    if (isAtEnd() || !isDigit(m_bytes[m_offset]))
        return std::nullopt;
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    std::int64_t value = 0;
    for (; !isAtEnd() && isDigit(m_bytes[m_offset]); ++m_offset)
        value = std::min(value * 10 + (m_bytes[m_offset] - '0'), kMost);
    return static_cast<std::int32_t>(isNegative ? -value : value);
}

RTFToken RTFTokenizer::hexToken()
{
    const auto upper = m_offset < m_bytes.size() ? hexValue(m_bytes[m_offset]) : std::nullopt;
    const auto lower = m_offset + 1 < m_bytes.size() ? hexValue(m_bytes[m_offset + 1]) : std::nullopt;
    if (!upper || !lower)
        return {.kind = RTFToken::Kind::Symbol, .byte = '\''};
    m_offset += 2;
    return {.kind = RTFToken::Kind::Byte, .byte = static_cast<char>(*upper * 16 + *lower)};
}

RTFToken RTFTokenizer::textToken()
{
    const auto start = m_offset;
    while (!isAtEnd() && !endsText(m_bytes[m_offset]))
        ++m_offset;
    return {.kind = RTFToken::Kind::Text, .bytes = m_bytes.substr(start, m_offset - start)};
}
