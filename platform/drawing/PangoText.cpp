#include "platform/drawing/PangoText.h"

#include "platform/drawing/PangoFonts.h"
#include "platform/foundation/Unicode.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

namespace {

constexpr char32_t kZeroWidthSpace = 0x200B;
/// The part of an underline's number that says which line it is.
constexpr std::int64_t kLineKindMask = 0xff;
constexpr std::int64_t kDoubleLine = 9;
/// Beyond it, letters would leave the page.
constexpr double kLargestShift = 1000;

/// Pango splits what it shapes at the borders of attributes. For every line that it breaks off it copies the
/// rest of such a piece: without this limit, a word of 100,000 letters takes it a minute to break.
constexpr NSUInteger kLongestItem = 500;

/// Every font costs 26 KB.
constexpr std::size_t kMaximumFontsOfLine = 256;
/// For each tab Pango looks at all of the line before it.
constexpr std::size_t kMaximumTabs = 1000;

/// UTF-8, and where each code unit of the UTF-16 text begins in it; one more for the end.
struct Encoded {
    std::string bytes;
    std::vector<guint> offsets;
};

/// Whether it is a code that stands for no character and never will. Cairo takes none as the text of a PDF.
bool isNoncharacter(char32_t codePoint)
{
    return (codePoint & 0xFFFEU) == 0xFFFE || (codePoint >= 0xFDD0 && codePoint <= 0xFDEF);
}

/// Turns each character into one that Pango can take.
class Characters {
public:
    char32_t drawable(char32_t codePoint)
    {
        if (codePoint == u'\t' && ++m_tabCount > kMaximumTabs)
            return u' ';
        if (codePoint == NSAttachmentCharacter)
            return kZeroWidthSpace;
        const auto isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
        const auto isDrawable = codePoint != 0 && !isSurrogate && !isNoncharacter(codePoint);
        return isDrawable ? codePoint : kReplacementCharacter;
    }

private:
    std::size_t m_tabCount = 0;
};

Encoded encoded(std::u16string_view text)
{
    Encoded result;
    Characters characters;
    result.bytes.reserve(text.size());
    result.offsets.reserve(text.size() + 1);
    for (std::size_t i = 0; i < text.size();) {
        const auto codePoint = nextCodePoint(text, i);
        result.offsets.resize(i, static_cast<guint>(result.bytes.size()));
        appendUTF8(result.bytes, characters.drawable(codePoint));
    }
    result.offsets.push_back(static_cast<guint>(result.bytes.size()));
    return result;
}

NSAny valueOf(const NSAttributes& attributes, std::u16string_view name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? NSAny() : found->second;
}

guint16 colorPart(double part)
{
    return static_cast<guint16>(std::lround(std::clamp(part, 0.0, 1.0) * 65535));
}

/// The fonts of a line as Pango knows them. Text in more of them than kMaximumFontsOfLine has the first one.
class LineFonts {
public:
    const PangoFontDescription& description(const NSAttributes& attributes)
    {
        const auto font = fontOfAttributes(attributes);
        const auto key = std::pair(font->fontName(), font->pointSize());
        if (const auto known = m_descriptions.find(key); known != m_descriptions.end())
            return *known->second;
        if (m_descriptions.size() == kMaximumFontsOfLine)
            return *m_first;
        auto& description = m_descriptions[key];
        description = fontDescription(*font);
        m_first = m_first ? m_first : description.get();
        return *description;
    }

private:
    std::map<std::pair<std::u16string, double>, FontDescription> m_descriptions;
    const PangoFontDescription* m_first = nullptr;
};

/// Collects the attributes of one run.
class Run {
public:
    Run(PangoAttrList& list, guint start, guint end, NSAppearance appearance)
        : m_list(list)
        , m_start(start)
        , m_end(end)
        , m_appearance(appearance)
    {
    }

    void add(PangoAttribute* attribute)
    {
        attribute->start_index = m_start;
        attribute->end_index = m_end;
        pango_attr_list_insert(&m_list, attribute);
    }

    using MakeColor = PangoAttribute*(guint16, guint16, guint16);
    using MakeAlpha = PangoAttribute*(guint16);

