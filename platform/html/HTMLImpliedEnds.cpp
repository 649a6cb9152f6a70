#include "platform/html/HTMLImpliedEnds.h"

#include "platform/html/HTMLElementKinds.h"

#include <array>
#include <initializer_list>

namespace {

using Name = std::string_view;

constexpr std::size_t kNone = HTMLOpenElement::kNone;
constexpr std::array<Name, 4> kScopes{"td", "th", "table", "caption"};
constexpr std::array<Name, 1> kTableScope{"table"};
constexpr std::array<Name, 6> kListScopes{"ul", "ol", "menu", "dir", "td", "th"};
constexpr std::array<Name, 3> kDefinitionScopes{"dl", "td", "th"};

/// The outermost of the elements of these names, each looked for outside of the one before.
std::size_t outermost(std::initializer_list<Name> names, std::span<const Name> limits,
                      const HTMLOpenElements& elements)
{
    auto found = kNone;
    for (const auto name : names) {
        const auto place = elements.placeOf(name, limits, found);
        found = place == kNone ? found : place;
    }
    return found;
}

} // namespace

std::size_t elementEndedByStart(std::string_view name, const HTMLOpenElements& elements)
{
    if (isCellElement(name))
        return outermost({"td", "th"}, kTableScope, elements);
    if (name == "tr")
        return outermost({"td", "th", "tr"}, kTableScope, elements);
    if (isTablePart(name))
        return outermost({"td", "th", "tr", "tbody", "thead", "tfoot"}, kTableScope, elements);
    if (name == "li")
        return elements.placeOf("li", kListScopes);
    if (name == "dd" || name == "dt")
        return outermost({"dd", "dt"}, kDefinitionScopes, elements);
    const bool isNeverInItself = name == "a" || name == "button" || name == "nobr" || name == "option";
    return isNeverInItself ? elements.placeOf(name, kScopes) : kNone;
}

std::size_t elementEndedByEnd(std::string_view name, const HTMLOpenElements& elements)
{
    if (name == "table")
        return elements.placeOf(name, {});
    return isTablePart(name) ? elements.placeOf(name, kTableScope) : elements.placeOf(name, kScopes);
}

std::size_t openParagraph(const HTMLOpenElements& elements)
{
    return elements.placeOf("p", kScopes);
}
