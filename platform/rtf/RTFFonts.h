#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>

/// The code pages that a document and its fonts declare.
class RTFFonts {
public:
    void setDocumentCodePage(std::int32_t codePage);

    void setDefaultFont(std::int32_t font) { m_defaultFont = font; }

    [[nodiscard]] std::int32_t defaultFont() const { return m_defaultFont; }

    /// Begins the description of a font; the setters below belong to it.
    void beginFont(std::int32_t font) { m_described = font; }

    void setCharset(std::int32_t charset);
    void setCodePage(std::int32_t codePage);

    /// The code page of a font's bytes: its own, else the document's. None is the default font.
    [[nodiscard]] std::uint16_t codePageForFont(std::optional<std::int32_t> font) const;

private:
    void describe(std::uint16_t codePage);

    std::uint16_t m_documentCodePage = 1252;
    std::int32_t m_defaultFont = 0;
    std::int32_t m_described = 0;
    std::unordered_map<std::int32_t, std::uint16_t> m_codePages;
};
