#include "platform/html/HTMLHighlights.h"

#include "platform/text/NSAttributeNames.h"

#include <algorithm>
#include <array>

namespace {

/// The attribute of a note's own highlights: an integer from 1 to 5, 0 for none. It belongs to the notes
/// above this layer; here it is only recognised.
constexpr std::u16string_view kNoteHighlightAttributeName = u"CVLHighlightTextAttribute";

struct Scheme {
    std::string_view className;
    std::u16string_view name;
};

/// In the order of the notes' highlight types, from 1.
constexpr std::array kSchemes{
    Scheme{"orange", NSTextHighlightColorSchemeOrange}, Scheme{"mint", NSTextHighlightColorSchemeMint},
    Scheme{"blue", NSTextHighlightColorSchemeBlue},     Scheme{"pink", NSTextHighlightColorSchemePink},
    Scheme{"purple", NSTextHighlightColorSchemePurple},
};

const NSAny* valueOf(const NSAttributes& attributes, std::u16string_view name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? nullptr : &found->second;
}

std::string_view classOfScheme(std::u16string_view name)
{
    const auto* const found = std::find_if(kSchemes.begin(), kSchemes.end(),
                                           [name](const Scheme& scheme) { return scheme.name == name; });
    return found == kSchemes.end() ? std::string_view() : found->className;
}

} // namespace

std::optional<std::string_view> highlightClass(const NSAttributes& attributes)
{
    const auto* const type = valueOf(attributes, kNoteHighlightAttributeName);
    if (type && type->boolValue()) {
        const auto number = type->integerValue();
        const bool isKnown = number >= 1 && number <= static_cast<std::int64_t>(kSchemes.size());
        return isKnown ? kSchemes.at(static_cast<std::size_t>(number - 1)).className : std::string_view();
    }
    const auto* const style = valueOf(attributes, NSTextHighlightStyleAttributeName);
    if (!style || !style->string() || *style->string() != NSTextHighlightStyleDefault)
        return std::nullopt;
    const auto* const scheme = valueOf(attributes, NSTextHighlightColorSchemeAttributeName);
    return scheme && scheme->string() ? classOfScheme(*scheme->string()) : std::string_view();
}

std::u16string_view highlightColorSchemeOfClass(std::string_view name)
{
    const auto* const found = std::find_if(kSchemes.begin(), kSchemes.end(),
                                           [name](const Scheme& scheme) { return scheme.className == name; });
    return found == kSchemes.end() ? NSTextHighlightColorSchemeDefault : found->name;
}

std::string_view highlightRules()
{
    // Grounds that black and white text can both be read on.
    return "mark{background:rgba(255,204,0,.35);color:inherit}\n"
           "mark.orange{background:rgba(255,149,0,.3)}\n"
           "mark.mint{background:rgba(0,199,190,.3)}\n"
           "mark.blue{background:rgba(0,122,255,.3)}\n"
           "mark.pink{background:rgba(255,45,85,.3)}\n"
           "mark.purple{background:rgba(175,82,222,.3)}";
}
