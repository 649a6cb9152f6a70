#include "platform/html/CSSFontProperties.h"

#include "platform/foundation/Unicode.h"
#include "platform/html/CSSValues.h"
#include "platform/html/HTMLFont.h"
#include "platform/text/NSFontManager.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

constexpr double kGreatestFontSize = 1000;

struct Keyword {
    std::string_view name;
    double factor;
};

constexpr std::array kSizes{
    Keyword{"xx-small", 0.6}, Keyword{"x-small", 0.75}, Keyword{"small", 0.89},   Keyword{"medium", 1},
    Keyword{"large", 1.2},    Keyword{"x-large", 1.5},  Keyword{"xx-large", 2.0}, Keyword{"xxx-large", 3.0},
};

std::u16string familyFor(std::string_view name)
{
    const auto lower = inASCIILowerCase(name);
    if (lower == "serif")
        return u"Times";
    if (lower == "sans-serif")
        return u"Helvetica";
    if (lower == "monospace" || lower == "ui-monospace")
        return u"Courier";
    if (lower == "system-ui" || lower == "-apple-system" || lower == "blinkmacsystemfont")
        return NSFont::systemFontOfSize(NSFont::kDefaultSize)->familyName();
    auto family = UTF16FromUTF8(name);
    const bool isKnown
        = NSFontManager::sharedFontManager().fontWithFamily(family, 0, 5, NSFont::kDefaultSize) != nullptr;
    return isKnown ? family : std::u16string();
}

std::string_view unquoted(std::string_view text)
{
    const bool isQuoted
        = text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.back() == text.front();
    return isQuoted ? text.substr(1, text.size() - 2) : text;
}

class FontProperties {
public:
    FontProperties(const HTMLComputedStyle& parent, HTMLComputedStyle& style)
        : m_parent(parent)
        , m_style(style)
    {
    }

    bool set(std::string_view property, std::string_view value)
    {
        if (property == "font")
            setFontShorthand(value);
        else if (property == "font-family")
            setFamily(value);
        else if (property == "font-size")
            setSize(value);
        else if (property == "font-weight")
            setWeight(value);
        else if (property == "font-style")
            m_style.isItalic = value == "inherit"
                ? m_parent.isItalic
                : value.starts_with("italic") || value.starts_with("oblique");
        else
            return false;
        return true;
    }

private:
    void setFamily(std::string_view value)
    {
        for (const auto name : cssPieces(value, ',')) {
            auto family = familyFor(unquoted(name));
            if (family.empty())
                continue;
            m_style.family = std::move(family);
            return;
        }
    }

    void setSize(std::string_view value)
    {
        const auto* const keyword = std::find_if(kSizes.begin(), kSizes.end(),
                                                 [value](const Keyword& size) { return size.name == value; });
        std::optional<double> size;
        if (keyword != kSizes.end())
            size = m_style.rootFontSize * keyword->factor;
        else if (value == "larger" || value == "smaller")
            size = m_parent.fontSize * (value == "larger" ? 1.2 : 1 / 1.2);
        else if (value == "inherit")
            size = m_parent.fontSize;
        else if (const auto number = cssNumber(value); number && number->unit == "%")
            size = m_parent.fontSize * number->value / 100;
        else
            size = cssLength(value, {m_parent.fontSize, m_style.rootFontSize});
        if (size && *size > 0)
            m_style.fontSize = std::min(*size, kGreatestFontSize);
    }

    void setWeight(std::string_view value)
    {
        if (value == "inherit")
            m_style.weight = m_parent.weight;
        else if (value == "normal" || value == "lighter")
            m_style.weight = HTMLFont::kRegularWeight;
        else if (value == "bold" || value == "bolder")
            m_style.weight = HTMLFont::kBoldWeight;
        else if (const auto number = cssNumber(value); number && number->unit.empty() && number->value >= 1)
            m_style.weight = static_cast<int>(std::min(number->value, 900.0));
    }

    /// Style and weight, the size with perhaps a line height, and the families.
    void setFontShorthand(std::string_view value)
    {
        m_style.isItalic = value == "inherit" && m_parent.isItalic;
        m_style.weight = value == "inherit" ? m_parent.weight : HTMLFont::kRegularWeight;
        if (value == "inherit") {
            m_style.family = m_parent.family;
            m_style.fontSize = m_parent.fontSize;
            return;
        }
        for (const auto word : cssWords(value)) {
            const auto size = word.substr(0, word.find('/'));
            const bool isSize = m_style.length(size).has_value() || size.ends_with('%');
            if (isSize && size != "0") {
                setSize(size);
                setFamily(value.substr(static_cast<std::size_t>(word.data() - value.data()) + word.size()));
                return;
            }
            if (word == "italic" || word == "oblique")
                m_style.isItalic = true;
            else
                setWeight(word);
        }
    }

    const HTMLComputedStyle& m_parent;
    HTMLComputedStyle& m_style;
};

} // namespace

bool setFontProperty(std::string_view property, std::string_view value, const HTMLComputedStyle& parent,
                     HTMLComputedStyle& style)
{
    return FontProperties(parent, style).set(property, value);
}
