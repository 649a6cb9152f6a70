#include "platform/html/HTMLComputedStyle.h"

#include "platform/foundation/Unicode.h"
#include "platform/html/CSSColor.h"
#include "platform/html/CSSValues.h"
#include "platform/html/HTMLBlockStyle.h"
#include "platform/html/HTMLFont.h"
#include "platform/html/HTMLListMarkers.h"
#include "platform/text/NSFontManager.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <unordered_map>

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

NSColor::Ref colorOf(std::string_view text)
{
    const auto color = colorFromCSS(text);
    return color ? NSColor::colorWithSRGBRed(color->red, color->green, color->blue, color->alpha) : nullptr;
}

/// The first of the words that is a colour.
NSColor::Ref colorAmong(std::string_view text)
{
    for (const auto word : cssWords(text)) {
        if (auto color = colorOf(word))
            return color;
    }
    return nullptr;
}

bool isVisible(const NSColor::Ref& color)
{
    return color && color->alphaComponent() > 0;
}

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

/// Sets the properties of one element, in two passes: fonts first, because other lengths depend on them.
class StyleMaker {
public:
    StyleMaker(const HTMLComputedStyle& parent, HTMLComputedStyle& style)
        : m_parent(parent)
        , m_style(style)
    {
    }

    bool setFont(std::string_view property, std::string_view value)
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

    void set(std::string_view property, const std::string& value)
    {
        using Setter = void (StyleMaker::*)(std::string_view);
        static const std::unordered_map<std::string_view, Setter> setters{
            {"display", &StyleMaker::setDisplay},
            {"visibility", &StyleMaker::setVisibility},
            {"color", &StyleMaker::setColor},
            {"background", &StyleMaker::setBackground},
            {"background-color", &StyleMaker::setBackground},
            {"text-align", &StyleMaker::setAlignment},
            {"direction", &StyleMaker::setDirection},
            {"text-decoration", &StyleMaker::setDecoration},
            {"text-decoration-line", &StyleMaker::setDecoration},
            {"text-decoration-style", &StyleMaker::setLineStyle},
            {"text-decoration-thickness", &StyleMaker::setLineThickness},
            {"text-decoration-color", &StyleMaker::setLineColor},
            {"vertical-align", &StyleMaker::setVerticalAlignment},
            {"letter-spacing", &StyleMaker::setKern},
            {"line-height", &StyleMaker::setLineHeight},
            {"text-indent", &StyleMaker::setTextIndent},
            {"text-shadow", &StyleMaker::setShadow},
            {"white-space", &StyleMaker::setWhiteSpace},
            {"list-style", &StyleMaker::setListStyle},
            {"list-style-type", &StyleMaker::setListStyle},
            {"width", &StyleMaker::setWidth},
            {"height", &StyleMaker::setHeight},
            {"border-collapse", &StyleMaker::setBorderCollapse},
        };
        const auto found = setters.find(property);
        if (found != setters.end())
            std::invoke(found->second, *this, value);
        else
            setEdges(property, value);
    }

private:
    [[nodiscard]] CSSLengthContext context() const { return {m_style.fontSize, m_style.rootFontSize}; }

    [[nodiscard]] std::optional<double> length(std::string_view text) const
    {
        return cssLength(text, context());
    }

    // Fonts.

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
            const bool isSize = length(size).has_value() || size.ends_with('%');
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

    // Text.

    void setDisplay(std::string_view value)
    {
        if (value == "none")
            m_style.box.display = HTMLDisplay::None;
        else
            m_style.box.display = value.starts_with("inline") || value == "contents" ? HTMLDisplay::Inline
                                                                                     : HTMLDisplay::Block;
    }

    void setVisibility(std::string_view value)
    {
        m_style.isHidden = value == "hidden" || value == "collapse";
    }

    void setColor(std::string_view value)
    {
        if (value == "inherit" || value == "currentcolor")
            m_style.color = m_parent.color;
        else if (auto color = colorOf(value))
            m_style.color = std::move(color);
    }

