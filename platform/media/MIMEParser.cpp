#include "platform/media/MIMEParser.h"

#include "platform/media/ContentLimits.h"

#include <algorithm>
#include <utility>

namespace {

constexpr ContentLimits kLimits;
constexpr std::size_t kOpenMultiparts = 50;
constexpr std::string_view kBlanks = " \t\r\n";

bool isBlankLine(std::string_view line)
{
    return line.find_first_not_of(kBlanks) == std::string_view::npos;
}

bool isMessageType(std::string_view mimeType)
{
    return mimeType == "message/rfc822" || mimeType == "message/global" || mimeType == "message/news";
}

/// The length of the field name that a line starts with; 0 when it starts with none.
std::size_t fieldNameLength(std::string_view line)
{
    const auto end = std::find_if_not(line.begin(), line.end(),
                                      [](char byte) { return byte > ' ' && byte < '\x7F' && byte != ':'; });
    const auto length = static_cast<std::size_t>(end - line.begin());
    const auto next = line.find_first_not_of(" \t", length);
    return next != std::string_view::npos && line[next] == ':' ? length : 0;
}

bool isMailboxSeparator(std::string_view line)
{
    return line.starts_with("From ") || line.starts_with(">From ");
}

std::string_view withoutLineEnd(std::string_view text)
{
    if (text.ends_with('\n'))
        text.remove_suffix(1);
    if (text.ends_with('\r'))
        text.remove_suffix(1);
    return text;
}

} // namespace

MIMEParser::MIMEParser(std::string_view bytes, MIMEBudget& budget, std::deque<std::string>& decoded,
                       std::size_t depth)
    : m_bytes(bytes)
    , m_budget(budget)
    , m_decoded(decoded)
    , m_depth(depth)
{
}

MIMEEntity MIMEParser::parseMessage()
{
    return parseEntity(Kind::Message, "text/plain");
}

MIMEEntity MIMEParser::parseEntity(Kind kind, std::string_view defaultType)
{
    if (m_budget.entities > 0)
        --m_budget.entities;
    m_delimiter.reset();
    MIMEEntity entity;
    parseHeader(entity.header, kind);
    const auto typeField = entity.header.value("content-type");
    if (auto type = typeField.empty() ? std::nullopt : contentTypeInField(typeField))
        entity.contentType = std::move(*type);
    else
        entity.contentType.mimeType = defaultType;
    if (const auto field = entity.header.value("content-disposition"); !field.empty())
        entity.disposition = dispositionInField(field);
    if (!m_delimiter)
        parseBody(entity);
    return entity;
}

void MIMEParser::parseHeader(MIMEHeader& header, Kind kind)
{
    if (kind == Kind::Message)
        skipEnvelope();
    while (!isAtEnd()) {
        m_delimiter = delimiterInCurrentLine();
        const auto line = currentLine();
        if (m_delimiter || line.empty())
            return nextLine();
        if (const auto nameLength = fieldNameLength(line); nameLength > 0) {
            header.addField(line.substr(0, nameLength), readFieldValue());
            continue;
        }
        const bool isStray = line.starts_with(' ') || line.starts_with('\t') || isMailboxSeparator(line);
        if (!isStray)
            return; // The empty line is missing: the body begins here.
        nextLine();
    }
}

// Mailbox files and careless programs put lines before a header. They are only skipped when one follows.
void MIMEParser::skipEnvelope()
{
    const auto start = m_position;
    if (m_bytes.substr(m_position).starts_with("\xEF\xBB\xBF"))
        m_position += 3;
    while (!isAtEnd() && (isBlankLine(currentLine()) || isMailboxSeparator(currentLine()))) {
        if (delimiterInCurrentLine())
            break;
        nextLine();
    }
    if (isAtEnd() || fieldNameLength(currentLine()) == 0)
        m_position = start;
}

