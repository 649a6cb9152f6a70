#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "platform/text/NSAttributeNames.h"
#include "styles/SavedStyles.h"
#include "styles/UserDefaultsArchiving.h"
#include "tests/styles/StyleTest.h"

#include <gmock/gmock.h>

#include <thread>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

namespace {

using Style = CVLNoteTextStyle;
using Type = CVLNoteTextStyleType;

std::vector<std::u16string> namesOf(const std::vector<Style::Ref>& styles)
{
    std::vector<std::u16string> names;
    for (const auto& style : styles)
        names.push_back(style->name());
    return names;
}

/// Counts notifications, and what is known at the time of each.
class ChangeObserver {
public:
    ChangeObserver()
        : m_token(NSNotificationCenter::defaultCenter().addObserverForName(
            CVLNoteTextStyleDefaultsDidChangeNotification, nullptr,
            [this](const NSNotification& notification) {
                ++m_count;
                m_hadObject = m_hadObject || notification.object;
            }))
    {
    }

    ChangeObserver(const ChangeObserver&) = delete;
    ChangeObserver& operator=(const ChangeObserver&) = delete;

    ~ChangeObserver() { NSNotificationCenter::defaultCenter().removeObserver(m_token); }

    [[nodiscard]] int count() const { return m_count; }

