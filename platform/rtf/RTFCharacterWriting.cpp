#include "platform/rtf/RTFCharacterWriting.h"

#include "platform/rtf/RTFHighlights.h"
#include "platform/rtf/RTFUnderlines.h"
#include "platform/rtf/RTFUnits.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFontManager.h"
#include "platform/text/NSShadow.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <unordered_map>

namespace {

constexpr std::int32_t kHalfPoint = 500;

/// What formats are made with.
struct Tables {
    RTFFontWriting& fonts;
    RTFColorWriting& colors;
};

using Format = RTFCharacterFormat;

/// Sets what one attribute says.
struct AttributeSetter {
    std::u16string_view name;
    void (*set)(Format& format, const NSAny& value, Tables& tables);
};

std::int32_t wholeValue(const NSAny& value)
{
    return wholeNumber(static_cast<double>(value.integerValue()));
}

std::int32_t scaledValue(const NSAny& value, double scale)
{
    return wholeNumber(value.doubleValue() * scale);
}

std::int32_t colorNumber(const NSAny& value, Tables& tables)
{
    return tables.colors.numberOf(value.object<NSColor>());
}

void setFont(Format& format, const NSAny& value, Tables& tables)
{
    const auto font = value.object<NSFont>();
    if (!font)
        return;
    format.font = tables.fonts.numberOf(*font);
    format.size = wholeNumber(font->pointSize() * 1000);
    format.isBold = (font->symbolicTraits() & NSFontBoldTrait) != 0;
    format.isItalic = (font->symbolicTraits() & NSFontItalicTrait) != 0;
}

void setShadow(Format& format, const NSAny& value, Tables& tables)
{
    const auto shadow = value.object<NSShadow>();
    if (!shadow || !shadow->shadowColor())
        return;
    const auto& color = shadow->shadowColor();
    format.shadow = {.isOn = true,
                     .x = twipsFromPoints(shadow->shadowOffset().width),
                     .y = twipsFromPoints(shadow->shadowOffset().height),
                     .blur = twipsFromPoints(shadow->shadowBlurRadius()),
                     .opacity = wholeNumber(color->alphaComponent() * 255),
                     .color = tables.colors.numberOf(color->colorWithAlphaComponent(1))};
}

void setHighlight(Format& format, const NSAny& value, Tables& /*tables*/)
{
    format.isHighlighted = value.string() && *value.string() == NSTextHighlightStyleDefault;
}

void setHighlightScheme(Format& format, const NSAny& value, Tables& /*tables*/)
{
    if (value.string())
        format.highlightScheme = highlightSchemeNumber(*value.string());
}

template <std::int32_t Format::*member> void setColor(Format& format, const NSAny& value, Tables& tables)
{
    format.*member = colorNumber(value, tables);
}

template <std::int32_t Format::*member> void setWhole(Format& format, const NSAny& value, Tables& /*tables*/)
{
    format.*member = wholeValue(value);
}

constexpr std::array kSetters{
    AttributeSetter{NSFontAttributeName, setFont},
    AttributeSetter{NSForegroundColorAttributeName, setColor<&Format::color>},
    AttributeSetter{NSBackgroundColorAttributeName, setColor<&Format::background>},
    AttributeSetter{NSUnderlineStyleAttributeName, setWhole<&Format::underline>},
    AttributeSetter{NSUnderlineColorAttributeName, setColor<&Format::underlineColor>},
    AttributeSetter{NSStrikethroughStyleAttributeName, setWhole<&Format::strikethrough>},
    AttributeSetter{NSStrikethroughColorAttributeName, setColor<&Format::strikethroughColor>},
    AttributeSetter{NSSuperscriptAttributeName, setWhole<&Format::superscript>},
    AttributeSetter{NSLigatureAttributeName, setWhole<&Format::ligature>},
    AttributeSetter{NSStrokeColorAttributeName, setColor<&Format::strokeColor>},
    AttributeSetter{NSShadowAttributeName, setShadow},
    AttributeSetter{NSTextHighlightStyleAttributeName, setHighlight},
    AttributeSetter{NSTextHighlightColorSchemeAttributeName, setHighlightScheme},
    AttributeSetter{NSBaselineOffsetAttributeName,
                    [](Format& f, const NSAny& v, Tables& /*t*/) { f.baseline = scaledValue(v, 2); }},
    AttributeSetter{NSKernAttributeName,
                    [](Format& f, const NSAny& v, Tables& /*t*/) { f.kern = scaledValue(v, kTwipsOfPoint); }},
    AttributeSetter{
        NSStrokeWidthAttributeName,
        [](Format& f, const NSAny& v, Tables& /*t*/) { f.strokeWidth = scaledValue(v, kStrokeUnits); }},
    AttributeSetter{
        NSExpansionAttributeName,
        [](Format& f, const NSAny& v, Tables& /*t*/) { f.expansion = scaledValue(v, kShapeUnits); }},
    AttributeSetter{
        NSObliquenessAttributeName,
        [](Format& f, const NSAny& v, Tables& /*t*/) { f.obliqueness = scaledValue(v, kShapeUnits); }},
};

using Setters = std::unordered_map<std::u16string_view, const AttributeSetter*>;

const Setters& setters()
{
    static const Setters byName = [] {
        Setters made;
        for (const auto& setter : kSetters)
            made.emplace(setter.name, &setter);
        return made;
    }();
    return byName;
}

/// Writes the words of one format that differ from another's.
class ChangeWriter {
public:
    ChangeWriter(RTFOutput& output, const RTFCharacterFormat& from, const RTFCharacterFormat& to)
        : m_output(output)
        , m_from(from)
        , m_to(to)
    {
    }

