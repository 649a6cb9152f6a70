#include "platform/rtf/RTFByteDecoder.h"

#include "platform/foundation/Unicode.h"
#include "platform/rtf/RTFCodePages.h"

namespace {

constexpr std::size_t kMostCollectedBytes = 65536;

void appendSymbols(std::string_view bytes, std::string& text)
{
    constexpr char32_t kSymbolArea = 0xF000;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        appendUTF8(text, value < 0x80 ? value : kSymbolArea + value);
    }
}

} // namespace

void RTFByteDecoder::append(std::string_view bytes, std::uint16_t codePage, std::string& text)
{
    if (m_codePage != codePage)
        flush(text);
    m_codePage = codePage;
    // Without a first half before it ASCII is itself in every code page.
    if (m_bytes.empty() && isASCII(bytes)) {
        text += bytes;
        return;
    }
    m_bytes += bytes;
    if (m_bytes.size() > kMostCollectedBytes)
        flush(text);
}

void RTFByteDecoder::flush(std::string& text)
{
    if (m_bytes.empty())
        return;
    if (m_codePage == kSymbolCodePage) {
        appendSymbols(m_bytes, text);
    } else if (auto& decoder = decoderForCodePage(m_codePage)) {
        decoder->append(m_bytes, text);
        decoder->finish(text);
    } else {
        text += validUTF8(m_bytes);
    }
    m_bytes.clear();
}

std::optional<TextDecoder>& RTFByteDecoder::decoderForCodePage(std::uint16_t codePage)
{
    const auto found = m_decoders.find(codePage);
    if (found != m_decoders.end())
        return found->second;
    return m_decoders.emplace(codePage, TextDecoder::createWithCharset(charsetNameForCodePage(codePage)))
        .first->second;
}
