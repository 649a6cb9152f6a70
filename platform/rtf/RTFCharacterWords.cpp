#include "platform/rtf/RTFCharacterWords.h"

#include "platform/rtf/RTFUnderlines.h"
#include "platform/rtf/RTFUnits.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

using Format = RTFCharacterFormat;
using Parameter = RTFParameter;

constexpr std::int32_t kMostSize = 16'384'000;
constexpr std::int32_t kMostLevels = 1'000;
constexpr std::int32_t kTwipsOfQuarterPoint = 5;
constexpr std::int32_t kDoubleLine = 9;
constexpr std::int32_t kUsualRaise = 6;

void setSize(Format& format, std::int64_t size)
{
    if (size > 0)
        format.size = static_cast<std::int32_t>(std::min<std::int64_t>(size, kMostSize));
}

/// A kern of nothing is none at all, unless the platform says so by \kerning0.
void setKern(Format& format, std::int32_t twips)
{
    if (twips != 0)
        format.kern = twips;
    else
        format.kern.reset();
}

/// \strike0 ends a single line, \striked0, which the platform writes behind it, any.
void setStrike(Format& format, std::int32_t style, bool isOn)
{
    if (isOn)
        format.strikethrough = style;
    else if (style == kDoubleLine || format.strikethrough == style)
        format.strikethrough = 0;
}

std::int32_t bounded(std::int32_t value, std::int32_t most)
{
    return std::clamp(value, -most, most);
}

