#include "richtext/WebPageCleanup.h"

#include "platform/foundation/NSUserDefaults.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFontManager.h"
#include "richtext/DynamicColours.h"
#include "richtext/HTMLNewlines.h"
#include "styles/CVLNoteTextStyle.h"

#include <array>
#include <cmath>
#include <map>

namespace {

constexpr double kWebPageFontSizeFactor = 0.75;

constexpr unsigned kWidthTraits = NSNarrowFontMask | NSCondensedFontMask | NSExpandedFontMask;
/// What a font gives up, step by step, to find a face in another family.
constexpr std::array kGivenUpTraits{0U, kWidthTraits, kWidthTraits | NSItalicFontMask,
                                    kWidthTraits | NSItalicFontMask | NSBoldFontMask};

NSFont::Ref fontOfFamilyLikeFont(std::u16string_view family, const NSFont::Ref& font)
{
    const auto& manager = NSFontManager::sharedFontManager();
    const auto traits = manager.traitsOfFont(*font);
    const auto weight = manager.weightOfFont(*font);
    for (const auto givenUp : kGivenUpTraits) {
        if (auto found = manager.fontWithFamily(family, traits & ~givenUp, weight, font->pointSize()))
            return found;
    }
    return font;
}

} // namespace

void DynamicColors::cleanupWebPageText(NSMutableAttributedString& text)
{
    const auto& defaults = NSUserDefaults::standardUserDefaults();
    cleanupTextFromWebPageInRange(text, {0, text.length()}, CVLNoteTextStyle::bodyNoteTextStyle()->font(),
                                  defaults.boolForKey(CVLTextViewCleanUpWebPageNewLines),
                                  defaults.boolForKey(CVLTextViewCleanUpWebPageFontSizes),
                                  defaults.boolForKey(CVLTextViewCleanUpWebPageColors));
}

void DynamicColors::cleanupTextFromWebPageInRange(NSMutableAttributedString& text, NSRange range,
                                                  const NSFont::Ref& withNewFont, bool includingNewlines,
                                                  bool sizes, bool colors)
{
    if (includingNewlines)
        range = cleanupHTMLNewlinesInRange(text, range);
    if (withNewFont)
        changeFont(text, withNewFont, range);
    if (sizes)
        adjustWebPageFontSizesInRange(text, range);
    if (colors)
        cleanupTextColorsInRange(text, range);
}

void DynamicColors::changeFont(NSMutableAttributedString& text, const NSFont::Ref& font, NSRange inRange)
{
    // A page has few fonts and many runs.
    std::map<NSFont::Ref, NSFont::Ref> newFonts;
    const auto change = [&](const NSAny& value, NSRange run, bool&) {
        const auto old = value.object<NSFont>();
        if (!old)
            return;
        auto& newFont = newFonts[old];
        if (!newFont)
            newFont = fontOfFamilyLikeFont(font->familyName(), old);
        text.addAttribute(NSFontAttributeName, newFont, run);
    };
    text.enumerateAttribute(NSFontAttributeName, inRange, {}, change);
}

void DynamicColors::adjustWebPageFontSizesInRange(NSMutableAttributedString& text, NSRange range)
{
    const auto& manager = NSFontManager::sharedFontManager();
    const auto shrink = [&](const NSAttributes& attributes, NSRange run, bool&) {
        const auto found = attributes.find(NSFontAttributeName);
        const auto font = found == attributes.end() ? nullptr : found->second.object<NSFont>();
        if (!font)
            return;
        auto changed = attributes;
        const auto size = std::ceil(font->pointSize() * kWebPageFontSizeFactor);
        changed.insert_or_assign(found->first, manager.convertFontToSize(font, size));
        text.setAttributes(changed, run);
    };
    text.enumerateAttributesInRange(range, {}, shrink);
}
