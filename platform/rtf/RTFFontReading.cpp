#include "platform/rtf/RTFFontReading.h"

#include "platform/foundation/Unicode.h"
#include "platform/rtf/RTFLimits.h"
#include "platform/text/NSFontManager.h"

#include <utility>

namespace {

constexpr std::size_t kMostNameBytes = 256;
constexpr int kRegularWeight = 5;

std::string_view trimmed(std::string_view name)
{
    const auto start = name.find_first_not_of(" \t");
    if (start == std::string_view::npos)
        return {};
    return name.substr(start, name.find_last_not_of(" \t") - start + 1);
}

} // namespace

bool RTFFontReading::takeWord(std::string_view name, RTFParameter parameter)
{
    if (name == "f") {
        endName();
        m_number = parameter.valueOr(0);
    } else if (name == "froman") {
        m_described.kind = Kind::Serif;
    } else if (name == "fmodern") {
        m_described.kind = Kind::FixedPitch;
    } else {
        return false;
    }
    return true;
}

void RTFFontReading::takeText(std::string_view text)
{
    while (!text.empty()) {
        const auto end = text.find(';');
        if (m_described.name.size() < kMostNameBytes)
            m_described.name += text.substr(0, end);
        m_described.isNamed = true;
        if (end == std::string_view::npos)
            return;
        endName();
        text.remove_prefix(end + 1);
    }
}

void RTFFontReading::endGroup()
{
    endName();
}

/// Of entries of one number the first counts.
void RTFFontReading::endName()
{
    auto entry = std::exchange(m_described, {});
    const auto name = trimmed(entry.name);
    if (!entry.isNamed || name.empty() || m_entries.size() >= kMostRTFFonts)
        return;
    entry.name = std::string(name);
    m_entries.try_emplace(m_number, std::move(entry));
}

NSFont::Ref RTFFontReading::findFont(const Entry& entry)
{
    const auto name = UTF16FromUTF8(entry.name);
    if (auto face = NSFont::fontWithName(name, NSFont::kDefaultSize))
        return face;
    const auto& manager = NSFontManager::sharedFontManager();
    if (auto face = manager.fontWithFamily(name, 0, kRegularWeight, NSFont::kDefaultSize))
        return face;
    switch (entry.kind) {
    case Kind::Serif:
        return NSFont::fontWithName(u"Times-Roman", NSFont::kDefaultSize);
    case Kind::FixedPitch:
        return NSFont::fontWithName(u"Courier", NSFont::kDefaultSize);
    default:
        return NSFont::userFontOfSize(NSFont::kDefaultSize);
    }
}

NSFont::Ref RTFFontReading::fontAt(std::optional<std::int32_t> number, double size, bool isBold,
                                   bool isItalic)
{
    NSFont::Ref font;
    if (const auto found = m_entries.find(number.value_or(0)); number && found != m_entries.end()) {
        auto& entry = found->second;
        if (!entry.font)
            entry.font = findFont(entry);
        font = entry.font;
    }
    if (!font)
        font = NSFont::userFontOfSize(NSFont::kDefaultSize);
    const auto& manager = NSFontManager::sharedFontManager();
    if (isBold && (font->symbolicTraits() & NSFontBoldTrait) == 0)
        font = manager.convertFontToHaveTrait(font, NSBoldFontMask);
    if (isItalic && (font->symbolicTraits() & NSFontItalicTrait) == 0)
        font = manager.convertFontToHaveTrait(font, NSItalicFontMask);
    return manager.convertFontToSize(font, size);
}
