#include "platform/html/CSSTextProperties.h"

#include "platform/html/CSSColor.h"
#include "platform/html/CSSValues.h"
#include "platform/html/HTMLBlockStyle.h"
#include "platform/html/HTMLListMarkers.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <unordered_map>

namespace {

class TextProperties {
public:
    TextProperties(const HTMLComputedStyle& parent, HTMLComputedStyle& style)
        : m_parent(parent)
        , m_style(style)
    {
    }

    bool set(std::string_view property, std::string_view value)
    {
        using Setter = void (TextProperties::*)(std::string_view);
        static const std::unordered_map<std::string_view, Setter> setters{
            {"visibility", &TextProperties::setVisibility},
            {"color", &TextProperties::setColor},
            {"text-align", &TextProperties::setAlignment},
            {"direction", &TextProperties::setDirection},
            {"text-decoration", &TextProperties::setDecoration},
            {"text-decoration-line", &TextProperties::setDecoration},
            {"text-decoration-style", &TextProperties::setLineStyle},
            {"text-decoration-thickness", &TextProperties::setLineThickness},
            {"text-decoration-color", &TextProperties::setLineColor},
            {"vertical-align", &TextProperties::setVerticalAlignment},
            {"letter-spacing", &TextProperties::setKern},
            {"line-height", &TextProperties::setLineHeight},
            {"text-indent", &TextProperties::setTextIndent},
            {"text-shadow", &TextProperties::setShadow},
            {"white-space", &TextProperties::setWhiteSpace},
            {"list-style", &TextProperties::setListStyle},
            {"list-style-type", &TextProperties::setListStyle},
        };
        const auto found = setters.find(property);
        if (found == setters.end())
            return false;
        std::invoke(found->second, *this, value);
        return true;
    }

private:
    void setVisibility(std::string_view value)
    {
        m_style.isHidden = value == "hidden" || value == "collapse";
    }

    void setColor(std::string_view value)
    {
        if (value == "inherit" || value == "currentcolor")
            m_style.color = m_parent.color;
        else if (auto color = nsColorFromCSS(value))
            m_style.color = std::move(color);
    }

    void setAlignment(std::string_view value)
    {
        if (value == "left")
            m_style.alignment = NSTextAlignment::Left;
        else if (value == "right" || value == "end")
            m_style.alignment = NSTextAlignment::Right;
        else if (value.ends_with("center") || value == "middle")
            m_style.alignment = NSTextAlignment::Center;
        else if (value == "justify")
            m_style.alignment = NSTextAlignment::Justified;
        else if (value == "start")
            m_style.alignment = NSTextAlignment::Natural;
    }

    void setDirection(std::string_view value)
    {
        if (value == "rtl" || value == "ltr")
            m_style.direction
                = value == "rtl" ? NSWritingDirection::RightToLeft : NSWritingDirection::LeftToRight;
    }

    void setDecoration(std::string_view value)
    {
        m_style.isUnderlined = false;
        m_style.isStruck = false;
        for (const auto word : cssWords(value)) {
            m_style.isUnderlined = m_style.isUnderlined || word == "underline";
            m_style.isStruck = m_style.isStruck || word == "line-through";
            setLineStyle(word);
        }
        if (auto color = firstColorInCSS(value))
            m_style.lineColor = std::move(color);
    }

    void setLineStyle(std::string_view value)
    {
        if (value == "solid")
            m_style.lineStyle = 1;
        else if (value == "double")
            m_style.lineStyle = 0x9;
        else if (value == "dotted")
            m_style.lineStyle = 0x101;
        else if (value == "dashed")
            m_style.lineStyle = 0x201;
    }

    void setLineThickness(std::string_view value)
    {
        const auto thickness = m_style.length(value);
        if (thickness && *thickness >= 2 && m_style.lineStyle == 1)
            m_style.lineStyle = 2;
    }

    void setLineColor(std::string_view value) { m_style.lineColor = nsColorFromCSS(value); }

    void setVerticalAlignment(std::string_view value)
    {
        if (value == "super")
            m_style.superscript = std::max<std::int64_t>(m_parent.superscript, 0) + 1;
        else if (value == "sub")
            m_style.superscript = std::min<std::int64_t>(m_parent.superscript, 0) - 1;
        else if (value == "middle")
            m_style.box.verticalAlignment = NSTextBlockVerticalAlignment::Middle;
        else if (value == "bottom")
            m_style.box.verticalAlignment = NSTextBlockVerticalAlignment::Bottom;
        else if (value == "top")
            m_style.box.verticalAlignment = NSTextBlockVerticalAlignment::Top;
        else if (const auto offset = m_style.length(value))
            m_style.baselineOffset = *offset;
    }

    void setKern(std::string_view value) { m_style.kern = m_style.length(value).value_or(0); }

    void setTextIndent(std::string_view value)
    {
        if (const auto indent = m_style.length(value))
            m_style.textIndent = *indent;
    }

    void setLineHeight(std::string_view value)
    {
        m_style.lineHeightMultiple = 0;
        m_style.fixedLineHeight = 0;
        m_style.lineSpacing = 0;
        if (value.starts_with("calc("))
            return setLineHeightWithSpacing(value);
        const auto number = cssNumber(value);
        if (!number || number->value <= 0)
            return;
        if (number->unit.empty() || number->unit == "em")
            setMultiple(number->value);
        else if (number->unit == "%")
            setMultiple(number->value / 100);
        else
            m_style.fixedLineHeight = m_style.length(value).value_or(0);
    }

    void setMultiple(double heightOfSize)
    {
        const auto multiple = heightOfSize / kNaturalLineHeight;
        m_style.lineHeightMultiple = std::abs(multiple - 1) < 0.001 ? 0 : std::round(multiple * 1000) / 1000;
    }

    /// The natural height with so much between lines, as pages are written here.
    void setLineHeightWithSpacing(std::string_view value)
    {
        const auto words = cssWords(value.substr(5, value.size() - 6));
        const auto height = words.size() == 3 && words[1] == "+" ? cssNumber(words[0]) : std::nullopt;
        if (!height || height->unit != "em")
            return;
        setMultiple(height->value);
        m_style.lineSpacing = m_style.length(words[2]).value_or(0);
    }

    void setShadow(std::string_view value)
    {
        const auto color = firstColorInCSS(value);
        std::vector<double> lengths;
        for (const auto word : cssWords(value)) {
            if (const auto number = m_style.length(word))
                lengths.push_back(*number);
        }
        if (!color || lengths.size() < 2)
            m_style.shadow = nullptr;
        else
            m_style.shadow = std::make_shared<const NSShadow>(NSMakeSize(lengths[0], -lengths[1]),
                                                              lengths.size() > 2 ? lengths[2] : 0, color);
    }

    void setWhiteSpace(std::string_view value)
    {
        if (value.starts_with("pre"))
            m_style.whiteSpace = value == "pre-line" ? HTMLWhiteSpace::KeepingLines : HTMLWhiteSpace::Kept;
        else
            m_style.whiteSpace = HTMLWhiteSpace::Collapsed;
    }

    void setListStyle(std::string_view value)
    {
        for (const auto word : cssWords(value)) {
            if (const auto format = markerFormatForListStyleType(word))
                m_style.listFormat = std::u16string(*format);
        }
    }

    const HTMLComputedStyle& m_parent;
    HTMLComputedStyle& m_style;
};

} // namespace

bool setTextProperty(std::string_view property, std::string_view value, const HTMLComputedStyle& parent,
                     HTMLComputedStyle& style)
{
    return TextProperties(parent, style).set(property, value);
}
