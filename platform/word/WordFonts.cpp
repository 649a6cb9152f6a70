#include "platform/word/WordFonts.h"

#include "platform/foundation/Unicode.h"
#include "platform/text/NSFontManager.h"

namespace {

/// Looking a family up may ask the font configuration.
constexpr std::size_t kMostFamilies = 500;
constexpr std::size_t kMostFonts = 4'000;
constexpr std::size_t kMostNameBytes = 128;
constexpr int kRegularWeight = 5;
constexpr int kBoldWeight = 9;

bool isKnown(std::u16string_view family)
{
    return NSFontManager::sharedFontManager().fontWithFamily(family, 0, kRegularWeight, 12) != nullptr;
}

std::u16string_view familyOfKind(std::string_view kind)
{
    if (kind == "roman")
        return u"Times New Roman";
    return kind == "modern" ? u"Courier New" : u"Helvetica";
}

} // namespace

NSFont::Ref WordFonts::font(std::string_view family, double size, bool isBold, bool isItalic)
{
    const auto& known = knownFamily(std::string(family));
    if (m_fonts.size() >= kMostFonts)
        m_fonts.clear();
    auto& font = m_fonts[{known, size, isBold, isItalic}];
    if (font)
        return font;
    const auto& manager = NSFontManager::sharedFontManager();
    const unsigned traits = isItalic ? unsigned{NSItalicFontMask} : 0U;
    const auto weight = isBold ? kBoldWeight : kRegularWeight;
    font = manager.fontWithFamily(known, traits, weight, size);
    if (!font)
        font = manager.fontWithFamily(known, 0, weight, size);
    if (!font)
        font = NSFont::userFontOfSize(size);
    return font;
}

const std::u16string& WordFonts::knownFamily(const std::string& family)
{
    static const std::u16string kUsual = u"Helvetica";
    if (const auto found = m_knownFamilies.find(family); found != m_knownFamilies.end())
        return found->second;
    if (m_knownFamilies.size() >= kMostFamilies)
        return kUsual;
    auto name = UTF16FromUTF8(family);
    if (!isKnown(name)) {
        const auto entry = m_table.find(family);
        const auto alternative
            = entry == m_table.end() ? std::u16string() : UTF16FromUTF8(entry->second.alternative);
        const bool hasAlternative = !alternative.empty() && isKnown(alternative);
        const auto kind = entry == m_table.end() ? std::string_view() : entry->second.kind;
        name = hasAlternative ? alternative : std::u16string(familyOfKind(kind));
    }
    return m_knownFamilies.emplace(family, std::move(name)).first->second;
}

void WordFontTableHandler::startElement(std::string_view localName, const XMLAttributes& attributes)
{
    if (localName == "font") {
        m_name = attributes.value("name").substr(0, kMostNameBytes);
        return;
    }
    if (m_fonts.m_table.size() >= kMostFonts && !m_fonts.m_table.contains(m_name))
        return;
    const auto value = attributes.value("val").substr(0, kMostNameBytes);
    if (localName == "altName")
        m_fonts.m_table[m_name].alternative = value.substr(0, value.find(','));
    else if (localName == "family")
        m_fonts.m_table[m_name].kind = value;
}
