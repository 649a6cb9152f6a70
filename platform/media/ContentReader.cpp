#include "platform/media/ContentReader.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/Unicode.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace {

constexpr std::size_t kFieldByteCount = 4096;
constexpr unsigned kAppendsBetweenClockReadings = 16;

void appendClean(std::string& target, std::string_view text)
{
    const auto start = target.size();
    if (isValidUTF8(text))
        target += text;
    else
        target += validUTF8(text);
    std::replace(target.begin() + static_cast<std::ptrdiff_t>(start), target.end(), '\0', ' ');
}

} // namespace

ContentSink::ContentSink(const ContentLimits& limits)
    : m_limits(limits)
    , m_deadline(std::chrono::steady_clock::now() + limits.time)
{
}

bool ContentSink::append(std::string_view text)
{
    if (isFull())
        return false;
    const auto room = m_limits.textBytes - m_content.text.size();
    const auto taken = prefixAtCharacterBorder(text, room);
    appendClean(m_content.text, taken);
    if (taken.size() < text.size() || m_content.text.size() > m_limits.textBytes) {
        m_content.text.resize(prefixAtCharacterBorder(m_content.text, m_limits.textBytes).size());
        noteCut("the text was cut at its size limit");
        m_full = true;
    }
    return !m_full;
}

void ContentSink::breakLine()
{
    if (!m_content.text.empty() && m_content.text.back() != '\n')
        (void)append("\n"); // A full sink stays as it is.
}

void ContentSink::breakWord()
{
    if (!m_content.text.empty() && m_content.text.back() != '\n' && m_content.text.back() != ' ')
        (void)append(" "); // A full sink stays as it is.
}

void ContentSink::addField(std::string_view name, std::string_view value)
{
    if (value.empty())
        return;
    std::string clean;
    appendClean(clean, prefixAtCharacterBorder(value, kFieldByteCount));
    m_content.fields.push_back({std::string(name), std::move(clean)});
}

void ContentSink::noteCut(std::string_view note)
{
    auto& notes = m_content.cutNotes;
    if (std::find(notes.begin(), notes.end(), note) == notes.end())
        notes.emplace_back(note);
}

bool ContentSink::isFull()
{
    if (m_full || m_clockCountdown-- > 0)
        return m_full;
    m_clockCountdown = kAppendsBetweenClockReadings;
    if (std::chrono::steady_clock::now() >= m_deadline) {
        noteCut("reading was stopped at its time limit");
        m_full = true;
    }
    return m_full;
}

Content ContentSink::takeContent(ContentStatus status, std::string reason)
{
    m_content.status = status;
    m_content.reason = std::move(reason);
    return std::exchange(m_content, {});
}

Content readContent(const ContentSource& source, const ContentLimits& limits)
{
    ContentSink sink(limits);
    auto result = readContentInto(source, sink);
    return sink.takeContent(result.status, std::move(result.reason));
}

ReadResult readContentInto(const ContentSource& source, ContentSink& sink)
{
    const auto reader = contentReaderForType(source.typeIdentifier);
    if (!reader)
        return {ContentStatus::UnknownKind, "no reader for " + source.typeIdentifier};
    if (sink.containerDepth() > sink.limits().containerNesting) {
        sink.noteCut("containers within containers were left out");
        return {};
    }
    try {
        return reader(source, sink);
    } catch (const std::exception& exception) {
        return {ContentStatus::Damaged, exception.what()};
    }
}

bool readSourceBytes(const ContentSource& source, std::size_t maximumByteCount, std::string& bytes)
{
    if (!source.isFile()) {
        bytes = source.bytes.substr(0, maximumByteCount);
        return true;
    }
    auto read = readFile(source.fileDescriptor, maximumByteCount);
    if (!read)
        return false;
    bytes = std::move(*read);
    return true;
}