    void write()
    {
        writeFont();
        writeColors();
        writeUnderline();
        writeStrikethrough();
        writePosition();
        writeKern();
        writeShadow();
        writeStroke();
        writeShape();
        writeHighlight();
    }

private:
    [[nodiscard]] bool differs(auto RTFCharacterFormat::*member) const
    {
        return m_from.*member != m_to.*member;
    }

    void writeNumber(std::string_view word, std::int32_t RTFCharacterFormat::*member)
    {
        if (!differs(member))
            return;
        m_output.word(word, m_to.*member);
        m_output.blank();
    }

    void writeSwitch(std::string_view word, bool RTFCharacterFormat::*member)
    {
        if (!differs(member))
            return;
        if (m_to.*member)
            m_output.word(word);
        else
            m_output.word(word, 0);
    }

    /// The platform begins a line wherever the font changes.
    void writeFont()
    {
        const bool isOtherFont = differs(&RTFCharacterFormat::font);
        const bool isOtherSize = differs(&RTFCharacterFormat::size);
        const bool isOtherFace
            = differs(&RTFCharacterFormat::isBold) || differs(&RTFCharacterFormat::isItalic);
        if (!isOtherFont && !isOtherSize && !isOtherFace)
            return;
        m_output.lineBreak();
        if (isOtherFont)
            m_output.word("f", m_to.font.value_or(0));
        writeSwitch("i", &RTFCharacterFormat::isItalic);
        writeSwitch("b", &RTFCharacterFormat::isBold);
        if (isOtherSize)
            m_output.word("fs", m_to.size / kHalfPoint);
        if (isOtherSize && m_to.size % kHalfPoint != 0)
            m_output.word("fsmilli", m_to.size);
        m_output.blank();
    }

    void writeColors()
    {
        writeNumber("cf", &RTFCharacterFormat::color);
        if (!differs(&RTFCharacterFormat::background))
            return;
        // White, which is number 1, is no ground.
        m_output.word("cb", m_to.background == 0 ? 1 : m_to.background);
        m_output.blank();
    }

    void writeUnderline()
    {
        const bool isOtherStyle = differs(&RTFCharacterFormat::underline);
        if (isOtherStyle && m_to.underline == 0)
            m_output.word("ulnone");
        else if (isOtherStyle)
            writeUnderlineStyle();
        m_output.blank();
        if ((isOtherStyle && m_to.underline != 0) || differs(&RTFCharacterFormat::underlineColor))
            m_output.word("ulc", m_to.underlineColor);
        m_output.blank();
    }

    void writeUnderlineStyle()
    {
        const auto* const named
            = std::find_if(kRTFUnderlines.begin(), kRTFUnderlines.end(),
                           [this](const RTFUnderline& each) { return each.style == m_to.underline; });
        if (named != kRTFUnderlines.end())
            m_output.word(named->word);
        else
            m_output.word("ulstyle", m_to.underline);
    }

