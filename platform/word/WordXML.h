#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// How a part of a document begins.
inline constexpr std::string_view kWordXMLDeclaration
    = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";

/// The namespaces of the format, as declarations.
inline constexpr std::string_view kWordNamespace
    = " xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\"";
inline constexpr std::string_view kWordReferenceNamespace
    = " xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"";

/// XML in the making, UTF-8. Whatever the texts are, it is well-formed: control characters that XML has no
/// form for are left out; unpaired surrogates, U+FFFE and U+FFFF become U+FFFD.
class WordXML {
public:
    /// Markup as it is.
    void raw(std::string_view markup) { m_bytes += markup; }

    /// Characters, those of markup escaped; tabs and line ends as references, so that they stay in values of
    /// attributes too.
    void text(std::u16string_view text);
    void text(std::string_view utf8);
    void number(std::int64_t number);

    /// An attribute with a blank before it.
    template <typename Value> void attribute(std::string_view name, const Value& value)
    {
        m_bytes.append(" ").append(name).append("=\"");
        put(value);
        m_bytes += '"';
    }

    /// An element with nothing but the attribute "w:val", or with none.
    template <typename Value> void property(std::string_view name, const Value& value)
    {
        m_bytes.append("<").append(name);
        attribute("w:val", value);
        m_bytes += "/>";
    }

    void property(std::string_view name) { m_bytes.append("<").append(name).append("/>"); }

    /// A property that is on or, said expressly, off.
    void toggle(std::string_view name, bool isOn);

    [[nodiscard]] const std::string& bytes() const { return m_bytes; }

    [[nodiscard]] bool isEmpty() const { return m_bytes.empty(); }

    [[nodiscard]] std::string takeBytes() { return std::move(m_bytes); }

private:
    void put(std::u16string_view value) { text(value); }

    void put(std::string_view value) { text(value); }

    void put(std::int64_t value) { number(value); }

    void putCharacter(char32_t character);

    std::string m_bytes;
};
