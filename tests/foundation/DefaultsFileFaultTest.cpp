#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/foundation/NSUserDefaults.h"
#include "tests/foundation/FailingOperations.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <csignal>
#include <fcntl.h>
#include <sstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr std::string_view kDamage = "bplist00 and nothing that follows from it";

class DefaultsFileFault : public testing::Test {
protected:
    DefaultsFileFault()
        : m_path(m_folder.file("defaults.plist"))
        , m_log([this](std::string_view line) { m_lines.emplace_back(line); })
    {
    }

    [[nodiscard]] NSAny storedValue(std::u16string_view key) const
    {
        return NSUserDefaults(m_path).objectForKey(key);
    }

    /// The files in the folder whose name goes on so after that of the defaults.
    [[nodiscard]] std::vector<std::string> filesNamed(std::string_view suffix) const
    {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.path()))
            if (entry.path().filename().native().starts_with("defaults.plist" + std::string(suffix)))
                found.push_back(entry.path().native());
        return found;
    }

    [[nodiscard]] static std::string contentsOf(const std::string& path)
    {
        std::ostringstream text;
        text << std::ifstream(path).rdbuf();
        return text.str();
    }

    TemporaryFolder m_folder;
    std::string m_path;
    std::vector<std::string> m_lines;
    NSLogCapture m_log;
};

TEST_F(DefaultsFileFault, KeepsTheValueInMemoryWhenAnyCallFails)
{
    bool isFailing = true;
    for (int call = 1; isFailing; ++call) {
        NSUserDefaults(m_path).setObject(u"old", u"key");
        m_lines.clear();
        FailingOperations operations(call);
        NSUserDefaults defaults(m_path, operations);
        defaults.setObject(u"new", u"key");
        isFailing = operations.callCount() >= call;
        EXPECT_THAT(m_lines, SizeIs(isFailing ? 1 : 0)) << call;
        EXPECT_EQ(defaults.objectForKey(u"key"), NSAny(u"new")) << call;
        EXPECT_THAT(storedValue(u"key"), AnyOf(NSAny(u"old"), NSAny(u"new"))) << call;
        EXPECT_TRUE(defaults.synchronize()) << call;
        EXPECT_EQ(storedValue(u"key"), NSAny(u"new")) << call;
        ASSERT_LT(call, 20);
    }
}

TEST_F(DefaultsFileFault, IsOldOrNewWhereverAProcessIsKilled)
{
    bool isKilled = true;
    for (int call = 1; isKilled; ++call) {
        NSUserDefaults(m_path).setObject(u"old", u"key");
        const pid_t child = ::fork();
        if (child == 0) {
            FailingOperations operations(call, [] { (void)::raise(SIGKILL); });
            NSUserDefaults(m_path, operations).setObject(u"new", u"key");
            ::_exit(0);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        isKilled = WIFSIGNALED(status);
        EXPECT_THAT(storedValue(u"key"), AnyOf(NSAny(u"old"), NSAny(u"new"))) << call;
        // Neither the lock nor the half-written file of the dead process is in the way.
        NSUserDefaults defaults(m_path);
        defaults.setObject(u"newer", u"key");
        EXPECT_TRUE(defaults.synchronize()) << call;
        ASSERT_LT(call, 20);
    }
    EXPECT_THAT(m_lines, IsEmpty());
}

TEST_F(DefaultsFileFault, KeepsValuesInMemoryWhileTheFolderCannotBeWritten)
{
    // A file where the folder should be: not even root can write there.
    (void)m_folder.write("blocked", "");
    NSUserDefaults defaults(m_folder.file("blocked/defaults.plist"));
    m_lines.clear();
    defaults.setObject(1, u"key");
    defaults.setObject(2, u"other");
    EXPECT_THAT(m_lines, testing::Contains(testing::StartsWith("The user default key was not written: ")));
    EXPECT_EQ(defaults.integerForKey(u"key"), 1);
    NSError error;
    EXPECT_FALSE(defaults.synchronize(&error));
    EXPECT_EQ(error.domain(), NSPOSIXErrorDomain);

    std::filesystem::remove(m_folder.file("blocked"));
    EXPECT_TRUE(defaults.synchronize());
    const NSUserDefaults later(m_folder.file("blocked/defaults.plist"));
    EXPECT_EQ(later.integerForKey(u"key"), 1);
    EXPECT_EQ(later.integerForKey(u"other"), 2);
}

TEST_F(DefaultsFileFault, TakesADamagedFileForEmptyAndSaysSoOnce)
{
    (void)m_folder.write("defaults.plist", kDamage);
    NSUserDefaults defaults(m_path);
    defaults.registerDefaults({{u"key", 12}});
    EXPECT_EQ(defaults.integerForKey(u"key"), 12);
    EXPECT_EQ(defaults.integerForKey(u"key"), 12);
    EXPECT_THAT(m_lines, ElementsAre(HasSubstr("damaged and taken for empty: " + m_path)));
    EXPECT_EQ(contentsOf(m_path), kDamage);
}

TEST_F(DefaultsFileFault, KeepsADamagedFileBesideTheNewOne)
{
    (void)m_folder.write("defaults.plist", kDamage);
    NSUserDefaults(m_path).setObject(1, u"key");
    EXPECT_EQ(storedValue(u"key"), NSAny(1));
    const auto kept = filesNamed(".damaged-");
    ASSERT_THAT(kept, SizeIs(1));
    EXPECT_EQ(contentsOf(kept[0]), kDamage);
    EXPECT_THAT(m_lines, testing::Contains("The damaged user defaults are kept as " + kept[0]));
}

TEST_F(DefaultsFileFault, NeverLosesADamagedFile)
{
    bool isFailing = true;
    for (int call = 1; isFailing; ++call) {
        const TemporaryFolder folder;
        const auto path = folder.write("defaults.plist", kDamage);
        FailingOperations operations(call);
        NSUserDefaults(path, operations).setObject(1, u"key");
        isFailing = operations.callCount() >= call;
        int copies = 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            copies += contentsOf(entry.path().native()) == kDamage ? 1 : 0;
        EXPECT_EQ(copies, 1) << call;
        ASSERT_LT(call, 20);
    }
}

TEST_F(DefaultsFileFault, TakesAListThatIsNoDictionaryForDamaged)
{
    const auto list
        = NSPropertyListSerialization::dataWithPropertyList(NSAny::Array{1}, NSPropertyListFormat::Binary);
    (void)m_folder.write("defaults.plist", list.value().bytes);
    EXPECT_TRUE(storedValue(u"key").isNil());
    EXPECT_THAT(m_lines, ElementsAre(HasSubstr("no dictionary")));
}

TEST_F(DefaultsFileFault, SurvivesEveryTruncation)
{
    NSUserDefaults(m_path).setObject(NSAny::Array{u"one", 2}, u"key");
    const auto bytes = contentsOf(m_path);
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        (void)m_folder.write("defaults.plist", bytes.substr(0, length));
        EXPECT_TRUE(storedValue(u"key").isNil()) << length;
    }
}

TEST_F(DefaultsFileFault, NeverWritesOverWhatItCannotRead)
{
    // A folder can be opened and not be read, whoever asks.
    std::filesystem::create_directory(m_path);
    NSUserDefaults defaults(m_path);
    defaults.setObject(1, u"key");
    EXPECT_TRUE(std::filesystem::is_directory(m_path));
    EXPECT_EQ(defaults.integerForKey(u"key"), 1);
    NSError error;
    EXPECT_FALSE(defaults.synchronize(&error));
    EXPECT_EQ(error.code(), EISDIR);
}

} // namespace
