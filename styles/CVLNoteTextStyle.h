#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"
#include "platform/foundation/NSRange.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Which standard style a style is, or Custom. The numbers are stored. Any number may come from an archive:
/// one that is none of Body to Subheading is treated as Custom.
enum class CVLNoteTextStyleType : NSInteger {
    Body = 0,
    Title = 1,
    Heading = 2,
    Monospaced = 3,
    Subheading = 4,
    Custom = 9999,
};

/// The text attribute under which a run records the identifier of the style that it was given.
inline constexpr std::u16string_view CVLNoteTextStyleIdentifierKey = u"CVLNoteTextStyleIdentifier";
/// User defaults: the identifier of the default style.
inline constexpr std::u16string_view CVLNoteTextStyleDefaultIdentifierKey
    = u"CVLNoteTextStyleDefaultIdentifier";
/// User defaults: an archived array of the styles that are not as they are by default.
inline constexpr std::u16string_view CVLNoteTextStylesDefaultsKey = u"CVLNoteTextStyles";
/// Posted, about no object, when the styles in the user defaults changed.
inline constexpr std::u16string_view CVLNoteTextStyleDefaultsDidChangeNotification
    = u"CVLNoteTextStyleDefaultsDidChangeNotification";

/// A named style of note text: font, paragraph style, colour, underline and strikethrough, and how it is
/// applied. There are five standard styles, and any number of custom styles that the user makes.
///
/// A style is an object with an identity: whoever changes a standard style changes it for all that asked for
/// it, until `reloadStylesFromDefaults`. The operations of the class may be called from any thread; one
/// object is read and changed on one thread at a time.
///
/// The class operations work on the standard user defaults and post to the default notification centre, on
/// the calling thread.
class CVLNoteTextStyle final : public NSCoding {
public:
    using Ref = std::shared_ptr<CVLNoteTextStyle>;
    using AttributeNames = std::set<std::u16string, std::less<>>;
    /// Text attributes by name: an attribute dictionary of NSAttributedString.
    using Attributes = NSAny::Dictionary;

    /// A Body style that stores nothing else.
    CVLNoteTextStyle() = default;

    // The standard styles: as the user saved them, else as they are by default. Each is made once, and anew
    // after reloadStylesFromDefaults.
    [[nodiscard]] static Ref bodyNoteTextStyle();
    [[nodiscard]] static Ref titleNoteTextStyle();
    [[nodiscard]] static Ref headingNoteTextStyle();
    [[nodiscard]] static Ref subheadingNoteTextStyle();
    [[nodiscard]] static Ref monospacedNoteTextStyle();

    // A new object of each standard style as it is by default.
    [[nodiscard]] static Ref defaultBodyNoteTextStyle();
    [[nodiscard]] static Ref defaultTitleNoteTextStyle();
    [[nodiscard]] static Ref defaultHeadingNoteTextStyle();
    [[nodiscard]] static Ref defaultSubheadingNoteTextStyle();
    [[nodiscard]] static Ref defaultMonospacedNoteTextStyle();
    /// Null for what is no standard type.
    [[nodiscard]] static Ref defaultStyleForType(CVLNoteTextStyleType type);

    /// Title, Heading, Subheading, Body, Monospaced: the order in which people see them.
    [[nodiscard]] static std::vector<Ref> standardStyles();
    /// The saved custom styles by name, numbers in names by their value. Unreadable ones are logged, and then
    /// there are none.
    [[nodiscard]] static std::vector<Ref> customStyles();
    /// The standard styles, and the custom styles behind them.
    [[nodiscard]] static std::vector<Ref> allStyles();

    /// The first of all styles that has the identifier; null when none has.
    [[nodiscard]] static Ref styleWithIdentifier(std::u16string_view identifier);
    /// The style that the user chose for new text, else Body.
    [[nodiscard]] static Ref defaultStyle();
    /// The first saved style of a standard type; null when there is none, and for Custom.
    [[nodiscard]] static Ref savedStyleForType(CVLNoteTextStyleType type);
    /// Title, Heading and Subheading for 1 to 3, else null.
    [[nodiscard]] static Ref styleForParagraphHeaderLevel(NSInteger level);
    /// The first of all styles that the attributes match; null when none does.
    [[nodiscard]] static Ref styleThatMatchesAttributes(const Attributes& attributes);

    /// A new custom style, named "New Style" in the user's language, that looks like text with these
    /// attributes. It is saved by addCustomStyle.
    [[nodiscard]] static Ref customStyleFromAttributes(const Attributes& attributes);
    /// Saves all styles and this one.
    static void addCustomStyle(const Ref& style);
    /// Saves those of the styles that need it (`shouldSaveToDefaults`), in this order, and none of any
    /// others; then reloads. The notification is posted twice. A failure shows in the log only; see
    /// NSUserDefaults::synchronize.
    static void saveStylesToDefaults(const std::vector<Ref>& styles);
    /// Lets the next use of every style read the user defaults again, and posts the notification.
    static void reloadStylesFromDefaults();

    [[nodiscard]] static NSColor::Ref standardForegroundColor();
    /// The factor by which text is shown for the user's choice of size, 1 to 4; 0.875 for every other number.
    [[nodiscard]] static double scaleFactorForNoteTextSize(NSInteger setting);

