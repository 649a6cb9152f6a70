#include "platform/media/PlainTextReader.h"

#include "platform/foundation/NSError.h"
#include "platform/foundation/TextDecoder.h"
#include "platform/foundation/TextEncoding.h"
#include "platform/media/SourceBytes.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string>

namespace {

constexpr std::size_t kChunkByteCount = std::size_t{256} << 10;

bool isPrintableASCII(char byte)
{
    const auto value = static_cast<unsigned char>(byte);
    return (value >= 0x20 && value < 0x7F) || byte == '\t' || byte == '\n' || byte == '\r';
}

void blankControls(std::string& text)
{
    std::replace_if(
        text.begin(), text.end(),
        [](char byte) { return static_cast<unsigned char>(byte) < 0x80 && !isPrintableASCII(byte); }, ' ');
}

/// Decodes chunk by chunk into the sink.
class PlainTextStream {
public:
    explicit PlainTextStream(ContentSink& sink)
        : m_sink(sink)
    {
    }

    /// False when the sink is full.
    bool take(std::string_view chunk, bool isLast)
    {
        if (!m_decoder && std::all_of(chunk.begin(), chunk.end(), isPrintableASCII))
            return m_sink.append(chunk);
        if (!m_decoder)
            chunk.remove_prefix(chooseDecoder(chunk, isLast));
        m_text.clear();
        m_decoder->append(chunk, m_text);
        if (isLast)
            m_decoder->finish(m_text);
        blankControls(m_text);
        return m_sink.append(m_text);
    }

private:
    /// The number of bytes at the start that are no text. What was pure ASCII before reads alike in any
    /// encoding.
    std::size_t chooseDecoder(std::string_view chunk, bool isLast)
    {
        const auto encoding = textEncodingForBytes(chunk, isLast);
        m_decoder = TextDecoder::createWithCharset(encoding.name);
        if (!m_decoder)
            m_decoder = TextDecoder::createWithCharset("windows-1252");
        return encoding.markLength;
    }

    ContentSink& m_sink;
    std::optional<TextDecoder> m_decoder;
    std::string m_text;
};

ReadResult unreadable()
{
    return {ContentStatus::Unreadable,
            NSError::errorWithErrno(errno, "read the text").localizedDescription()};
}

} // namespace

ReadResult readPlainText(const ContentSource& source, ContentSink& sink)
{
    const auto bytes = SourceBytes::open(source);
    if (!bytes)
        return unreadable();
    PlainTextStream stream(sink);
    std::string chunk;
    bool isLast = false;
    for (std::size_t offset = 0; !isLast && !sink.isFull(); offset += kChunkByteCount) {
        if (offset >= sink.limits().streamedBytes) {
            sink.noteCut("the file was read up to its size limit");
            break;
        }
        chunk.resize(kChunkByteCount);
        const auto count = bytes->readAt(offset, chunk);
        if (!count)
            return unreadable();
        chunk.resize(*count);
        isLast = *count < kChunkByteCount;
        if (!stream.take(chunk, isLast))
            break;
    }
    return {};
}
