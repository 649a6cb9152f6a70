#include "platform/rtf/RTFParagraphWords.h"

#include "platform/rtf/RTFLimits.h"

#include <array>
#include <utility>

namespace {

using Format = RTFParagraphFormat;
using Parameter = RTFParameter;

constexpr std::int32_t kBodyTextLevel = 9;

void addTab(Format& format, std::int32_t location)
{
    const auto kind = std::exchange(format.nextTabKind, RTFTabKind::Left);
    if (format.tabs.size() < kMostRTFTabs)
        format.tabs.push_back({kind, location});
}

void setOutlineLevel(Format& format, std::int32_t level)
{
    if (level >= 0 && level < kBodyTextLevel)
        format.outlineLevel = level;
    else
        format.outlineLevel.reset();
}

constexpr std::array kWords{
    RTFParagraphWord{"tx", [](Format& f, Parameter p) { addTab(f, p.valueOr(0)); }},
    RTFParagraphWord{"tqr", [](Format& f, Parameter /*p*/) { f.nextTabKind = RTFTabKind::Right; }},
    RTFParagraphWord{"tqc", [](Format& f, Parameter /*p*/) { f.nextTabKind = RTFTabKind::Center; }},
    RTFParagraphWord{"tqdec", [](Format& f, Parameter /*p*/) { f.nextTabKind = RTFTabKind::Decimal; }},
    RTFParagraphWord{"pardeftab", [](Format& f, Parameter p) { f.defaultTab = p.valueOr(0); }},
    RTFParagraphWord{"li", [](Format& f, Parameter p) { f.headIndent = p.valueOr(0); }},
    RTFParagraphWord{"fi", [](Format& f, Parameter p) { f.firstIndent = p.valueOr(0); }},
    RTFParagraphWord{"ri", [](Format& f, Parameter p) { f.rightIndent = p.valueOr(0); }},
    RTFParagraphWord{"sl", [](Format& f, Parameter p) { f.lineHeight = p.valueOr(0); }},
    RTFParagraphWord{"slmult", [](Format& f, Parameter p) { f.isLineHeightMultiple = p.isOn(); }},
    RTFParagraphWord{"slminimum", [](Format& f, Parameter p) { f.minimumLineHeight = p.valueOr(0); }},
    RTFParagraphWord{"slmaximum", [](Format& f, Parameter p) { f.maximumLineHeight = p.valueOr(0); }},
    RTFParagraphWord{"slleading", [](Format& f, Parameter p) { f.lineSpacing = p.valueOr(0); }},
    RTFParagraphWord{"sb", [](Format& f, Parameter p) { f.spaceBefore = p.valueOr(0); }},
    RTFParagraphWord{"sa", [](Format& f, Parameter p) { f.spaceAfter = p.valueOr(0); }},
    RTFParagraphWord{"parhyphenfactor", [](Format& f, Parameter p) { f.hyphenation = p.valueOr(0); }},
    RTFParagraphWord{"ql", [](Format& f, Parameter /*p*/) { f.alignment = RTFAlignment::Left; }},
    RTFParagraphWord{"qr", [](Format& f, Parameter /*p*/) { f.alignment = RTFAlignment::Right; }},
    RTFParagraphWord{"qc", [](Format& f, Parameter /*p*/) { f.alignment = RTFAlignment::Center; }},
    RTFParagraphWord{"qj", [](Format& f, Parameter /*p*/) { f.alignment = RTFAlignment::Justified; }},
    RTFParagraphWord{"qnatural", [](Format& f, Parameter /*p*/) { f.alignment = RTFAlignment::Natural; }},
    RTFParagraphWord{"pardirnatural",
                     [](Format& f, Parameter /*p*/) { f.direction = RTFDirection::Natural; }},
    RTFParagraphWord{"rtlpar", [](Format& f, Parameter /*p*/) { f.direction = RTFDirection::RightToLeft; }},
    RTFParagraphWord{"ltrpar", [](Format& f, Parameter /*p*/) { f.direction = RTFDirection::LeftToRight; }},
    RTFParagraphWord{"outlinelevel", [](Format& f, Parameter p) { setOutlineLevel(f, p.valueOr(0)); }},
    RTFParagraphWord{"ls", [](Format& f, Parameter p) { f.list = p.valueOr(0); }},
    RTFParagraphWord{"ilvl", [](Format& f, Parameter p) { f.listLevel = p.valueOr(0); }},
    RTFParagraphWord{"intbl", [](Format& f, Parameter p) { f.isInTable = p.isOn(); }},
    RTFParagraphWord{"itap", [](Format& f, Parameter p) { f.tableDepth = p.valueOr(1); }},
};

} // namespace

std::span<const RTFParagraphWord> paragraphWords()
{
    return kWords;
}