constexpr std::array kWords{
    RTFCharacterWord{"fs", [](Format& f, Parameter p) { setSize(f, std::int64_t{p.valueOr(24)} * 500); }},
    RTFCharacterWord{"fsmilli", [](Format& f, Parameter p) { setSize(f, p.valueOr(0)); }},
    RTFCharacterWord{"b", [](Format& f, Parameter p) { f.isBold = p.isOn(); }},
    RTFCharacterWord{"i", [](Format& f, Parameter p) { f.isItalic = p.isOn(); }},
    RTFCharacterWord{"cf", [](Format& f, Parameter p) { f.color = p.valueOr(0); }},
    RTFCharacterWord{"cb", [](Format& f, Parameter p) { f.background = p.valueOr(0); }},
    RTFCharacterWord{"chcbpat", [](Format& f, Parameter p) { f.background = p.valueOr(0); }},
    RTFCharacterWord{"highlight", [](Format& f, Parameter p) { f.background = p.valueOr(0); }},
    RTFCharacterWord{"ulnone", [](Format& f, Parameter /*p*/) { f.underline = 0; }},
    RTFCharacterWord{"ulstyle", [](Format& f, Parameter p) { f.underline = p.valueOr(0) & 0xFFFF; }},
    RTFCharacterWord{"ulc", [](Format& f, Parameter p) { f.underlineColor = p.valueOr(0); }},
    RTFCharacterWord{"ulwave", [](Format& f, Parameter p) { f.underline = p.isOn() ? 1 : 0; }},
    RTFCharacterWord{"ulhwave", [](Format& f, Parameter p) { f.underline = p.isOn() ? 2 : 0; }},
    RTFCharacterWord{"ululdbwave", [](Format& f, Parameter p) { f.underline = p.isOn() ? kDoubleLine : 0; }},
    RTFCharacterWord{"ulldash", [](Format& f, Parameter p) { f.underline = p.isOn() ? 0x201 : 0; }},
    RTFCharacterWord{"strike", [](Format& f, Parameter p) { setStrike(f, 1, p.isOn()); }},
    RTFCharacterWord{"striked", [](Format& f, Parameter p) { setStrike(f, kDoubleLine, p.isOn()); }},
    RTFCharacterWord{"strikestyle", [](Format& f, Parameter p) { f.strikethrough = p.valueOr(0) & 0xFFFF; }},
    RTFCharacterWord{"strikec", [](Format& f, Parameter p) { f.strikethroughColor = p.valueOr(0); }},
    RTFCharacterWord{"up", [](Format& f, Parameter p) { f.baseline = p.valueOr(kUsualRaise); }},
    RTFCharacterWord{
        "dn", [](Format& f, Parameter p) { f.baseline = -bounded(p.valueOr(kUsualRaise), kMostSize); }},
    RTFCharacterWord{"super",
                     [](Format& f, Parameter p) { f.superscript = bounded(p.valueOr(1), kMostLevels); }},
    RTFCharacterWord{"sub",
                     [](Format& f, Parameter p) { f.superscript = -bounded(p.valueOr(1), kMostLevels); }},
    RTFCharacterWord{"nosupersub", [](Format& f, Parameter /*p*/) { f.superscript = 0; }},
    RTFCharacterWord{
        "expnd",
        [](Format& f, Parameter p) { setKern(f, bounded(p.valueOr(0), kMostSize) * kTwipsOfQuarterPoint); }},
    RTFCharacterWord{"expndtw", [](Format& f, Parameter p) { setKern(f, p.valueOr(0)); }},
    RTFCharacterWord{"CocoaLigature", [](Format& f, Parameter p) { f.ligature = p.valueOr(1); }},
    RTFCharacterWord{"shad", [](Format& f, Parameter p) { f.shadow = {.isOn = p.isOn()}; }},
    RTFCharacterWord{"shadx", [](Format& f, Parameter p) { f.shadow.x = p.valueOr(0); }},
    RTFCharacterWord{"shady", [](Format& f, Parameter p) { f.shadow.y = p.valueOr(0); }},
    RTFCharacterWord{"shadr", [](Format& f, Parameter p) { f.shadow.blur = p.valueOr(0); }},
    RTFCharacterWord{"shado",
                     [](Format& f, Parameter p) { f.shadow.opacity = std::clamp(p.valueOr(255), 0, 255); }},
    RTFCharacterWord{"shadc", [](Format& f, Parameter p) { f.shadow.color = p.valueOr(0); }},
    // Other writers know outlines without a width; the platform gives the width behind it.
    RTFCharacterWord{"outl", [](Format& f, Parameter p) { f.strokeWidth = p.isOn() ? 60 : 0; }},
    RTFCharacterWord{"strokewidth", [](Format& f, Parameter p) { f.strokeWidth = p.valueOr(0); }},
    RTFCharacterWord{"strokec", [](Format& f, Parameter p) { f.strokeColor = p.valueOr(0); }},
    RTFCharacterWord{"expansion", [](Format& f, Parameter p) { f.expansion = p.valueOr(0); }},
    RTFCharacterWord{"obliqueness", [](Format& f, Parameter p) { f.obliqueness = p.valueOr(0); }},
    RTFCharacterWord{"AppleHighlight", [](Format& f, Parameter p) { f.isHighlighted = p.isOn(); }},
    RTFCharacterWord{"AppleHilightClrSch", [](Format& f, Parameter p) { f.highlightScheme = p.valueOr(0); }},
};

template <std::size_t index> void setUnderline(Format& format, Parameter parameter)
{
    format.underline = parameter.isOn() ? kRTFUnderlines[index].style : 0;
}

template <std::size_t... indices> constexpr auto underlineWords(std::index_sequence<indices...> /*sequence*/)
{
    return std::array{RTFCharacterWord{kRTFUnderlines[indices].word, setUnderline<indices>}...};
}

constexpr auto kUnderlineWords = underlineWords(std::make_index_sequence<kRTFUnderlines.size()>());

constexpr auto kAllWords = [] {
    std::array<RTFCharacterWord, kWords.size() + kUnderlineWords.size()> all{};
    std::copy(kUnderlineWords.begin(), kUnderlineWords.end(),
              std::copy(kWords.begin(), kWords.end(), all.begin()));
    return all;
}();

} // namespace

std::span<const RTFCharacterWord> characterWords()
{
    return kAllWords;
}