    void writeStrikethrough()
    {
        constexpr std::int32_t kDouble = 9;
        const auto style = m_to.strikethrough;
        const bool isOtherStyle = differs(&RTFCharacterFormat::strikethrough);
        if (isOtherStyle && (style == 0 || m_from.strikethrough != 0))
            m_output.raw("\\strike0\\striked0 ");
        if (isOtherStyle && style == 1)
            m_output.word("strike");
        else if (isOtherStyle && style == kDouble)
            m_output.word("striked", 1);
        else if (isOtherStyle && style != 0)
            m_output.word("strikestyle", style);
        m_output.blank();
        if ((isOtherStyle && style != 0) || differs(&RTFCharacterFormat::strikethroughColor))
            m_output.word("strikec", m_to.strikethroughColor);
        m_output.blank();
    }

    void writePosition()
    {
        if (differs(&RTFCharacterFormat::baseline))
            m_output.word(m_to.baseline < 0 ? "dn" : "up", std::abs(m_to.baseline));
        m_output.blank();
        if (!differs(&RTFCharacterFormat::superscript))
            return;
        const auto levels = std::abs(m_to.superscript);
        const std::string_view word = m_to.superscript > 0 ? "super" : "sub";
        if (levels == 0)
            m_output.word("nosupersub");
        else if (levels == 1)
            m_output.word(word);
        else
            m_output.word(word, levels);
        m_output.blank();
    }

    void writeKern()
    {
        if (!differs(&RTFCharacterFormat::kern))
            return;
        constexpr double kQuarterPointsOfTwip = 4 / kTwipsOfPoint;
        if (!m_to.kern) {
            m_output.raw("\\kerning1\\expnd0\\expndtw0 ");
        } else if (*m_to.kern == 0) {
            m_output.raw("\\expnd0\\expndtw0\\kerning0\n");
        } else {
            m_output.word("kerning", 1);
            m_output.word("expnd", wholeNumber(*m_to.kern * kQuarterPointsOfTwip));
            m_output.word("expndtw", *m_to.kern);
            m_output.lineBreak();
        }
    }

    void writeShadow()
    {
        if (!differs(&RTFCharacterFormat::shadow))
            return;
        const auto& shadow = m_to.shadow;
        if (!shadow.isOn)
            return m_output.raw("\\shad0 ");
        m_output.word("shad");
        m_output.word("shadx", shadow.x);
        m_output.word("shady", shadow.y);
        m_output.word("shadr", shadow.blur);
        m_output.word("shado", shadow.opacity);
        m_output.blank();
        m_output.word("shadc", shadow.color);
        m_output.blank();
    }

    void writeStroke()
    {
        if (!differs(&RTFCharacterFormat::strokeWidth) && !differs(&RTFCharacterFormat::strokeColor))
            return;
        // Only an outline without a filling is one to other readers.
        if (m_to.strokeWidth > 0)
            m_output.word("outl");
        else
            m_output.word("outl", 0);
        m_output.word("strokewidth", m_to.strokeWidth);
        m_output.blank();
        m_output.word("strokec", m_to.strokeColor);
        m_output.blank();
    }

    void writeShape()
    {
        writeNumber("expansion", &RTFCharacterFormat::expansion);
        writeNumber("obliqueness", &RTFCharacterFormat::obliqueness);
        writeNumber("CocoaLigature", &RTFCharacterFormat::ligature);
    }

    void writeHighlight()
    {
        if (!differs(&RTFCharacterFormat::isHighlighted) && !differs(&RTFCharacterFormat::highlightScheme))
            return;
        m_output.word("AppleHighlight", m_to.isHighlighted ? -1 : 0);
        m_output.blank();
        m_output.word("AppleHilightClrSch", m_to.highlightScheme);
        m_output.blank();
    }

    RTFOutput& m_output;
    const RTFCharacterFormat& m_from;
    const RTFCharacterFormat& m_to;
};

} // namespace

RTFCharacterFormat characterFormatOf(const NSAttributes& attributes, RTFFontWriting& fonts,
                                     RTFColorWriting& colors)
{
    static const auto standard = NSFont::userFontOfSize(NSFont::kDefaultSize);
    RTFCharacterFormat format;
    Tables tables{fonts, colors};
    for (const auto& [name, value] : attributes) {
        const auto setter = setters().find(name);
        if (setter != setters().end())
            setter->second->set(format, value, tables);
    }
    if (!format.font)
        format.font = fonts.numberOf(*standard);
    // A scheme colours nothing that is not highlighted.
    if (!format.isHighlighted)
        format.highlightScheme = 0;
    return format;
}

void writeCharacterChange(RTFOutput& output, const RTFCharacterFormat& from, const RTFCharacterFormat& to)
{
    if (from != to)
        ChangeWriter(output, from, to).write();
}
