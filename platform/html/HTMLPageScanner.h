#pragma once

#include "platform/html/HTMLTokenizer.h"

#include <string>
#include <string_view>

/// Goes over a page that is in memory as a whole, from token to token. Beside HTMLTokenizer, which reads
/// pages of any size in constant memory for their text, it gives attributes in full length and the contents
/// of style sheets. Any UTF-8 is a page; the time is linear in it.
class HTMLPageScanner {
public:
    enum class Token { Text, StartTag, EndTag, End };

    /// Attributes of a tag that are kept.
    static constexpr std::size_t kMostAttributes = 64;

    /// The page must outlive the scanner.
    explicit HTMLPageScanner(std::string_view page)
        : m_page(page)
    {
    }

    /// Goes on to the next token. Comments and declarations are none.
    Token next();

    /// Of a text: its characters, with references decoded.
    [[nodiscard]] const std::string& text() const { return m_text; }

    /// Of a tag. The value of a data URL may be as long as the page.
    [[nodiscard]] const HTMLTag& tag() const { return m_tag; }

    /// Directly behind a start tag: what stands before the end tag of that name, as it is written. Goes
    /// behind the end tag.
    std::string_view takeRawContent();

private:
    [[nodiscard]] char byteAt(std::size_t index) const
    {
        return index < m_page.size() ? m_page[index] : '\0';
    }

    bool skipDeclaration();
    Token readText();
    void readTag();
    void readAttribute();
    std::string_view readValue();
    std::string_view takeUntil(std::string_view ends);
    void skipBlanks();

    std::string_view m_page;
    std::size_t m_offset = 0;
    std::string m_text;
    HTMLTag m_tag;
};
