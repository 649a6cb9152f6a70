// The five standard styles as they are before the user changes them.

#include "styles/CVLNoteTextStyle.h"

namespace {

constexpr std::u16string_view kTextFamily = u"Helvetica Neue";
constexpr std::u16string_view kMonospacedFamily = u"Menlo";
// Heading and Subheading stand off from what follows. Title has no such space.
constexpr double kHeadingParagraphSpacing = 2;
constexpr double kMonospacedLineSpacing = 1;

NSFont::Ref fontOfFamily(std::u16string_view family, NSFontWeight weight, double size)
{
    const auto descriptor = NSFontDescriptor::fontDescriptorWithFontAttributes({
        {std::u16string(NSFontFamilyAttribute), family},
        {std::u16string(NSFontTraitsAttribute),
         NSAny::Dictionary{{std::u16string(NSFontWeightTrait), weight}}},
    });
    return NSFont::fontWithDescriptor(*descriptor, size);
}

CVLNoteTextStyle::Ref makeStyle(CVLNoteTextStyleType type, NSFont::Ref font,
                                const NSMutableParagraphStyle& paragraphStyle)
{
    auto style = std::make_shared<CVLNoteTextStyle>();
    style->setType(type);
    style->setFont(std::move(font));
    style->setParagraphStyle(paragraphStyle.copy());
    return style;
}

// Title, Heading and Subheading: styles of whole paragraphs, after which text goes on in the default style.
CVLNoteTextStyle::Ref makeHeadingStyle(CVLNoteTextStyleType type, double size, NSInteger headerLevel,
                                       double paragraphSpacing)
{
    auto paragraphStyle = NSParagraphStyle::defaultParagraphStyle()->mutableCopy();
    paragraphStyle.setHeaderLevel(headerLevel);
    paragraphStyle.setParagraphSpacing(paragraphSpacing);
    auto style = makeStyle(type, fontOfFamily(kTextFamily, NSFontWeightBold, size), paragraphStyle);
    style->setApplyToParagraph(true);
    style->setResetOnNewLine(true);
    return style;
}

} // namespace

CVLNoteTextStyle::Ref CVLNoteTextStyle::defaultBodyNoteTextStyle()
{
    const auto standard = NSParagraphStyle::defaultParagraphStyle();
    auto paragraphStyle = standard->mutableCopy();
    if (!standard->tabStops().empty())
        paragraphStyle.setDefaultTabInterval(standard->tabStops().front()->location());
    return makeStyle(CVLNoteTextStyleType::Body, fontOfFamily(kTextFamily, NSFontWeightRegular, 12),
                     paragraphStyle);
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::defaultTitleNoteTextStyle()
{
    return makeHeadingStyle(CVLNoteTextStyleType::Title, 17, 1, 0);
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::defaultHeadingNoteTextStyle()
{
    return makeHeadingStyle(CVLNoteTextStyleType::Heading, 14, 2, kHeadingParagraphSpacing);
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::defaultSubheadingNoteTextStyle()
{
    return makeHeadingStyle(CVLNoteTextStyleType::Subheading, 13, 3, kHeadingParagraphSpacing);
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::defaultMonospacedNoteTextStyle()
{
    auto paragraphStyle = NSParagraphStyle::defaultParagraphStyle()->mutableCopy();
    paragraphStyle.setLineSpacing(kMonospacedLineSpacing);
    return makeStyle(CVLNoteTextStyleType::Monospaced,
                     fontOfFamily(kMonospacedFamily, NSFontWeightRegular, 12), paragraphStyle);
}

CVLNoteTextStyle::Ref CVLNoteTextStyle::defaultStyleForType(CVLNoteTextStyleType type)
{
    switch (type) {
    case CVLNoteTextStyleType::Body:
        return defaultBodyNoteTextStyle();
    case CVLNoteTextStyleType::Title:
        return defaultTitleNoteTextStyle();
    case CVLNoteTextStyleType::Heading:
        return defaultHeadingNoteTextStyle();
    case CVLNoteTextStyleType::Monospaced:
        return defaultMonospacedNoteTextStyle();
    case CVLNoteTextStyleType::Subheading:
        return defaultSubheadingNoteTextStyle();
    case CVLNoteTextStyleType::Custom:
        break;
    }
    return nullptr;
}

double CVLNoteTextStyle::scaleFactorForNoteTextSize(NSInteger setting)
{
    // They make the 12 points of Body 12, 13, 15 and 17 points, and 10.5 points for every other setting.
    switch (setting) {
    case 1:
        return 1;
    case 2:
        return 13.0 / 12.0;
    case 3:
        return 1.25;
    case 4:
        return 17.0 / 12.0;
    default:
        return 0.875;
    }
}
