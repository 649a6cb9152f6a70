#include "platform/foundation/NSUserDefaults.h"

#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSPropertyList.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <sys/stat.h>
#include <thread>

using testing::IsEmpty;

namespace {

class NSUserDefaultsTest : public testing::Test {
protected:
    NSUserDefaultsTest()
        : m_path(m_folder.file("corvel/defaults.plist"))
        , m_defaults(m_path)
    {
    }

    TemporaryFolder m_folder;
    std::string m_path;
    NSUserDefaults m_defaults;
};

TEST_F(NSUserDefaultsTest, HoldsNothingAtFirst)
{
    EXPECT_TRUE(m_defaults.objectForKey(u"key").isNil());
    EXPECT_FALSE(m_defaults.stringForKey(u"key"));
    EXPECT_FALSE(m_defaults.dataForKey(u"key"));
    EXPECT_FALSE(m_defaults.arrayForKey(u"key"));
    EXPECT_FALSE(m_defaults.dictionaryForKey(u"key"));
    EXPECT_FALSE(m_defaults.boolForKey(u"key"));
    EXPECT_EQ(m_defaults.integerForKey(u"key"), 0);
    EXPECT_EQ(m_defaults.doubleForKey(u"key"), 0.0);
    EXPECT_FALSE(std::filesystem::exists(m_folder.file("corvel")));
}

TEST_F(NSUserDefaultsTest, KeepsEveryKindOfValue)
{
    const NSAny::Dictionary values = {
        {u"array", NSAny::Array{1, u"two", 3.5}},
        {u"boolean", true},
        {u"data", NSData{std::string("\0\xFF", 2)}},
        {u"date", NSDate{86400.5}},
        {u"dictionary", NSAny::Dictionary{{u"inner", NSAny::Array{}}}},
        {u"integer", -7},
        {u"real", 0.25},
        {u"text", u"K\u00FCche \U0001F373"},
    };
    for (const auto& [key, value] : values)
        m_defaults.setObject(value, key);
    const NSUserDefaults later(m_path);
    for (const auto& [key, value] : values)
        EXPECT_EQ(later.objectForKey(key), value);
    EXPECT_EQ(later.arrayForKey(u"array"), *values.at(u"array").array());
    EXPECT_EQ(later.dictionaryForKey(u"dictionary"), *values.at(u"dictionary").dictionary());
    EXPECT_EQ(later.dataForKey(u"data"), *values.at(u"data").data());
    EXPECT_TRUE(later.boolForKey(u"boolean"));
    EXPECT_EQ(later.integerForKey(u"integer"), -7);
    EXPECT_EQ(later.doubleForKey(u"real"), 0.25);
    EXPECT_EQ(later.stringForKey(u"text"), u"K\u00FCche \U0001F373");
}

TEST_F(NSUserDefaultsTest, ReadsNumbersAsTextsAndTextsAsNumbers)
{
    m_defaults.setObject(42, u"integer");
    m_defaults.setObject(0.5, u"real");
    m_defaults.setObject(u"17 items", u"text");
    m_defaults.setObject(u"YES", u"yes");
    EXPECT_EQ(m_defaults.stringForKey(u"integer"), u"42");
    EXPECT_EQ(m_defaults.stringForKey(u"real"), u"0.5");
    EXPECT_EQ(m_defaults.integerForKey(u"text"), 17);
    EXPECT_TRUE(m_defaults.boolForKey(u"yes"));
    EXPECT_FALSE(m_defaults.arrayForKey(u"text"));
    EXPECT_FALSE(m_defaults.dataForKey(u"text"));
}

TEST_F(NSUserDefaultsTest, PutsWhatWasSetBeforeWhatIsRegistered)
{
    m_defaults.registerDefaults({{u"size", 12}, {u"name", u"Body"}});
    EXPECT_EQ(m_defaults.integerForKey(u"size"), 12);
    m_defaults.setObject(17, u"size");
    EXPECT_EQ(m_defaults.integerForKey(u"size"), 17);
    m_defaults.removeObjectForKey(u"size");
    EXPECT_EQ(m_defaults.integerForKey(u"size"), 12);
    m_defaults.registerDefaults({{u"size", 13}});
    EXPECT_EQ(m_defaults.integerForKey(u"size"), 13);
    EXPECT_EQ(m_defaults.stringForKey(u"name"), u"Body");
    EXPECT_TRUE(NSUserDefaults(m_path).objectForKey(u"name").isNil());
}

TEST_F(NSUserDefaultsTest, RemovesAKeyThatIsSetToNil)
{
    m_defaults.setObject(1, u"key");
    m_defaults.setObject(nullptr, u"key");
    EXPECT_TRUE(m_defaults.objectForKey(u"key").isNil());
    EXPECT_TRUE(NSUserDefaults(m_path).objectForKey(u"key").isNil());
}

TEST_F(NSUserDefaultsTest, MakesNoFileToRemoveAKey)
{
    m_defaults.removeObjectForKey(u"key");
    EXPECT_FALSE(std::filesystem::exists(m_path));
    EXPECT_TRUE(m_defaults.synchronize());
}

TEST_F(NSUserDefaultsTest, LogsAndLeavesOutWhatIsNoPropertyListValue)
{
    std::vector<std::string> lines;
    const NSLogCapture log([&](std::string_view line) { lines.emplace_back(line); });
    m_defaults.setObject(NSURL::fileURLWithPath("/tmp"), u"folder");
    m_defaults.setObject(NSAny::Array{nullptr}, u"hole");
    EXPECT_EQ(lines.size(), 2U);
    EXPECT_THAT(lines[0], testing::StartsWith("The user default folder was not set: "));
    EXPECT_TRUE(m_defaults.objectForKey(u"folder").isNil());
    m_defaults.setObject(1, u"key");
    EXPECT_TRUE(m_defaults.synchronize());
}

TEST_F(NSUserDefaultsTest, SeesWhatOthersWroteAndKeepsTheirKeys)
{
    NSUserDefaults other(m_path);
    m_defaults.setObject(1, u"mine");
    EXPECT_EQ(other.integerForKey(u"mine"), 1);
    other.setObject(2, u"theirs");
    EXPECT_EQ(m_defaults.integerForKey(u"theirs"), 2);
    m_defaults.setObject(3, u"mine");
    EXPECT_EQ(other.integerForKey(u"mine"), 3);
    EXPECT_EQ(other.integerForKey(u"theirs"), 2);
    std::filesystem::remove(m_path);
    EXPECT_TRUE(other.objectForKey(u"mine").isNil());
}

TEST_F(NSUserDefaultsTest, LosesNoKeyToSeveralWriters)
{
    constexpr int kKeys = 25;
    const auto write = [&](char16_t writer) {
        NSUserDefaults defaults(m_path);
        for (int number = 0; number < kKeys; ++number)
            defaults.setObject(number, std::u16string{writer, static_cast<char16_t>(u'a' + number)});
    };
    {
        std::vector<std::jthread> writers;
        for (const char16_t writer : {u'1', u'2', u'3', u'4'})
            writers.emplace_back(write, writer);
    }
    for (const char16_t writer : {u'1', u'2', u'3', u'4'})
        for (int number = 0; number < kKeys; ++number)
            EXPECT_EQ(m_defaults.objectForKey(std::u16string{writer, static_cast<char16_t>(u'a' + number)}),
                      NSAny(number));
}

TEST_F(NSUserDefaultsTest, ServesSeveralThreads)
{
    {
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < 4; ++thread)
            threads.emplace_back([&] {
                for (int count = 0; count < 50; ++count) {
                    m_defaults.setObject(count, u"key");
                    EXPECT_TRUE(m_defaults.objectForKey(u"key").isNumber());
                }
            });
    }
    EXPECT_EQ(m_defaults.integerForKey(u"key"), 49);
}

