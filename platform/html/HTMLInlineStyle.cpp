#include "platform/html/HTMLInlineStyle.h"

#include "platform/foundation/Unicode.h"
#include "platform/html/CSSValues.h"
#include "platform/html/HTMLEscaping.h"
#include "platform/html/HTMLHighlights.h"
#include "platform/html/HTMLURLs.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSShadow.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr std::int64_t kMostSuperscriptLevels = 3;

// The parts of an underline style's number.
constexpr std::int64_t kThick = 0x2;
constexpr std::int64_t kDouble = 0x9;
constexpr std::int64_t kWeightBits = 0xF;
constexpr std::int64_t kPatternBits = 0x700;
constexpr std::int64_t kDotPattern = 0x100;

class InlineStyle {
public:
    InlineStyle(const NSAttributes& attributes, const HTMLBaseStyle& base, HTMLStyleSheet& sheet)
        : m_attributes(attributes)
        , m_base(base)
        , m_sheet(sheet)
    {
    }

    std::vector<HTMLInlineElement> elements()
    {
        addLink();
        addHighlight();
        addFont();
        addColors();
        addSpacing();
        addShape();
        addLines();
        // Colours stand outside of underlines, which take the colour of the text that they are declared for.
        addSpan();
        addPlainElements();
        return std::move(m_elements);
    }

private:
    [[nodiscard]] NSAny value(std::u16string_view name) const
    {
        const auto found = m_attributes.find(name);
        return found == m_attributes.end() ? NSAny() : found->second;
    }

    void addLink()
    {
        const auto link = value(NSLinkAttributeName);
        std::u16string target;
        if (const auto* const url = link.url())
            target = UTF16FromUTF8(url->absoluteString());
        else if (const auto* const text = link.string())
            target = *text;
        if (target.empty() || isLinkToBeLeftOut(target))
            return;
        m_elements.push_back({"a", fmt::format(R"( href="{}")", htmlAttributeValue(target))});
    }

    void addHighlight()
    {
        const auto highlight = highlightClass(m_attributes);
        if (!highlight)
            return;
        m_sheet.addRule(highlightRules());
        m_elements.push_back({"mark", htmlClassAttribute(*highlight)});
    }

    void addFont()
    {
        const auto font = value(NSFontAttributeName).object<NSFont>();
        if (!font)
            return;
        auto told = HTMLFont::fontOf(*font);
        m_isBold = told.weight == HTMLFont::kBoldWeight && m_base.font.weight < HTMLFont::kBoldWeight;
        m_isItalic = told.isItalic && !m_base.font.isItalic;
        if (m_isBold)
            told.weight = m_base.font.weight;
        if (m_isItalic)
            told.isItalic = m_base.font.isItalic;
        told.addDifferences(m_base.font, m_style);
    }

    void addColors()
    {
        const auto foreground = value(NSForegroundColorAttributeName).object<NSColor>();
        const bool isBase = foreground && m_base.color && foreground->isEqual(*m_base.color);
        if (foreground && !isBase && !isDefaultHTMLColor(*foreground))
            m_style.add("color", *foreground);
        const auto background = value(NSBackgroundColorAttributeName).object<NSColor>();
        if (background && !isDefaultHTMLColor(*background))
            m_style.add("background", *background);
    }

    void addSpacing()
    {
        if (const auto kern = value(NSKernAttributeName).doubleValue(); isLength(kern))
            m_style.add("letter-spacing", cssPixels(kern));
        if (const auto offset = value(NSBaselineOffsetAttributeName).doubleValue(); isLength(offset))
            m_style.add("vertical-align", cssPixels(offset));
    }

    static bool isLength(double value) { return std::isfinite(value) && std::abs(value) >= 0.001; }

    void addShape()
    {
        if (value(NSObliquenessAttributeName).doubleValue() > 0)
            m_style.add("font-style", "oblique");
        if (const auto ligature = value(NSLigatureAttributeName); ligature && ligature.integerValue() == 0)
            m_style.add("font-variant-ligatures", "none");
        if (const auto width = value(NSStrokeWidthAttributeName).doubleValue(); isLength(width))
            addStroke(std::abs(width));
        const auto shadow = value(NSShadowAttributeName).object<NSShadow>();
        if (shadow && shadow->shadowColor())
            m_style.add("text-shadow",
                        fmt::format("{} {} {} ", cssPixels(shadow->shadowOffset().width),
                                    cssPixels(-shadow->shadowOffset().height),
                                    cssPixels(shadow->shadowBlurRadius())),
                        *shadow->shadowColor());
    }

