#include "platform/foundation/NSURLResourceValues.h"

#include "platform/foundation/NSFileWrapper.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <sys/xattr.h>

namespace {

constexpr const char* kHidden = "user.corvel.extension-hidden";
constexpr const char* kCreated = "user.corvel.creation-date";
constexpr const char* kPackage = "user.corvel.package";

class ResourceValues : public testing::Test {
protected:
    void SetUp() override
    {
        m_folder.write("a.txt", "contents");
        if (::setxattr(path().c_str(), "user.corvel.test", "1", 1, 0) != 0)
            GTEST_SKIP() << "the file system has no extended attributes";
    }

    [[nodiscard]] std::string path() const { return m_folder.file("a.txt"); }

    [[nodiscard]] NSURL url() const { return m_folder.url("a.txt"); }

    [[nodiscard]] const TemporaryFolder& folder() const { return m_folder; }

    void store(const char* name, const std::string& value) const
    {
        ASSERT_EQ(::setxattr(path().c_str(), name, value.data(), value.size(), 0), 0);
    }

    [[nodiscard]] std::string stored(const char* name) const
    {
        std::string value(100, '\0');
        const auto length = ::getxattr(path().c_str(), name, value.data(), value.size());
        value.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
        return length < 0 ? "none" : value;
    }

    [[nodiscard]] NSURLResourceValues values() const
    {
        return NSURLResourceValues::resourceValuesOfURL(url()).value();
    }

private:
    TemporaryFolder m_folder;
};

} // namespace

TEST_F(ResourceValues, ComeBackAsTheyWereSet)
{
    for (const bool flag : {true, false}) {
        const NSURLResourceValues set{flag, NSDate{-0.125}, flag};
        ASSERT_TRUE(set.setForURL(url()));
        EXPECT_EQ(values().hasHiddenExtension, flag);
        EXPECT_EQ(values().creationDate, NSDate{-0.125});
        EXPECT_EQ(values().isPackage, flag);
    }
}

TEST_F(ResourceValues, LieInExtendedAttributes)
{
    ASSERT_TRUE((NSURLResourceValues{true, NSDate{694224000.5}, false}.setForURL(url())));
    EXPECT_EQ(stored(kHidden), "1");
    EXPECT_EQ(stored(kCreated), "694224000.5");
    EXPECT_EQ(stored(kPackage), "0");
}

TEST_F(ResourceValues, ThatAreNotGivenStayAsTheyAre)
{
    ASSERT_TRUE((NSURLResourceValues{true, NSDate{1}, true}.setForURL(url())));
    ASSERT_TRUE(NSURLResourceValues().setForURL(url()));
    ASSERT_TRUE((NSURLResourceValues{std::nullopt, NSDate{2}, std::nullopt}.setForURL(url())));
    EXPECT_EQ(values().hasHiddenExtension, true);
    EXPECT_EQ(values().creationDate, NSDate{2});
    EXPECT_EQ(values().isPackage, true);
}

TEST_F(ResourceValues, OfAFileThatNobodySetThemFor)
{
    EXPECT_EQ(values().hasHiddenExtension, false);
    EXPECT_EQ(values().isPackage, std::nullopt);
}

TEST_F(ResourceValues, HaveTheFileSystemsCreationDateWhereNoneWasSet)
{
    const auto ofFileSystem = values().creationDate;
    if (!ofFileSystem)
        GTEST_SKIP() << "the file system keeps no creation dates";
    // A file of this test is younger than the first days of 2020.
    EXPECT_GT(ofFileSystem->timeIntervalSinceReferenceDate, 19.0 * 365 * 86400);
}

TEST_F(ResourceValues, TakeNoDateFromWhatIsNone)
{
    const auto ofFileSystem = values().creationDate;
    for (const auto* wrong : {"", "x", "1 ", "1x", "nan", "inf", "1e999", "--1"}) {
        store(kCreated, wrong);
        EXPECT_EQ(values().creationDate, ofFileSystem) << wrong;
    }
    store(kCreated, std::string(65, '1'));
    EXPECT_EQ(values().creationDate, ofFileSystem);
}

TEST_F(ResourceValues, TakeNoFlagFromWhatIsNone)
{
    for (const auto* wrong : {"", "0", "11", "yes"}) {
        store(kHidden, wrong);
        store(kPackage, wrong);
        EXPECT_EQ(values().hasHiddenExtension, false) << wrong;
        EXPECT_EQ(values().isPackage, false) << wrong;
    }
}

TEST_F(ResourceValues, OfAFolder)
{
    std::filesystem::create_directory(folder().file("Note"));
    const auto note = folder().url("Note");
    ASSERT_TRUE((NSURLResourceValues{std::nullopt, std::nullopt, true}.setForURL(note)));
    EXPECT_EQ(NSURLResourceValues::resourceValuesOfURL(note)->isPackage, true);
}

TEST_F(ResourceValues, OfNothingAreNone)
{
    NSError error;
    EXPECT_FALSE(NSURLResourceValues::resourceValuesOfURL(folder().url("missing"), &error));
    EXPECT_EQ(error.domain(), NSPOSIXErrorDomain);
    EXPECT_EQ(error.code(), ENOENT);
    EXPECT_FALSE(NSURLResourceValues::resourceValuesOfURL(folder().url("missing")));
}

TEST_F(ResourceValues, CannotBeSetForNothing)
{
    NSError error;
    EXPECT_FALSE((NSURLResourceValues{true, {}, {}}.setForURL(folder().url("missing"), &error)));
    EXPECT_EQ(error.code(), ENOENT);
    EXPECT_FALSE(NSURLResourceValues().setForURL(folder().url("missing")));
}

TEST_F(ResourceValues, OfALinkAreNotThoseOfWhatItPointsAt)
{
    std::filesystem::create_symlink(path(), folder().file("link"));
    NSError error;
    EXPECT_FALSE(NSURLResourceValues::resourceValuesOfURL(folder().url("link"), &error));
    EXPECT_EQ(error.code(), ELOOP);
    EXPECT_FALSE((NSURLResourceValues{true, {}, {}}.setForURL(folder().url("link"))));
    EXPECT_EQ(stored(kHidden), "none");
}

TEST_F(ResourceValues, AreTheAttributesOfAFileWrapper)
{
    ASSERT_TRUE((NSURLResourceValues{true, NSDate{12}, {}}.setForURL(url())));
    const auto file = NSFileWrapper::initWithURL(url(), NSFileWrapperReadingOptions::Immediate);
    EXPECT_EQ(file->fileAttributes().creationDate, NSDate{12});
    EXPECT_TRUE(file->fileAttributes().extensionHidden);
}