    void addColor(const NSAny& value, MakeColor* makeColor, MakeAlpha* makeAlpha = nullptr)
    {
        const auto color = value.object<NSColor>();
        const auto rgba = color ? color->deviceRGBComponents(m_appearance) : std::nullopt;
        if (!rgba)
            return;
        add(makeColor(colorPart(rgba->red), colorPart(rgba->green), colorPart(rgba->blue)));
        // Pango takes 0 for "no alpha given"; 1 is as good as clear.
        if (makeAlpha)
            add(makeAlpha(std::max<guint16>(colorPart(rgba->alpha), 1)));
    }

private:
    PangoAttrList& m_list;
    guint m_start;
    guint m_end;
    NSAppearance m_appearance;
};

void addLines(Run& run, const NSAttributes& attributes)
{
    const auto underline = valueOf(attributes, NSUnderlineStyleAttributeName).integerValue() & kLineKindMask;
    if (underline != 0)
        run.add(pango_attr_underline_new(underline == kDoubleLine ? PANGO_UNDERLINE_DOUBLE
                                                                  : PANGO_UNDERLINE_SINGLE));
    run.addColor(valueOf(attributes, NSUnderlineColorAttributeName), pango_attr_underline_color_new);
    const auto strike = valueOf(attributes, NSStrikethroughStyleAttributeName).integerValue() & kLineKindMask;
    if (strike != 0)
        run.add(pango_attr_strikethrough_new(TRUE));
    run.addColor(valueOf(attributes, NSStrikethroughColorAttributeName), pango_attr_strikethrough_color_new);
}

void addShifts(Run& run, const NSAttributes& attributes)
{
    const auto shift = [&](std::u16string_view name) {
        const auto points = valueOf(attributes, name).doubleValue();
        return std::isfinite(points) ? pangoUnits(std::clamp(points, -kLargestShift, kLargestShift)) : 0;
    };
    if (const auto kern = shift(NSKernAttributeName); kern != 0)
        run.add(pango_attr_letter_spacing_new(kern));
    if (const auto rise = shift(NSBaselineOffsetAttributeName); rise != 0)
        run.add(pango_attr_rise_new(rise));
}

void addAttributes(Run& run, const NSAttributes& attributes, LineFonts& fonts)
{
    run.add(pango_attr_font_desc_new(&fonts.description(attributes)));
    run.addColor(valueOf(attributes, NSForegroundColorAttributeName), pango_attr_foreground_new,
                 pango_attr_foreground_alpha_new);
    run.addColor(valueOf(attributes, NSBackgroundColorAttributeName), pango_attr_background_new,
                 pango_attr_background_alpha_new);
    addLines(run, attributes);
    addShifts(run, attributes);
}

} // namespace

PangoText pangoText(const NSAttributedString& text, NSRange range, NSAppearance appearance)
{
    auto line = encoded(text.substringWithRange(range));
    const auto& offsets = line.offsets;
    AttributeList list(pango_attr_list_new());
    LineFonts fonts;
    text.enumerateAttributesInRange(range, {}, [&](const NSAttributes& attributes, NSRange run, bool&) {
        const auto end = NSMaxRange(run) - range.location;
        for (auto start = run.location - range.location; start < end; start += kLongestItem) {
            Run item(*list, offsets[start], offsets[std::min(start + kLongestItem, end)], appearance);
            addAttributes(item, attributes, fonts);
        }
    });
    return {std::move(line.bytes), std::move(list), std::move(line.offsets)};
}

NSFont::Ref fontOfAttributes(const NSAttributes& attributes)
{
    const auto font = valueOf(attributes, NSFontAttributeName).object<NSFont>();
    return font ? font : NSFont::userFontOfSize(NSFont::kDefaultSize);
}

PangoEllipsizeMode ellipsizing(NSLineBreakMode mode)
{
    switch (mode) {
    case NSLineBreakMode::TruncatingHead:
        return PANGO_ELLIPSIZE_START;
    case NSLineBreakMode::TruncatingMiddle:
        return PANGO_ELLIPSIZE_MIDDLE;
    case NSLineBreakMode::TruncatingTail:
        return PANGO_ELLIPSIZE_END;
    case NSLineBreakMode::WordWrapping:
    case NSLineBreakMode::CharWrapping:
    case NSLineBreakMode::Clipping:
        break;
    }
    return PANGO_ELLIPSIZE_NONE;
}