TEST_F(NSUserDefaultsTest, ReadsAFileInXML)
{
    (void)m_folder.write(
        "corvel/defaults.plist",
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<plist version=\"1.0\"><dict><key>size</key><integer>13</integer></dict></plist>\n");
    EXPECT_EQ(m_defaults.integerForKey(u"size"), 13);
}

TEST_F(NSUserDefaultsTest, IsReadableByItsOwnerOnly)
{
    m_defaults.setObject(1, u"key");

    struct stat status { };

    ASSERT_EQ(::stat(m_path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    ASSERT_EQ(::stat(m_folder.file("corvel").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST_F(NSUserDefaultsTest, CanStandInForTheStandardDefaults)
{
    const auto* standard = &NSUserDefaults::standardUserDefaults();
    {
        const NSUserDefaultsReplacement replacement(m_defaults);
        EXPECT_EQ(&NSUserDefaults::standardUserDefaults(), &m_defaults);
    }
    EXPECT_EQ(&NSUserDefaults::standardUserDefaults(), standard);
}

TEST(NSUserDefaults, RefusesToWriteWithoutAPath)
{
    const NSLogCapture log([](std::string_view) {});
    NSUserDefaults defaults("");
    defaults.setObject(1, u"key");
    EXPECT_EQ(defaults.integerForKey(u"key"), 1);
    NSError error;
    EXPECT_FALSE(defaults.synchronize(&error));
    EXPECT_THAT(error.localizedDescription(), testing::HasSubstr("XDG_CONFIG_HOME"));
}

} // namespace
