#pragma once

#include "platform/media/XMLTextStream.h"
#include "platform/text/NSFont.h"

#include <map>
#include <string>
#include <string_view>
#include <tuple>

/// The fonts of a document as far as there are any here. For a family that is not known stands the one that
/// the document names beside it, else one of its kind.
class WordFonts {
public:
    /// Never null. A size that is not positive means NSFont::kDefaultSize.
    [[nodiscard]] NSFont::Ref font(std::string_view family, double size, bool isBold, bool isItalic);

private:
    friend class WordFontTableHandler;

    struct Entry {
        std::string alternative;
        /// "roman", "swiss", "modern" and so on.
        std::string kind;
    };

    [[nodiscard]] const std::u16string& knownFamily(const std::string& family);

    std::map<std::string, Entry, std::less<>> m_table;
    std::map<std::string, std::u16string, std::less<>> m_knownFamilies;
    std::map<std::tuple<std::u16string, double, bool, bool>, NSFont::Ref> m_fonts;
};

/// Reads a font table part. The fonts must outlive the handler.
class WordFontTableHandler final : public XMLHandler {
public:
    explicit WordFontTableHandler(WordFonts& fonts)
        : m_fonts(fonts)
    {
    }

    void startElement(std::string_view localName, const XMLAttributes& attributes) override;

private:
    WordFonts& m_fonts;
    std::string m_name;
};