    void addStroke(double percentOfSize)
    {
        const auto width = fmt::format("{}em", cssNumberText(percentOfSize / 100));
        const auto color = value(NSStrokeColorAttributeName).object<NSColor>();
        if (color)
            m_style.add("-webkit-text-stroke", width + ' ', *color);
        else
            m_style.add("-webkit-text-stroke", width);
    }

    /// What <u> and <s> alone don't say of their lines.
    void addLines()
    {
        const auto underline = value(NSUnderlineStyleAttributeName).integerValue();
        const auto strikethrough = value(NSStrikethroughStyleAttributeName).integerValue();
        m_isUnderlined = underline != 0;
        m_isStruck = strikethrough != 0;
        m_lineStyle = lineStyle(m_isUnderlined ? underline : strikethrough);
        const auto color
            = value(m_isUnderlined ? NSUnderlineColorAttributeName : NSStrikethroughColorAttributeName)
                  .object<NSColor>();
        if (color && (m_isUnderlined || m_isStruck))
            m_lineStyle.add("text-decoration-color", *color);
    }

    static HTMLDeclarations lineStyle(std::int64_t number)
    {
        HTMLDeclarations style;
        if ((number & kWeightBits) == kDouble)
            style.add("text-decoration-style", "double");
        else if ((number & kPatternBits) != 0)
            style.add("text-decoration-style", (number & kPatternBits) == kDotPattern ? "dotted" : "dashed");
        if ((number & kWeightBits) == kThick)
            style.add("text-decoration-thickness", "2px");
        return style;
    }

    void addSpan()
    {
        auto attributes = htmlClassAttribute(m_sheet.classFor(m_style));
        if (const auto* const text = value(NSToolTipAttributeName).string())
            attributes += fmt::format(R"( title="{}")", htmlAttributeValue(*text));
        attributes += direction();
        if (!attributes.empty())
            m_elements.push_back({"span", attributes});
    }

    [[nodiscard]] std::string direction() const
    {
        const auto directions = value(NSWritingDirectionAttributeName);
        if (!directions.array() || directions.array()->empty())
            return {};
        const auto number = directions.array()->front().integerValue();
        return fmt::format(R"( dir="{}")", (number & 1) != 0 ? "rtl" : "ltr");
    }

    void addPlainElements()
    {
        if (m_isBold)
            m_elements.push_back({"b", {}});
        if (m_isItalic)
            m_elements.push_back({"i", {}});
        const auto lineAttribute = htmlClassAttribute(m_sheet.classFor(m_lineStyle));
        if (m_isUnderlined)
            m_elements.push_back({"u", lineAttribute});
        if (m_isStruck)
            m_elements.push_back({"s", m_isUnderlined ? std::string() : lineAttribute});
        const auto level = value(NSSuperscriptAttributeName).integerValue();
        const auto count = std::clamp(level, -kMostSuperscriptLevels, kMostSuperscriptLevels);
        for (std::int64_t index = 0; index < std::abs(count); ++index)
            m_elements.push_back({level > 0 ? "sup" : "sub", {}});
    }

    const NSAttributes& m_attributes;
    const HTMLBaseStyle& m_base;
    HTMLStyleSheet& m_sheet;
    HTMLDeclarations m_style;
    HTMLDeclarations m_lineStyle;
    std::vector<HTMLInlineElement> m_elements;
    bool m_isBold = false;
    bool m_isItalic = false;
    bool m_isUnderlined = false;
    bool m_isStruck = false;
};

} // namespace

std::vector<HTMLInlineElement> inlineElements(const NSAttributes& attributes, const HTMLBaseStyle& base,
                                              HTMLStyleSheet& sheet)
{
    return InlineStyle(attributes, base, sheet).elements();
}