    /// For observers: a font change changes `fontName` and `fontSize` too. Empty for all other keys.
    [[nodiscard]] static std::set<std::u16string>
    keyPathsForValuesAffectingValueForKey(std::u16string_view key);

    /// False: observers and bindings go through the accessors only, which normalise what they give.
    [[nodiscard]] static constexpr bool accessInstanceVariablesDirectly() { return false; }

    [[nodiscard]] CVLNoteTextStyleType type() const { return m_type; }

    /// A style that becomes Custom gets an identifier, unless it has one.
    void setType(CVLNoteTextStyleType type);

    /// A standard style's name in the user's language, whatever is stored; else the stored name.
    [[nodiscard]] std::u16string name() const;

    void setName(std::u16string name) { m_name = std::move(name); }

    /// A standard style's fixed identifier; else the custom one. None for a custom style without.
    [[nodiscard]] std::optional<std::u16string> identifier() const;

    /// The user's default font at 12 points when none is stored.
    [[nodiscard]] NSFont::Ref font() const;

    void setFont(NSFont::Ref font) { m_font = std::move(font); }

    /// The PostScript name.
    [[nodiscard]] std::u16string fontName() const { return font()->fontName(); }

    /// In points.
    [[nodiscard]] double fontSize() const { return font()->pointSize(); }

    /// The font of that name at the size that there is; none stored when there is no such font.
    void setFontName(std::u16string_view fontName);
    void setFontSize(double fontSize);

    /// The default paragraph style when none is stored.
    [[nodiscard]] NSParagraphStyle::Ref paragraphStyle() const;

    void setParagraphStyle(NSParagraphStyle::Ref style) { m_paragraphStyle = std::move(style); }

    /// Never black or white, which would not be readable in every appearance: those, like no colour, are the
    /// text colour.
    [[nodiscard]] NSColor::Ref foregroundColor() const;
    /// Black and white are stored as no colour.
    void setForegroundColor(const NSColor::Ref& color);

    /// As NSUnderlineStyleAttributeName; 0 for none.
    [[nodiscard]] NSInteger underlineStyle() const { return m_underlineStyle; }

    void setUnderlineStyle(NSInteger style) { m_underlineStyle = style; }

    [[nodiscard]] NSInteger strikethrough() const { return m_strikethrough; }

    void setStrikethrough(NSInteger style) { m_strikethrough = style; }

    /// Whether Return after a paragraph in this style goes on in the default style.
    [[nodiscard]] bool resetOnNewLine() const { return m_resetOnNewLine; }

    void setResetOnNewLine(bool resets) { m_resetOnNewLine = resets; }

    /// Whether the style is applied to whole paragraphs and not to the selected characters only.
    [[nodiscard]] bool applyToParagraph() const { return m_applyToParagraph; }

    void setApplyToParagraph(bool applies) { m_applyToParagraph = applies; }

    [[nodiscard]] const std::optional<std::u16string>& customStyleIdentifier() const
    {
        return m_customStyleIdentifier;
    }

    void setCustomStyleIdentifier(std::optional<std::u16string> identifier)
    {
        m_customStyleIdentifier = std::move(identifier);
    }

    /// The attributes that text may have besides and still match: those set, else a set by applyToParagraph.
    [[nodiscard]] AttributeNames otherAllowedAttributeNames() const;

    void setOtherAllowedAttributeNames(std::optional<AttributeNames> names)
    {
        m_otherAllowedAttributeNames = std::move(names);
    }

    /// What text in this style has: font, paragraph style, foreground colour, underline, strikethrough and
    /// the style's identifier.
    [[nodiscard]] Attributes attributes() const;
    /// What text with these attributes has once it was given this style.
    [[nodiscard]] Attributes attributesWithOtherAttributes(const Attributes& others) const;

    /// Whether text with these attributes looks as if it were in this style. An attribute that the text lacks
    /// is no difference, but text that has none, or only ignored ones, matches no style.
    [[nodiscard]] bool matchesAttributes(const Attributes& attributes) const;
    [[nodiscard]] bool matchesAttributes(const Attributes& attributes,
                                         const AttributeNames& ignoringAttributes) const;
    [[nodiscard]] bool matchesStyle(const CVLNoteTextStyle& style) const;

    /// Custom styles, and standard styles that are not as they are by default.
    [[nodiscard]] bool shouldSaveToDefaults() const;

    /// A new style that shares font, paragraph style and colour. `otherAllowedAttributeNames` is not copied.
    [[nodiscard]] Ref copy() const;

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

private:
    static NSAny initWithCoder(NSCoder& coder);
    void decodeFont(NSCoder& coder);
    [[nodiscard]] bool matchesAttribute(std::u16string_view name, const NSAny& own, const NSAny& other) const;

    CVLNoteTextStyleType m_type = CVLNoteTextStyleType::Body;
    std::optional<std::u16string> m_name;
    NSFont::Ref m_font;
    NSParagraphStyle::Ref m_paragraphStyle;
    NSColor::Ref m_foregroundColor;
    NSInteger m_underlineStyle = 0;
    NSInteger m_strikethrough = 0;
    bool m_resetOnNewLine = false;
    bool m_applyToParagraph = false;
    std::optional<std::u16string> m_customStyleIdentifier;
    std::optional<AttributeNames> m_otherAllowedAttributeNames;
};
