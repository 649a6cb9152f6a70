#include "platform/rtf/RTFFontWriting.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<std::u16string_view, 6> kSansSerif{u"Helvetica", u"Arial",        u"Verdana",
                                                        u"Geneva",    u"Trebuchet MS", u"Lucida Grande"};
constexpr std::array<std::u16string_view, 5> kSerif{u"Times", u"Times New Roman", u"Georgia", u"Palatino",
                                                    u"Baskerville"};

/// The kind of face, by which readers without the font choose another.
std::string_view kindOf(const NSFont& font)
{
    if (font.isFixedPitch())
        return "fmodern";
    const std::u16string_view family = font.familyName();
    if (std::find(kSansSerif.begin(), kSansSerif.end(), family) != kSansSerif.end())
        return "fswiss";
    return std::find(kSerif.begin(), kSerif.end(), family) != kSerif.end() ? "froman" : "fnil";
}

} // namespace

std::int32_t RTFFontWriting::numberOf(const NSFont& font)
{
    const auto next = static_cast<std::int32_t>(m_numbers.size());
    const auto [known, isNew] = m_numbers.try_emplace(font.fontName(), next);
    if (!isNew)
        return known->second;
    m_entries.word("f", next);
    m_entries.word(kindOf(font));
    m_entries.word("fcharset", 0);
    auto name = font.fontName();
    std::erase(name, u';');
    m_entries.text(name);
    m_entries.raw(";");
    return next;
}

void RTFFontWriting::write(RTFOutput& output) const
{
    output.raw("{\\fonttbl");
    output.raw(m_entries.bytes());
    output.raw("}\n");
}
