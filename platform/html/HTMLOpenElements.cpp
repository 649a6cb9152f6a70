#include "platform/html/HTMLOpenElements.h"

#include "platform/html/HTMLElementKinds.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t kMostReopened = 8;

/// What the style has from the formatting that ended is what the style around that is.
void undo(const HTMLComputedStyle& ended, const HTMLComputedStyle& outer, HTMLComputedStyle& style)
{
    const auto undoOne = [&](auto member) {
        if (style.*member == ended.*member)
            style.*member = outer.*member;
    };
    undoOne(&HTMLComputedStyle::weight);
    undoOne(&HTMLComputedStyle::isItalic);
    undoOne(&HTMLComputedStyle::isUnderlined);
    undoOne(&HTMLComputedStyle::isStruck);
    undoOne(&HTMLComputedStyle::color);
    undoOne(&HTMLComputedStyle::family);
    undoOne(&HTMLComputedStyle::fontSize);
}

} // namespace

void HTMLOpenElements::push(HTMLOpenElement element)
{
    ++m_countOfName[element.name];
    m_elements.push_back(std::move(element));
}

void HTMLOpenElements::pop()
{
    --m_countOfName[top().name];
    m_elements.pop_back();
}

std::size_t HTMLOpenElements::placeOf(std::string_view name, std::span<const std::string_view> limits,
                                      std::size_t end) const
{
    const auto count = m_countOfName.find(std::string(name));
    if (count == m_countOfName.end() || count->second == 0)
        return HTMLOpenElement::kNone;
    for (auto place = std::min(end, m_elements.size()) - 1; place > 0; --place) {
        if (m_elements[place].name == name)
            return place;
        if (isOneOf(m_elements[place].name, limits))
            return HTMLOpenElement::kNone;
    }
    return HTMLOpenElement::kNone;
}

bool HTMLOpenElements::holdsBlock(std::size_t place) const
{
    return std::any_of(m_elements.begin() + static_cast<std::ptrdiff_t>(place) + 1, m_elements.end(),
                       [](const HTMLOpenElement& element) { return element.isBlock; });
}

void HTMLOpenElements::endFormatting(std::size_t place)
{
    const auto outer = m_elements[place - 1].style;
    const auto ended = m_elements[place].style;
    const auto meaning = m_elements[place - 1].meaning;
    --m_countOfName[std::exchange(m_elements[place].name, {})];
    ++m_countOfName[{}];
    for (auto inner = place; inner < m_elements.size(); ++inner) {
        m_elements[inner].meaning = meaning;
        undo(ended, outer, m_elements[inner].style);
    }
}

std::vector<HTMLOpenElement> HTMLOpenElements::formattingWithin(std::size_t place) const
{
    std::vector<HTMLOpenElement> found;
    for (auto inner = place + 1; inner < m_elements.size() && found.size() < kMostReopened; ++inner) {
        if (isFormattingElement(m_elements[inner].name))
            found.push_back(m_elements[inner]);
    }
    return found;
}
