#include "platform/rtf/RTFDocumentReading.h"

#include "platform/foundation/NSValue.h"
#include "platform/rtf/RTFDocumentWords.h"
#include "platform/rtf/RTFUnits.h"

#include <algorithm>

namespace {

using Settings = RTFDocumentSettings;
using Parameter = RTFParameter;

constexpr std::int32_t kUsualTab = 720;

template <std::size_t index> void setMargin(Settings& settings, Parameter parameter)
{
    settings.margins.at(index) = parameter.valueOr(0);
}

constexpr std::array kWords{
    RTFDocumentWord{"paperw", [](Settings& s, Parameter p) { s.paperWidth = p.valueOr(0); }},
    RTFDocumentWord{"paperh", [](Settings& s, Parameter p) { s.paperHeight = p.valueOr(0); }},
    RTFDocumentWord{"margl", setMargin<0>},
    RTFDocumentWord{"margr", setMargin<1>},
    RTFDocumentWord{"margt", setMargin<2>},
    RTFDocumentWord{"margb", setMargin<3>},
    RTFDocumentWord{"vieww", [](Settings& s, Parameter p) { s.viewWidth = p.valueOr(0); }},
    RTFDocumentWord{"viewh", [](Settings& s, Parameter p) { s.viewHeight = p.valueOr(0); }},
    RTFDocumentWord{"viewkind", [](Settings& s, Parameter p) { s.viewKind = p.valueOr(0); }},
    RTFDocumentWord{"viewscale", [](Settings& s, Parameter p) { s.viewScale = p.valueOr(100); }},
    RTFDocumentWord{"readonlydoc", [](Settings& s, Parameter p) { s.readOnly = p.valueOr(1); }},
    RTFDocumentWord{"hyphfactor", [](Settings& s, Parameter p) { s.hyphenation = p.valueOr(0); }},
    RTFDocumentWord{"deftab", [](Settings& s, Parameter p) { s.defaultTab = p.valueOr(0); }},
    RTFDocumentWord{"cocoartf", [](Settings& s, Parameter p) { s.cocoaVersion = p.valueOr(1); }},
};

void addSize(NSAny::Dictionary& attributes, std::u16string_view name, std::optional<std::int32_t> width,
             std::optional<std::int32_t> height)
{
    if (!width && !height)
        return;
    const NSSize size{pointsFromTwips(width.value_or(0)), pointsFromTwips(height.value_or(0))};
    attributes.insert_or_assign(std::u16string(name), NSAny(std::make_shared<const NSValue>(size)));
}

void addNumber(NSAny::Dictionary& attributes, std::u16string_view name, std::optional<std::int32_t> number)
{
    if (number)
        attributes.insert_or_assign(std::u16string(name), NSAny(*number));
}

void addReal(NSAny::Dictionary& attributes, std::u16string_view name, std::optional<std::int32_t> number,
             double unit)
{
    if (number)
        attributes.insert_or_assign(std::u16string(name), NSAny(*number / unit));
}

/// Widths that cannot be added without overflow are no widths.
std::int32_t bounded(std::int32_t length)
{
    constexpr std::int32_t kMost = 500'000'000;
    return std::clamp(length, -kMost, kMost);
}

} // namespace

RTFPage RTFDocumentSettings::page() const
{
    RTFPage page;
    page.textWidth = bounded(paperWidth.value_or(kUsualPaperWidth))
        - bounded(margins[0].value_or(kUsualSideMargin)) - bounded(margins[1].value_or(kUsualSideMargin));
    page.defaultTab = defaultTab.value_or(isCocoa() ? 0 : kUsualTab);
    return page;
}

void RTFDocumentSettings::addTo(NSAny::Dictionary& attributes) const
{
    addSize(attributes, NSPaperSizeDocumentAttribute, paperWidth, paperHeight);
    for (std::size_t index = 0; index < margins.size(); ++index)
        addReal(attributes, kRTFMarginWords.at(index).attribute, margins.at(index), kTwipsOfPoint);
    addSize(attributes, NSViewSizeDocumentAttribute, viewWidth, viewHeight);
    addNumber(attributes, NSViewModeDocumentAttribute, viewKind);
    addReal(attributes, NSViewZoomDocumentAttribute, viewScale, 1);
    addNumber(attributes, NSReadOnlyDocumentAttribute, readOnly);
    addReal(attributes, NSHyphenationFactorDocumentAttribute, hyphenation, 100);
    addReal(attributes, NSDefaultTabIntervalDocumentAttribute, defaultTab, kTwipsOfPoint);
    addNumber(attributes, NSCocoaVersionDocumentAttribute, cocoaVersion);
}

std::span<const RTFDocumentWord> documentWords()
{
    return kWords;
}

std::u16string_view attributeOfInformation(std::string_view word)
{
    const auto* const found
        = std::find_if(kRTFInformationWords.begin(), kRTFInformationWords.end(),
                       [word](const RTFInformationWord& entry) { return entry.word == word; });
    return found == kRTFInformationWords.end() ? std::u16string_view() : found->attribute;
}

NSAny valueOfInformation(std::u16string_view attribute, std::u16string_view text)
{
    if (attribute != NSKeywordsDocumentAttribute)
        return {text};
    NSAny::Array keywords;
    for (;;) {
        const auto end = text.find(kKeywordSeparator);
        keywords.emplace_back(text.substr(0, end));
        if (end == std::u16string_view::npos)
            return {std::move(keywords)};
        text.remove_prefix(end + kKeywordSeparator.size());
    }
}
