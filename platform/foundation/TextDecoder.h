#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// Makes UTF-8 of a stream of bytes in one encoding. Bytes may be cut anywhere: an unfinished sequence waits
/// for the next call. Bytes without a meaning become U+FFFD. Memory is constant. One object belongs to one
/// thread at a time.
class TextDecoder {
public:
    /// A decoder for a charset name as mails, web pages and editors write it. Case and punctuation do not
    /// matter, and names that are commonly used for a wider encoding mean that one: "iso-8859-1" and
    /// "us-ascii" read as Windows-1252, "gb2312" as GB18030. None for a name that means nothing
    /// ("unknown-8bit").
    [[nodiscard]] static std::optional<TextDecoder> createWithCharset(std::string_view charsetName);

    TextDecoder(TextDecoder&& other) noexcept;
    TextDecoder& operator=(TextDecoder&& other) noexcept;
    TextDecoder(const TextDecoder&) = delete;
    TextDecoder& operator=(const TextDecoder&) = delete;
    ~TextDecoder();

    /// Decodes `bytes` and appends them to `text`.
    void append(std::string_view bytes, std::string& text);
    /// Ends the stream: an unfinished sequence becomes one U+FFFD. The decoder is ready for a new stream
    /// after it.
    void finish(std::string& text);

private:
    class Converter;
    explicit TextDecoder(std::unique_ptr<Converter> converter);

    std::unique_ptr<Converter> m_converter;
};

/// The name under which the decoding library knows a charset, by the rules of TextDecoder; empty for none.
[[nodiscard]] std::string canonicalCharsetName(std::string_view charsetName);