    [[nodiscard]] bool hadObject() const { return m_hadObject; }

private:
    int m_count = 0;
    bool m_hadObject = false;
    NSNotificationToken m_token;
};

class CVLNoteTextStyleLists : public StyleTest { };

TEST_F(CVLNoteTextStyleLists, ShowTitleFirst)
{
    EXPECT_THAT(namesOf(Style::standardStyles()),
                ElementsAre(u"Title", u"Heading", u"Subheading", u"Body", u"Monospaced"));
}

TEST_F(CVLNoteTextStyleLists, KeepEachStandardStyleUntilTheReload)
{
    const auto title = Style::titleNoteTextStyle();
    title->setFontSize(30);
    EXPECT_EQ(Style::titleNoteTextStyle(), title);
    EXPECT_EQ(Style::standardStyles().front(), title);
    Style::reloadStylesFromDefaults();
    EXPECT_NE(Style::titleNoteTextStyle(), title);
    EXPECT_EQ(Style::titleNoteTextStyle()->fontSize(), 17);
}

TEST_F(CVLNoteTextStyleLists, HaveNoCustomStylesWithoutTheKey)
{
    EXPECT_THAT(Style::customStyles(), IsEmpty());
    EXPECT_THAT(Style::allStyles(), SizeIs(5));
}

TEST_F(CVLNoteTextStyleLists, SortCustomStylesByNameAndNumbersByValue)
{
    for (const auto* name : {u"note 10", u"Zebra", u"Note 2", u"apple"})
        Style::addCustomStyle(customStyle(name));
    EXPECT_THAT(namesOf(Style::customStyles()), ElementsAre(u"apple", u"Note 2", u"note 10", u"Zebra"));
    EXPECT_THAT(namesOf(Style::allStyles()),
                ElementsAre(u"Title", u"Heading", u"Subheading", u"Body", u"Monospaced", u"apple", u"Note 2",
                            u"note 10", u"Zebra"));
}

TEST_F(CVLNoteTextStyleLists, KeepCustomStylesOfTheSameName)
{
    const auto one = customStyle(u"Quote");
    const auto other = customStyle(u"Quote");
    Style::addCustomStyle(one);
    Style::addCustomStyle(other);
    const auto styles = Style::customStyles();
    ASSERT_THAT(styles, SizeIs(2));
    EXPECT_EQ(styles[0]->identifier(), one->identifier());
    EXPECT_EQ(styles[1]->identifier(), other->identifier());
}

TEST_F(CVLNoteTextStyleLists, FindStylesByIdentifier)
{
    const auto quote = customStyle(u"Quote");
    Style::addCustomStyle(quote);
    EXPECT_EQ(Style::styleWithIdentifier(u"CVLNoteStyleIdentifierMonospace"),
              Style::monospacedNoteTextStyle());
    ASSERT_TRUE(Style::styleWithIdentifier(*quote->identifier()));
    EXPECT_EQ(Style::styleWithIdentifier(*quote->identifier())->name(), u"Quote");
    EXPECT_EQ(Style::styleWithIdentifier(u"unknown"), nullptr);
    EXPECT_EQ(Style::styleWithIdentifier(u""), nullptr);
}

TEST_F(CVLNoteTextStyleLists, TakeTheUsersDefaultStyleElseBody)
{
    EXPECT_EQ(Style::defaultStyle(), Style::bodyNoteTextStyle());
    defaults().setObject(u"CVLNoteStyleIdentifierMonospace", CVLNoteTextStyleDefaultIdentifierKey);
    EXPECT_EQ(Style::defaultStyle(), Style::monospacedNoteTextStyle());
    defaults().setObject(u"unknown", CVLNoteTextStyleDefaultIdentifierKey);
    EXPECT_EQ(Style::defaultStyle(), Style::bodyNoteTextStyle());
}

TEST_F(CVLNoteTextStyleLists, KnowTheStylesOfHeaderLevels)
{
    EXPECT_EQ(Style::styleForParagraphHeaderLevel(1), Style::titleNoteTextStyle());
    EXPECT_EQ(Style::styleForParagraphHeaderLevel(2), Style::headingNoteTextStyle());
    EXPECT_EQ(Style::styleForParagraphHeaderLevel(3), Style::subheadingNoteTextStyle());
    for (const NSInteger level : {-1, 0, 4, 100})
        EXPECT_EQ(Style::styleForParagraphHeaderLevel(level), nullptr);
}

TEST_F(CVLNoteTextStyleLists, StoreAStandardStyleOnlyWhileItIsChanged)
{
    Style::titleNoteTextStyle()->setFontSize(20);
    Style::saveStylesToDefaults(Style::allStyles());
    EXPECT_EQ(Style::titleNoteTextStyle()->fontSize(), 20);
    ASSERT_THAT(savedStyles(), SizeIs(1));
    ASSERT_TRUE(Style::savedStyleForType(Type::Title));
    EXPECT_EQ(Style::savedStyleForType(Type::Title)->fontSize(), 20);
    EXPECT_EQ(Style::savedStyleForType(Type::Body), nullptr);

    Style::titleNoteTextStyle()->setFontSize(17);
    Style::saveStylesToDefaults(Style::allStyles());
    EXPECT_TRUE(defaults().objectForKey(CVLNoteTextStylesDefaultsKey).isNil());
    EXPECT_EQ(Style::savedStyleForType(Type::Title), nullptr);
}

TEST_F(CVLNoteTextStyleLists, RemoveTheKeyWhenThereIsNothingToHold)
{
    Style::addCustomStyle(customStyle(u"Quote"));
    EXPECT_TRUE(defaults().dataForKey(CVLNoteTextStylesDefaultsKey));
    Style::saveStylesToDefaults(Style::standardStyles());
    EXPECT_TRUE(defaults().objectForKey(CVLNoteTextStylesDefaultsKey).isNil());
    EXPECT_THAT(Style::customStyles(), IsEmpty());
}

TEST_F(CVLNoteTextStyleLists, SaveInTheGivenOrder)
{
    Style::titleNoteTextStyle()->setFontSize(20);
    Style::saveStylesToDefaults({customStyle(u"Zebra"), Style::titleNoteTextStyle(), customStyle(u"apple")});
    EXPECT_THAT(namesOf(savedStyles()), ElementsAre(u"Zebra", u"Title", u"apple"));
}

TEST_F(CVLNoteTextStyleLists, GiveNoSavedStyleForCustom)
{
    Style::addCustomStyle(customStyle(u"Quote"));
    EXPECT_EQ(Style::savedStyleForType(Type::Custom), nullptr);
}

// Saving reloads, which posts, and posts once more itself.
TEST_F(CVLNoteTextStyleLists, TellOfASaveTwiceAndOfAReloadOnce)
{
    const ChangeObserver observer;
    Style::saveStylesToDefaults(Style::allStyles());
    EXPECT_EQ(observer.count(), 2);
    Style::reloadStylesFromDefaults();
    EXPECT_EQ(observer.count(), 3);
    Style::addCustomStyle(customStyle(u"Quote"));
    EXPECT_EQ(observer.count(), 5);
    EXPECT_FALSE(observer.hadObject());
}

TEST_F(CVLNoteTextStyleLists, ShowTheNewStylesToThoseWhoAreTold)
{
    std::vector<std::u16string> seen;
    const auto token = NSNotificationCenter::defaultCenter().addObserverForName(
        CVLNoteTextStyleDefaultsDidChangeNotification, nullptr,
        [&](const NSNotification&) { seen = namesOf(Style::customStyles()); });
    Style::addCustomStyle(customStyle(u"Quote"));
    NSNotificationCenter::defaultCenter().removeObserver(token);
    EXPECT_THAT(seen, ElementsAre(u"Quote"));
}

TEST_F(CVLNoteTextStyleLists, FallBackToTheDefaultsWhenWhatWasSavedIsUnreadable)
{
    NSError unused;
    const std::vector<NSAny> values
        = {NSData{"no archive"}, u"no data",
           *NSKeyedArchiver::archivedDataWithRootObject(u"no array", true, &unused),
           *NSKeyedArchiver::archivedDataWithRootObject(NSAny::Array{u"no style"}, true, &unused)};
    for (const auto& value : values) {
        defaults().setObject(value, CVLNoteTextStylesDefaultsKey);
        Style::reloadStylesFromDefaults();
        std::vector<std::string> lines;
        const NSLogCapture log([&](std::string_view line) { lines.emplace_back(line); });
        EXPECT_THAT(Style::customStyles(), IsEmpty());
        EXPECT_THAT(lines, ElementsAre(StartsWith("Error unarchiving saved note styles: ")));
        EXPECT_EQ(Style::titleNoteTextStyle()->fontSize(), 17);
        EXPECT_THAT(lines, SizeIs(2));
        // Nothing is repaired or removed.
        EXPECT_EQ(defaults().objectForKey(CVLNoteTextStylesDefaultsKey), value);
    }
}

TEST_F(CVLNoteTextStyleLists, PreferStandardStylesToCustomStylesThatLookTheSame)
{
    const auto heading = Style::headingNoteTextStyle()->attributes();
    Style::addCustomStyle(Style::customStyleFromAttributes(heading));
    EXPECT_EQ(Style::styleThatMatchesAttributes(heading), Style::headingNoteTextStyle());
}

TEST_F(CVLNoteTextStyleLists, MakeACustomStyleOfWhatTextLooksLike)
{
    auto attributes = Style::headingNoteTextStyle()->attributes();
    attributes[key(NSForegroundColorAttributeName)] = NSColor::redColor();
    attributes[key(NSUnderlineStyleAttributeName)] = 9;
    const auto style = Style::customStyleFromAttributes(attributes);
    EXPECT_EQ(style->type(), Type::Custom);
    EXPECT_EQ(style->name(), u"New Style");
    EXPECT_TRUE(style->customStyleIdentifier());
    EXPECT_EQ(style->font(), Style::headingNoteTextStyle()->font());
    EXPECT_EQ(style->paragraphStyle(), Style::headingNoteTextStyle()->paragraphStyle());
    EXPECT_TRUE(style->foregroundColor()->isEqual(*NSColor::redColor()));
    EXPECT_EQ(style->underlineStyle(), 9);
    EXPECT_EQ(style->strikethrough(), 0);
    EXPECT_FALSE(style->applyToParagraph());
    EXPECT_FALSE(style->resetOnNewLine());
    EXPECT_EQ(Style::customStyleFromAttributes({})->fontSize(), 12);
}

TEST_F(CVLNoteTextStyleLists, FillEachSlotOnceWhateverThreadAsks)
{
    Style::addCustomStyle(customStyle(u"Quote"));
    std::vector<std::vector<Style::Ref>> seen(4);
    {
        std::vector<std::jthread> threads;
        for (auto& styles : seen)
            threads.emplace_back([&styles] { styles = Style::allStyles(); });
    }
    for (const auto& styles : seen)
        EXPECT_EQ(styles, seen.front());
}

} // namespace