    void setBackground(std::string_view value)
    {
        auto color = colorAmong(value);
        m_style.box.background = isVisible(color) ? std::move(color) : nullptr;
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
        if (auto color = colorAmong(value))
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
        const auto thickness = length(value);
        if (thickness && *thickness >= 2 && m_style.lineStyle == 1)
            m_style.lineStyle = 2;
    }

    void setLineColor(std::string_view value) { m_style.lineColor = colorOf(value); }

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
        else if (const auto offset = length(value))
            m_style.baselineOffset = *offset;
    }

    void setKern(std::string_view value) { m_style.kern = length(value).value_or(0); }

    void setTextIndent(std::string_view value)
    {
        if (const auto indent = length(value))
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
            m_style.fixedLineHeight = length(value).value_or(0);
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
        m_style.lineSpacing = length(words[2]).value_or(0);
    }

    void setShadow(std::string_view value)
    {
        const auto color = colorAmong(value);
        std::vector<double> lengths;
        for (const auto word : cssWords(value)) {
            if (const auto number = length(word))
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

    // Boxes.

    [[nodiscard]] NSTextBlock::Value blockLength(std::string_view value) const
    {
        if (const auto number = cssNumber(value); number && number->unit == "%" && number->value > 0)
            return {number->value, NSTextBlockValueType::Percentage};
        return {std::max(length(value).value_or(0), 0.0), NSTextBlockValueType::Absolute};
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
            m_style.box.borderColor.fill(colorOf(value));
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
            edges.at(*edge) = length(value).value_or(0);
            return;
        }
        const auto words = cssWords(value);
        if (!suffix.empty() || words.empty() || words.size() > 4)
            return;
        // Top, right, bottom, left; what is missing is as its opposite.
        const auto word = [&](std::size_t index, std::size_t opposite) {
            const auto present = index < words.size() ? index : opposite < words.size() ? opposite : 0;
            return length(words[present]).value_or(0);
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
            else if (const auto number = length(word))
                width = std::max(*number, 0.0);
            else if (width == 0 && !colorOf(word))
                width = 1;
        }
        const auto color = colorAmong(value);
        for (std::size_t index = 0; index < 4; ++index) {
            if (edge && *edge != index)
                continue;
            m_style.box.borderWidth.at(index) = width;
            m_style.box.borderColor.at(index) = color;
        }
    }

    const HTMLComputedStyle& m_parent;
    HTMLComputedStyle& m_style;
};

constexpr std::string_view kDefaultSheet = R"(
address,article,aside,body,caption,center,dd,details,dialog,dir,div,dl,dt,fieldset,figcaption,figure,footer,form,
h1,h2,h3,h4,h5,h6,header,hgroup,html,legend,li,listing,main,menu,nav,ol,optgroup,option,p,plaintext,pre,search,
section,summary,table,tbody,td,textarea,tfoot,th,thead,tr,ul,xmp,hr,blockquote{display:block}
area,audio,canvas,datalist,embed,head,iframe,link,math,meta,noembed,noframes,noscript,param,script,select,style,
svg,template,title,video{display:none}
p,dl,ol,ul,menu,dir,pre,listing,xmp,plaintext,figure{margin:1em 0}
blockquote{margin:1em 40px}
dd{margin-left:40px}
h1{font-size:2em;font-weight:bold;margin:.67em 0}
h2{font-size:1.5em;font-weight:bold;margin:.83em 0}
h3{font-size:1.17em;font-weight:bold;margin:1em 0}
h4{font-weight:bold;margin:1.33em 0}
h5{font-size:.83em;font-weight:bold;margin:1.67em 0}
h6{font-size:.67em;font-weight:bold;margin:2.33em 0}
b,strong,th{font-weight:bold}
i,em,cite,dfn,var,address{font-style:italic}
code,kbd,samp,tt,pre,listing,xmp,plaintext{font-family:monospace}
pre,listing,xmp,plaintext,textarea{white-space:pre}
u,ins{text-decoration:underline}
s,strike,del{text-decoration:line-through}
big{font-size:larger}
small{font-size:smaller}
sub{vertical-align:sub}
sup{vertical-align:super}
center,caption,th{text-align:center}
td,th{vertical-align:middle;padding:1px}
table{white-space:normal}
hr{text-align:center}
)";

