#include "colours/NoteBackground.h"

#include "colours/CVLSecureUnarchiveColorFromDataTransformer.h"
#include "colours/ColourEquality.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSUserDefaults.h"
#include "platform/text/NSFont.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

using namespace CVLExtensions;

namespace {

class NoteBackground : public testing::Test {
protected:
    void store(const NSAny& value) { m_defaults.setObject(value, u"CVLNoteDefaultBackgroundColor"); }

    void store(const NSColor::Ref& color)
    {
        store(CVLSecureUnarchiveColorFromDataTransformer().reverseTransformedValue(NSAny(color)));
    }

    static void expectTextBackground()
    {
        EXPECT_TRUE(defaultNoteBackgroundColor()->isEqual(*NSColor::textBackgroundColor()));
    }

    TemporaryFolder m_folder;
    NSUserDefaults m_defaults{m_folder.file("defaults.plist")};
    NSUserDefaultsReplacement m_replacement{m_defaults};
    int m_logged = 0;
    NSLogCapture m_log{[this](std::string_view) { ++m_logged; }};
};

TEST_F(NoteBackground, IsTheUsersChoice)
{
    const auto cream = NSColor::colorWithRed(1, 0.98, 0.9, 1);
    store(cream);
    EXPECT_TRUE(isEqualToColorCVLVersion(*defaultNoteBackgroundColor(), *cream));
}

TEST_F(NoteBackground, FollowsTheAppearanceWithoutAChoice)
{
    expectTextBackground();
    EXPECT_EQ(m_logged, 0);
}

TEST_F(NoteBackground, FollowsTheAppearanceForWhiteAndBlack)
{
    for (const auto& color : {crayonsWhiteColor(), NSColor::whiteColor(), appleWhiteColor(),
                              NSColor::blackColor(), crayonsBlackColor(), NSColor::textColor()}) {
        store(color);
        expectTextBackground();
    }
}

TEST_F(NoteBackground, FollowsTheAppearanceForWhatIsNoArchivedColour)
{
    store(NSAny(NSData{"not an archive"}));
    expectTextBackground();
    EXPECT_EQ(m_logged, 1);
    store(NSAny(u"#ffeecc"));
    expectTextBackground();
}

TEST(CVLSecureUnarchiveColorFromDataTransformer, AllowsColoursOnly)
{
    const CVLSecureUnarchiveColorFromDataTransformer transformer;
    EXPECT_EQ(transformer.allowedTopLevelClasses(), NSClassList{&NSColor::classObject()});
    const NSLogCapture log([](std::string_view) {});
    const auto font
        = NSKeyedArchiver::archivedDataWithRootObject(NSAny(NSFont::fontWithName(u"Helvetica", 12)), true);
    ASSERT_TRUE(font);
    EXPECT_TRUE(transformer.transformedValue(NSAny(*font)).isNil());
    EXPECT_TRUE(transformer.reverseTransformedValue(NSAny(NSFont::fontWithName(u"Helvetica", 12))).isNil());
    EXPECT_TRUE(transformer.reverseTransformedValue(NSAny()).isNil());
}

TEST(CVLSecureUnarchiveColorFromDataTransformer, GoesBothWays)
{
    const CVLSecureUnarchiveColorFromDataTransformer transformer;
    for (const auto& color : {NSColor::textColor(), NSColor::colorWithRed(0.25, 0.5, 0.75, 0.5)}) {
        const auto data = transformer.reverseTransformedValue(NSAny(color));
        ASSERT_TRUE(data.data());
        const auto again = transformer.transformedValue(data).object<NSColor>();
        ASSERT_NE(again, nullptr);
        EXPECT_TRUE(again->isEqual(*color));
    }
    EXPECT_TRUE(transformer.transformedValue(NSAny()).isNil());
    EXPECT_TRUE(transformer.transformedValue(NSAny(u"text")).isNil());
}

} // namespace
