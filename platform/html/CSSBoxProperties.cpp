#include "platform/html/CSSBoxProperties.h"

#include "platform/html/CSSColor.h"
#include "platform/html/CSSValues.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <unordered_map>

namespace {

bool isVisible(const NSColor::Ref& color)
{
    return color && color->alphaComponent() > 0;
}

class BoxProperties {
public:
    explicit BoxProperties(HTMLComputedStyle& style)
        : m_style(style)
    {
    }

    void set(std::string_view property, std::string_view value)
    {
        using Setter = void (BoxProperties::*)(std::string_view);
        static const std::unordered_map<std::string_view, Setter> setters{
            {"display", &BoxProperties::setDisplay},
            {"background", &BoxProperties::setBackground},
            {"background-color", &BoxProperties::setBackground},
            {"width", &BoxProperties::setWidth},
            {"height", &BoxProperties::setHeight},
            {"border-collapse", &BoxProperties::setBorderCollapse},
        };
        const auto found = setters.find(property);
        if (found == setters.end())
            return setEdges(property, value);
        std::invoke(found->second, *this, value);
    }

private:
    [[nodiscard]] NSTextBlock::Value blockLength(std::string_view value) const
    {
        if (const auto number = cssNumber(value); number && number->unit == "%" && number->value > 0)
            return {number->value, NSTextBlockValueType::Percentage};
        return {std::max(m_style.length(value).value_or(0), 0.0), NSTextBlockValueType::Absolute};
    }

    void setDisplay(std::string_view value)
    {
        if (value == "none")
            m_style.box.display = HTMLDisplay::None;
        else
            m_style.box.display = value.starts_with("inline") || value == "contents" ? HTMLDisplay::Inline
                                                                                     : HTMLDisplay::Block;
    }

    void setBackground(std::string_view value)
    {
        auto color = firstColorInCSS(value);
        m_style.box.background = isVisible(color) ? std::move(color) : nullptr;
    }

    void setWidth(std::string_view value) { m_style.box.width = blockLength(value); }

    void setHeight(std::string_view value) { m_style.box.height = blockLength(value); }

    void setBorderCollapse(std::string_view value) { m_style.box.collapsesBorders = value == "collapse"; }

    /// margin, padding and border, of all edges or of one.
    void setEdges(std::string_view property, std::string_view value)
    {
        if (property.starts_with("margin"))
            setLengths(property.substr(6), value, m_style.box.margin);
        else if (property.starts_with("padding"))
            setLengths(property.substr(7), value, m_style.box.padding);
        else if (property == "border-width")
            setLengths({}, value, m_style.box.borderWidth);
        else if (property == "border-color")
            m_style.box.borderColor.fill(nsColorFromCSS(value));
        else if (property.starts_with("border"))
            setBorder(property.substr(6), value);
    }

    static std::optional<std::size_t> edgeNamed(std::string_view suffix)
    {
        constexpr std::array<std::string_view, 4> kNames{"-left", "-top", "-right", "-bottom"};
        const auto* const found = std::find(kNames.begin(), kNames.end(), suffix);
        if (found == kNames.end())
            return std::nullopt;
        return static_cast<std::size_t>(found - kNames.begin());
    }

    void setLengths(std::string_view suffix, std::string_view value, std::array<double, 4>& edges)
    {
        if (const auto edge = edgeNamed(suffix)) {
            edges.at(*edge) = m_style.length(value).value_or(0);
            return;
        }
        const auto words = cssWords(value);
        if (!suffix.empty() || words.empty() || words.size() > 4)
            return;
        // Top, right, bottom, left; what is missing is as its opposite.
        const auto word = [&](std::size_t index, std::size_t opposite) {
            const auto present = index < words.size() ? index : opposite < words.size() ? opposite : 0;
            return m_style.length(words[present]).value_or(0);
        };
        edges = {word(3, 1), word(0, 0), word(1, 0), word(2, 0)};
    }

    void setBorder(std::string_view suffix, std::string_view value)
    {
        const auto edge = edgeNamed(suffix);
        if (!edge && !suffix.empty())
            return;
        double width = 0;
        for (const auto word : cssWords(value)) {
            if (word == "none" || word == "hidden")
                width = 0;
            else if (const auto number = m_style.length(word))
                width = std::max(*number, 0.0);
            else if (width == 0 && !nsColorFromCSS(word))
                width = 1;
        }
        const auto color = firstColorInCSS(value);
        for (std::size_t index = 0; index < 4; ++index) {
            if (edge && *edge != index)
                continue;
            m_style.box.borderWidth.at(index) = width;
            m_style.box.borderColor.at(index) = color;
        }
    }

    HTMLComputedStyle& m_style;
};

} // namespace

void setBoxProperty(std::string_view property, std::string_view value, HTMLComputedStyle& style)
{
    BoxProperties(style).set(property, value);
}
