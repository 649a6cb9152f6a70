#pragma once

#include "platform/foundation/TextDecoder.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

/// Decodes the bytes of an RTF document, whose code page changes with the font. Bytes of one code page are
/// collected, because the two halves of a character may be written in different ways.
class RTFByteDecoder {
public:
    /// Adds bytes in a code page; what was collected in another one is decoded into `text` first.
    void append(std::string_view bytes, std::uint16_t codePage, std::string& text);
    /// Decodes what was collected into `text`.
    void flush(std::string& text);

    /// Whether nothing is collected.
    [[nodiscard]] bool isEmpty() const { return m_bytes.empty(); }

private:
    [[nodiscard]] std::optional<TextDecoder>& decoderForCodePage(std::uint16_t codePage);

    std::string m_bytes;
    std::uint16_t m_codePage = 0;
    std::map<std::uint16_t, std::optional<TextDecoder>> m_decoders;
};