void setWhenPresent(CSSDeclarations& declarations, const HTMLTag& tag, std::string_view attribute,
                    std::string_view property)
{
    if (const auto value = tag.attribute(attribute); !value.empty())
        declarations.set(property, value);
}

/// A length without a unit counts pixels.
void setLength(CSSDeclarations& declarations, const HTMLTag& tag, std::string_view name)
{
    const auto number = cssNumber(tag.attribute(name));
    if (number)
        declarations.set(name, cssNumberText(number->value) + (number->unit.empty() ? "px" : number->unit));
}

void addFontAttributes(CSSDeclarations& declarations, const HTMLTag& tag)
{
    constexpr std::array<std::string_view, 7> kFontSizes{"x-small", "small",    "medium",   "large",
                                                         "x-large", "xx-large", "xxx-large"};
    setWhenPresent(declarations, tag, "color", "color");
    setWhenPresent(declarations, tag, "face", "font-family");
    const auto text = tag.attribute("size");
    const auto number = cssNumber(text);
    if (!number)
        return;
    const bool isRelative = text.starts_with('+') || text.starts_with('-');
    const auto size = std::clamp(number->value + (isRelative ? 3 : 0), 1.0, 7.0);
    declarations.set("font-size", kFontSizes.at(static_cast<std::size_t>(size) - 1));
}

} // namespace

bool HTMLBox::hasBorder() const
{
    return std::any_of(borderWidth.begin(), borderWidth.end(), [](double edge) { return edge > 0; });
}

HTMLComputedStyle HTMLComputedStyle::styleWith(const std::vector<const CSSDeclarations*>& cascade) const
{
    auto style = *this;
    style.box = {};
    StyleMaker maker(*this, style);
    for (const auto* declarations : cascade) {
        for (const auto& [property, value] : declarations->all())
            // The names of families keep their case.
            maker.setFont(property,
                          property == "font" || property == "font-family" ? value : inASCIILowerCase(value));
    }
    for (const auto* declarations : cascade) {
        for (const auto& [property, value] : declarations->all())
            maker.set(property, inASCIILowerCase(value));
    }
    return style;
}

const HTMLStyleRules& defaultHTMLRules()
{
    static const auto rules = [] {
        HTMLStyleRules made;
        made.addSheet(kDefaultSheet);
        return made;
    }();
    return rules;
}

CSSDeclarations declarationsOfAttributes(const HTMLTag& tag)
{
    CSSDeclarations declarations;
    if (tag.attributes.empty())
        return declarations;
    if (tag.name == "font")
        addFontAttributes(declarations, tag);
    if (tag.name == "body")
        setWhenPresent(declarations, tag, "text", "color");
    if (tag.name != "img" && tag.name != "table")
        setWhenPresent(declarations, tag, "align", "text-align");
    setWhenPresent(declarations, tag, "bgcolor", "background-color");
    setWhenPresent(declarations, tag, "valign", "vertical-align");
    setWhenPresent(declarations, tag, "dir", "direction");
    if (tag.name == "td" || tag.name == "th" || tag.name == "table") {
        setLength(declarations, tag, "width");
        setLength(declarations, tag, "height");
    }
    // The letters of list types are the one thing in which case counts.
    if (tag.name == "ol" || tag.name == "ul") {
        if (const auto format = markerFormatForListStyleType(tag.attribute("type")))
            declarations.set("list-style-type", listStyleTypeForMarkerFormat(*format));
    }
    return declarations;
}
