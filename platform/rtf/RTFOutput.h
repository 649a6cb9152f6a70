#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

/// RTF as bytes in the making. Control words are kept apart from the text behind them by a blank, written
/// only where one is needed.
class RTFOutput {
public:
    /// A control word; `name` has no backslash.
    void word(std::string_view name);
    void word(std::string_view name, std::int64_t parameter);
    /// A blank behind a control word, where the platform writes one; nothing behind anything else.
    void blank();
    /// A line end that means nothing.
    void lineBreak();
    void beginGroup();
    void endGroup();
    /// A paragraph end as the platform writes it.
    void paragraphEnd();

    /// Text: ASCII as it is, else a byte of Windows' code page 1252 where there is one, else \u. Line and
    /// page breaks are words, other control characters than the tab are bytes. Unpaired surrogates become
    /// U+FFFD.
    void text(std::u16string_view text) { appendText(text, true); }

    /// The same without the code page: the platform writes markers of lists so.
    void unicodeText(std::u16string_view text) { appendText(text, false); }

    /// Bytes in hexadecimal: \'hh.
    void hexByte(unsigned byte);
    /// Characters that mean themselves: no backslash, brace or byte above 0x7E.
    void plain(std::string_view characters);
    /// Bytes as they are, with backslashes and braces escaped.
    void escapedBytes(std::string_view bytes);
    /// Bytes as they are.
    void raw(std::string_view bytes);

    /// Makes room for so many bytes more.
    void reserve(std::size_t count) { m_bytes.reserve(m_bytes.size() + count); }

    [[nodiscard]] const std::string& bytes() const { return m_bytes; }

    [[nodiscard]] std::string takeBytes() { return std::move(m_bytes); }

private:
    void appendText(std::u16string_view text, bool usesCodePage);
    void separate();
    void unicode(char16_t unit, bool& skipsNothing);

    std::string m_bytes;
    bool m_isBehindWord = false;
};
