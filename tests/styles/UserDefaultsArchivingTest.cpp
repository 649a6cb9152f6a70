#include "styles/UserDefaultsArchiving.h"

#include "platform/foundation/FoundationClasses.h"
#include "platform/foundation/NSCoder.h"
#include "platform/foundation/NSLog.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

class UserDefaultsArchiving : public testing::Test {
protected:
    UserDefaultsArchiving()
        : m_defaults(m_folder.file("defaults.plist"))
        , m_log([this](std::string_view line) { m_lines.emplace_back(line); })
    {
    }

    NSAny unarchived(const NSClass& accepted, NSError* error = nullptr)
    {
        return TSExtensions::unarchiveObjectOfClass(m_defaults, accepted, u"key", foundationClasses(), error);
    }

    TemporaryFolder m_folder;
    NSUserDefaults m_defaults;
    std::vector<std::string> m_lines;
    NSLogCapture m_log;
};

TEST_F(UserDefaultsArchiving, HasTheExactDomainAndCode)
{
    EXPECT_EQ(CVLUserDefaultsArchivingErrorDomain, "CVLUserDefaultsArchivingErrorDomain");
    EXPECT_EQ(CVLUserDefaultsArchivingNoDataErrorCode, 10001);
}

TEST_F(UserDefaultsArchiving, KeepsAnObjectAsData)
{
    const NSAny object = u"a text";
    EXPECT_TRUE(TSExtensions::archiveObject(m_defaults, object, u"key"));
    EXPECT_TRUE(m_defaults.dataForKey(u"key"));
    NSError error;
    EXPECT_EQ(unarchived(NSStringClass, &error), object) << error.localizedDescription();
    EXPECT_THAT(m_lines, IsEmpty());
}

TEST_F(UserDefaultsArchiving, RemovesTheKeyOfWhatCannotBeArchived)
{
    EXPECT_TRUE(TSExtensions::archiveObject(m_defaults, u"before", u"key"));
    NSError error;
    EXPECT_FALSE(TSExtensions::archiveObject(m_defaults, std::make_shared<const NSObject>(), u"key", &error));
    EXPECT_FALSE(error.domain().empty());
    EXPECT_TRUE(m_defaults.objectForKey(u"key").isNil());
}

// A missing value is nothing to write home about.
TEST_F(UserDefaultsArchiving, SaysThatThereIsNoValueWithoutLoggingIt)
{
    NSError error;
    EXPECT_TRUE(unarchived(NSStringClass, &error).isNil());
    EXPECT_EQ(error.domain(), CVLUserDefaultsArchivingErrorDomain);
    EXPECT_EQ(error.code(), CVLUserDefaultsArchivingNoDataErrorCode);
    EXPECT_EQ(error.localizedDescription(), "No such value.");
    EXPECT_TRUE(unarchived(NSStringClass).isNil());
    m_defaults.setObject(u"no data", u"key");
    EXPECT_TRUE(unarchived(NSStringClass, &error).isNil());
    EXPECT_EQ(error.code(), CVLUserDefaultsArchivingNoDataErrorCode);
    EXPECT_THAT(m_lines, IsEmpty());
}

TEST_F(UserDefaultsArchiving, LogsWhatCannotBeRead)
{
    m_defaults.setObject(NSData{"no archive"}, u"key");
    NSError error;
    EXPECT_TRUE(unarchived(NSStringClass, &error).isNil());
    EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
    EXPECT_THAT(m_lines,
                ElementsAre("Error unarchiving defaults object key: " + error.localizedDescription()));
}

TEST_F(UserDefaultsArchiving, LogsAnObjectOfAnotherClass)
{
    EXPECT_TRUE(TSExtensions::archiveObject(m_defaults, NSAny::Array{1}, u"key"));
    EXPECT_TRUE(unarchived(NSStringClass).isNil());
    EXPECT_THAT(m_lines, ElementsAre(StartsWith("Error unarchiving defaults object key: ")));
}

// The domain and the code must both differ from those of a missing value for a line to be written.
TEST_F(UserDefaultsArchiving, LogsNoErrorOfTheSameCode)
{
    static const NSClass failing{"Failing", &NSObjectClass, [](NSCoder& coder) {
                                     coder.failWithError(NSError("AnotherDomain", 10001));
                                     return NSAny();
                                 }};

    class Failing final : public NSCoding {
    public:
        const NSClass& classForCoder() const override { return failing; }

        void encodeWithCoder(NSCoder& /*coder*/) const override { }
    };

    EXPECT_TRUE(TSExtensions::archiveObject(m_defaults, std::make_shared<const Failing>(), u"key"));
    const NSClassTable classes(foundationClasses(), {&failing});
    NSError error;
    EXPECT_TRUE(TSExtensions::unarchiveObjectOfClass(m_defaults, failing, u"key", classes, &error).isNil());
    EXPECT_EQ(error.domain(), "AnotherDomain");
    EXPECT_THAT(m_lines, IsEmpty());
}

} // namespace
