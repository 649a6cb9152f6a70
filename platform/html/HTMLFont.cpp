#include "platform/html/HTMLFont.h"

#include "platform/foundation/Unicode.h"
#include "platform/html/CSSValues.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFontManager.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

namespace {

/// The font of a page's body only decides how short the page is, for which its beginning says enough.
constexpr std::size_t kMostRunsAsked = 4096;

/// By the font manager's weight, from 0.
constexpr std::array<int, 16> kWeights{100, 100, 100, 200, 300, 400, 500, 500,
                                       600, 700, 800, 800, 900, 900, 900, 900};

std::string_view genericFamilyOf(const NSFont& font)
{
    constexpr std::array<std::u16string_view, 8> kSerifFamilies{u"Times",    u"Times New Roman", u"Georgia",
                                                                u"Palatino", u"Baskerville",     u"Garamond",
                                                                u"Cambria",  u"New York"};
    if (font.isFixedPitch())
        return "monospace";
    const bool hasSerifs
        = std::find(kSerifFamilies.begin(), kSerifFamilies.end(), font.familyName()) != kSerifFamilies.end();
    return hasSerifs ? "serif" : "sans-serif";
}

std::string quoted(std::u16string_view family)
{
    std::string text = "\"";
    for (const char byte : UTF8FromUTF16(family)) {
        // What could end the string, or the style element, is not part of any family's name.
        const bool isKept
            = static_cast<unsigned char>(byte) >= 0x20 && byte != '"' && byte != '\\' && byte != '<';
        if (isKept)
            text += byte;
    }
    return text + '"';
}

} // namespace

HTMLFont HTMLFont::fontOf(const NSFont& font)
{
    const auto weight = std::clamp(NSFontManager::sharedFontManager().weightOfFont(font), 0, 15);
    HTMLFont made;
    made.family = font.familyName();
    made.size = font.pointSize();
    made.weight = kWeights.at(static_cast<std::size_t>(weight));
    made.isItalic = (font.symbolicTraits() & NSFontItalicTrait) != 0;
    made.genericFamily = genericFamilyOf(font);
    return made;
}

bool operator<(const HTMLFont& one, const HTMLFont& other)
{
    return std::tie(one.family, one.size, one.weight, one.isItalic)
        < std::tie(other.family, other.size, other.weight, other.isItalic);
}

std::string HTMLFont::families() const
{
    // The system's font has a name that only the system knows.
    if (family.starts_with(u'.'))
        return "-apple-system,system-ui,sans-serif";
    return fmt::format("{},{}", quoted(family), genericFamily);
}

void HTMLFont::addDifferences(const HTMLFont& base, HTMLDeclarations& declarations) const
{
    if (family != base.family)
        declarations.add("font-family", families());
    if (size != base.size)
        declarations.add("font-size", cssPixels(size));
    if (weight != base.weight)
        declarations.add("font-weight", fmt::format("{}", weight));
    if (isItalic != base.isItalic)
        declarations.add("font-style", isItalic ? "italic" : "normal");
}

std::string HTMLFont::shorthand() const
{
    return fmt::format("{}{}{} {}", isItalic ? "italic " : "",
                       weight == kRegularWeight ? std::string() : fmt::format("{} ", weight), cssPixels(size),
                       families());
}

std::optional<HTMLFont> mostUsedFont(const NSAttributedString& text, NSRange range)
{
    std::map<HTMLFont, NSUInteger> lengths;
    std::size_t count = 0;
    const auto add = [&](const NSAny& value, NSRange run, bool& stop) {
        if (const auto font = value.object<NSFont>())
            lengths[HTMLFont::fontOf(*font)] += run.length;
        stop = ++count == kMostRunsAsked;
    };
    text.enumerateAttribute(NSFontAttributeName, range, {.longestEffectiveRangeNotRequired = true}, add);
    const auto longest
        = std::max_element(lengths.begin(), lengths.end(),
                           [](const auto& one, const auto& other) { return one.second < other.second; });
    return longest == lengths.end() ? std::nullopt : std::optional(longest->first);
}

NSColor::Ref mostUsedColor(const NSAttributedString& text, NSRange range)
{
    // Texts have few colours. Those beyond the bound are not looked for among each other.
    constexpr std::size_t kMostColors = 64;
    std::vector<std::pair<NSColor::Ref, NSUInteger>> lengths;
    bool isComplete = true;
    text.enumerateAttribute(
        NSForegroundColorAttributeName, range, {}, [&](const NSAny& value, NSRange run, bool& stop) {
            const auto color = value.object<NSColor>();
            isComplete = color && !isDefaultHTMLColor(*color);
            stop = !isComplete;
            if (stop)
                return;
            const auto known = std::find_if(lengths.begin(), lengths.end(), [&color](const auto& entry) {
                return entry.first->isEqual(*color);
            });
            if (known != lengths.end())
                known->second += run.length;
            else if (lengths.size() < kMostColors)
                lengths.emplace_back(color, run.length);
        });
    if (!isComplete || lengths.empty())
        return nullptr;
    return std::max_element(lengths.begin(), lengths.end(),
                            [](const auto& one, const auto& other) { return one.second < other.second; })
        ->first;
}
