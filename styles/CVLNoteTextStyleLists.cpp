// The styles that there are: the standard ones and the user's own, and where they are kept.

#include "platform/foundation/NSBundle.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "platform/foundation/NSStringComparison.h"
#include "platform/foundation/NSUserDefaults.h"
#include "platform/text/NSAttributeNames.h"
#include "styles/CVLNoteTextStyle.h"
#include "styles/SavedStyles.h"
#include "styles/UserDefaultsArchiving.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <mutex>

namespace {

using Ref = CVLNoteTextStyle::Ref;

/// What the class has read from the user defaults: a slot for each standard style, filled by itself, and one
/// for the custom styles. The mutex is held while a slot is filled, so that each is filled once and never
/// with what was read before it was emptied.
struct StyleCache {
    std::mutex mutex;
    std::map<CVLNoteTextStyleType, Ref> standard;
    std::optional<std::vector<Ref>> custom;
};

StyleCache& cache()
{
    static StyleCache instance;
    return instance;
}

Ref standardStyle(CVLNoteTextStyleType type)
{
    const std::scoped_lock lock(cache().mutex);
    auto& slot = cache().standard[type];
    if (!slot)
        slot = CVLNoteTextStyle::savedStyleForType(type);
    if (!slot)
        slot = CVLNoteTextStyle::defaultStyleForType(type);
    return slot;
}

bool isBefore(const Ref& one, const Ref& other)
{
    return localizedStandardCompare(one->name(), other->name()) == NSComparisonResult::NSOrderedAscending;
}

std::vector<Ref> readCustomStyles()
{
    auto styles = savedStyles();
    std::erase_if(styles, [](const auto& style) { return style->type() != CVLNoteTextStyleType::Custom; });
    std::ranges::stable_sort(styles, isBefore);
    return styles;
}

void postDefaultsDidChange()
{
    NSNotificationCenter::defaultCenter().postNotificationName(CVLNoteTextStyleDefaultsDidChangeNotification);
}

template <typename Predicate> Ref firstStyle(Predicate predicate)
{
    const auto styles = CVLNoteTextStyle::allStyles();
    const auto found = std::ranges::find_if(styles, predicate);
    return found == styles.end() ? nullptr : *found;
}

NSAny valueOf(const CVLNoteTextStyle::Attributes& attributes, std::u16string_view name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? NSAny() : found->second;
}

} // namespace

CVLNoteTextStyle::Ref CVLNoteTextStyle::bodyNoteTextStyle()
{
    return standardStyle(CVLNoteTextStyleType::Body);
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::titleNoteTextStyle()
{
    return standardStyle(CVLNoteTextStyleType::Title);
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::headingNoteTextStyle()
{
    return standardStyle(CVLNoteTextStyleType::Heading);
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::subheadingNoteTextStyle()
{
    return standardStyle(CVLNoteTextStyleType::Subheading);
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::monospacedNoteTextStyle()
{
    return standardStyle(CVLNoteTextStyleType::Monospaced);
}

std::vector<CVLNoteTextStyle::Ref> CVLNoteTextStyle::standardStyles()
{
    return {titleNoteTextStyle(), headingNoteTextStyle(), subheadingNoteTextStyle(), bodyNoteTextStyle(),
            monospacedNoteTextStyle()};
}

std::vector<CVLNoteTextStyle::Ref> CVLNoteTextStyle::customStyles()
{
    const std::scoped_lock lock(cache().mutex);
    if (!cache().custom)
        cache().custom = readCustomStyles();
    return *cache().custom;
}

std::vector<CVLNoteTextStyle::Ref> CVLNoteTextStyle::allStyles()
{
    auto styles = standardStyles();
    std::ranges::copy(customStyles(), std::back_inserter(styles));
    return styles;
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::styleWithIdentifier(std::u16string_view identifier)
{
    return firstStyle([&](const auto& style) { return style->identifier() == identifier; });
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::defaultStyle()
{
    const auto identifier
        = NSUserDefaults::standardUserDefaults().stringForKey(CVLNoteTextStyleDefaultIdentifierKey);
    auto style = identifier ? styleWithIdentifier(*identifier) : nullptr;
    return style ? style : bodyNoteTextStyle();
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::savedStyleForType(CVLNoteTextStyleType type)
{
    if (type == CVLNoteTextStyleType::Custom)
        return nullptr;
    const auto styles = savedStyles();
    const auto found = std::ranges::find(styles, type, &CVLNoteTextStyle::type);
    return found == styles.end() ? nullptr : *found;
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::styleForParagraphHeaderLevel(NSInteger level)
{
    switch (level) {
    case 1:
        return titleNoteTextStyle();
    case 2:
        return headingNoteTextStyle();
    case 3:
        return subheadingNoteTextStyle();
    default:
        return nullptr;
    }
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::styleThatMatchesAttributes(const Attributes& attributes)
{
    return firstStyle([&](const auto& style) { return style->matchesAttributes(attributes); });
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::customStyleFromAttributes(const Attributes& attributes)
{
    auto style = std::make_shared<CVLNoteTextStyle>();
    style->setName(NSBundle::mainBundle().localizedStringForKey(u"New Style"));
    style->setType(CVLNoteTextStyleType::Custom);
    style->setFont(valueOf(attributes, NSFontAttributeName).object<NSFont>());
    style->setParagraphStyle(valueOf(attributes, NSParagraphStyleAttributeName).object<NSParagraphStyle>());
    style->setForegroundColor(valueOf(attributes, NSForegroundColorAttributeName).object<NSColor>());
    style->setUnderlineStyle(valueOf(attributes, NSUnderlineStyleAttributeName).integerValue());
    style->setStrikethrough(valueOf(attributes, NSStrikethroughStyleAttributeName).integerValue());
    return style;
}

void CVLNoteTextStyle::addCustomStyle(const Ref& style)
{
    auto styles = allStyles();
    styles.push_back(style);
    saveStylesToDefaults(styles);
}

void CVLNoteTextStyle::saveStylesToDefaults(const std::vector<Ref>& styles)
{
    NSAny::Array saved;
    for (const auto& style : styles)
        if (style->shouldSaveToDefaults())
            saved.emplace_back(style);
    auto& defaults = NSUserDefaults::standardUserDefaults();
    if (saved.empty())
        defaults.removeObjectForKey(CVLNoteTextStylesDefaultsKey);
    else
        (void)TSExtensions::archiveObject(defaults, std::move(saved),
                                          CVLNoteTextStylesDefaultsKey); // Nobody here could act on it.
    reloadStylesFromDefaults();
    // Once more than reloading posts it: listeners have always been told of a save twice.
    postDefaultsDidChange();
}

void CVLNoteTextStyle::reloadStylesFromDefaults()
{
    {
        const std::scoped_lock lock(cache().mutex);
        cache().standard.clear();
        cache().custom.reset();
    }
    postDefaultsDidChange();
}