// A value goes on in all the lines that start with a blank.
std::string_view MIMEParser::readFieldValue()
{
    const auto start = m_bytes.find(':', m_position) + 1;
    do {
        nextLine();
    } while (!isAtEnd() && (m_bytes[m_position] == ' ' || m_bytes[m_position] == '\t'));
    return withoutLineEnd(m_bytes.substr(start, m_position - start));
}

void MIMEParser::parseBody(MIMEEntity& entity)
{
    const auto start = m_position;
    const bool isMessage = isMessageType(entity.contentType.mimeType) && m_depth < kLimits.containerNesting
        && m_budget.entities > 0;
    const bool isEncoded = isEncodedForTransfer(entity.header.value("content-transfer-encoding"));
    if (entity.contentType.isMultipart() && !entity.contentType.boundary.empty()
        && m_boundaries.size() < kOpenMultiparts)
        parseParts(entity);
    else if (isMessage && !isEncoded)
        parseEnclosedMessage(entity);
    else
        readToDelimiter();
    entity.body = textSince(start);
    if (isMessage && isEncoded)
        parseEncodedMessage(entity);
}

void MIMEParser::parseParts(MIMEEntity& entity)
{
    const auto level = m_boundaries.size();
    const auto* const defaultType
        = entity.contentType.mimeType == "multipart/digest" ? "message/rfc822" : "text/plain";
    m_boundaries.push_back(entity.contentType.boundary);
    readToDelimiter(); // What stands before the first part is for programs that know no parts.
    while (m_delimiter && m_delimiter->level == level && !m_delimiter->isLast && m_budget.entities > 0)
        entity.parts.push_back(parseEntity(Kind::Part, defaultType));
    m_boundaries.pop_back();
    // What is left is no part: it stands behind the last one, or is beyond the bounds.
    while (m_delimiter && m_delimiter->level >= level)
        readToDelimiter();
}

void MIMEParser::parseEnclosedMessage(MIMEEntity& entity)
{
    ++m_depth;
    entity.parts.push_back(parseMessage());
    --m_depth;
}

void MIMEParser::parseEncodedMessage(MIMEEntity& entity)
{
    auto decoded = entity.decodedBody(m_budget.decodedBytes);
    if (decoded.empty())
        return;
    m_budget.decodedBytes -= decoded.size();
    m_decoded.push_back(std::move(decoded));
    entity.parts.push_back(MIMEParser(m_decoded.back(), m_budget, m_decoded, m_depth + 1).parseMessage());
}

void MIMEParser::readToDelimiter()
{
    m_delimiter.reset();
    for (; !isAtEnd() && !m_delimiter; nextLine())
        m_delimiter = delimiterInCurrentLine();
}

std::string_view MIMEParser::textSince(std::size_t start) const
{
    if (!m_delimiter)
        return m_bytes.substr(start);
    return withoutLineEnd(m_bytes.substr(start, std::max(m_delimiter->start, start) - start));
}

std::string_view MIMEParser::currentLine() const
{
    const auto rest = m_bytes.substr(m_position);
    return withoutLineEnd(rest.substr(0, std::min(rest.find('\n'), rest.size())));
}

void MIMEParser::nextLine()
{
    const auto end = m_bytes.find('\n', m_position);
    m_position = end == std::string_view::npos ? m_bytes.size() : end + 1;
}

std::optional<MIMEParser::Delimiter> MIMEParser::delimiterInCurrentLine() const
{
    if (!m_bytes.substr(m_position).starts_with("--"))
        return std::nullopt;
    const auto line = currentLine().substr(2);
    for (auto level = m_boundaries.size(); level-- > 0;) {
        const std::string_view boundary = m_boundaries[level];
        if (!line.starts_with(boundary))
            continue;
        const auto rest = line.substr(boundary.size());
        if (isBlankLine(rest))
            return Delimiter{m_position, level, false};
        if (rest.starts_with("--") && isBlankLine(rest.substr(2)))
            return Delimiter{m_position, level, true};
    }
    return std::nullopt;
}
