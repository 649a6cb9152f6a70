#include "platform/foundation/NSFileWrapper.h"

#include "platform/foundation/FoundationClasses.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"

#include <gtest/gtest.h>

#include <string>

namespace {

NSFileWrapper::Ref file(const std::string& contents, const std::u16string& name)
{
    auto wrapper = NSFileWrapper::initRegularFileWithContents({contents});
    wrapper->setPreferredFilename(name);
    return wrapper;
}

} // namespace

TEST(NSFileWrapper, IsOfOneOfThreeKinds)
{
    const auto regular = NSFileWrapper::initRegularFileWithContents({"bytes"});
    EXPECT_TRUE(regular->isRegularFile());
    EXPECT_EQ(regular->regularFileContents()->bytes, "bytes");
    EXPECT_TRUE(regular->fileWrappers().empty());
    EXPECT_EQ(regular->symbolicLinkDestinationURL(), std::nullopt);

    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    EXPECT_TRUE(folder->isDirectory());
    EXPECT_EQ(folder->regularFileContents(), nullptr);

    const auto link
        = NSFileWrapper::initSymbolicLinkWithDestinationURL(NSURL::fileURLWithPath("/some/where"));
    EXPECT_TRUE(link->isSymbolicLink());
    EXPECT_EQ(link->regularFileContents(), nullptr);
    EXPECT_EQ(link->symbolicLinkDestination(), "/some/where");
    EXPECT_EQ(link->symbolicLinkDestinationURL(), NSURL::fileURLWithPath("/some/where"));
}

TEST(NSFileWrapper, KeepsItsKindWhateverItsAttributesSay)
{
    const auto regular = NSFileWrapper::initRegularFileWithContents({});
    NSFileAttributes attributes;
    attributes.fileType = NSFileType::Directory;
    attributes.extensionHidden = true;
    regular->setFileAttributes(attributes);
    EXPECT_TRUE(regular->isRegularFile());
    EXPECT_TRUE(regular->fileAttributes().extensionHidden);
}

TEST(NSFileWrapper, HoldsMembersUnderTheirNames)
{
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    const auto member = file("one", u"a.txt");
    EXPECT_EQ(folder->addFileWrapper(member), u"a.txt");
    EXPECT_EQ(folder->fileWrapperForKey(u"a.txt"), member);
    EXPECT_EQ(folder->keyForFileWrapper(*member), u"a.txt");
    EXPECT_EQ(folder->addRegularFileWithContents({"two"}, u"b.txt"), u"b.txt");
    EXPECT_EQ(folder->fileWrapperForKey(u"b.txt")->regularFileContents()->bytes, "two");
    EXPECT_EQ(folder->fileWrappers().size(), 2U);
}

TEST(NSFileWrapper, NumbersMembersWhoseNameIsTaken)
{
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    EXPECT_EQ(folder->addFileWrapper(file("1", u"a.txt")), u"a.txt");
    const auto second = file("2", u"a.txt");
    EXPECT_EQ(folder->addFileWrapper(second), u"1__#$!@%!#__a.txt");
    EXPECT_EQ(folder->addFileWrapper(file("3", u"a.txt")), u"2__#$!@%!#__a.txt");
    EXPECT_EQ(second->preferredFilename(), u"a.txt");
    EXPECT_EQ(folder->fileWrapperForKey(u"a.txt")->regularFileContents()->bytes, "1");
}

TEST(NSFileWrapper, GivesTheFirstNumberThatIsFree)
{
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->addFileWrapper(file("x", u"2__#$!@%!#__a"));
    folder->addFileWrapper(file("x", u"a"));
    const auto first = file("1", u"a");
    EXPECT_EQ(folder->addFileWrapper(first), u"1__#$!@%!#__a");
    EXPECT_EQ(folder->addFileWrapper(file("3", u"a")), u"3__#$!@%!#__a");
    EXPECT_EQ(folder->addFileWrapper(file("x", u"b")), u"b");
    EXPECT_EQ(folder->addFileWrapper(file("x", u"b")), u"1__#$!@%!#__b");
    folder->removeFileWrapper(*first);
    EXPECT_EQ(folder->addFileWrapper(file("1", u"a")), u"1__#$!@%!#__a");
    EXPECT_EQ(folder->addFileWrapper(file("4", u"a")), u"4__#$!@%!#__a");
}

// Within the time that a test may take only while each number is not looked for from the first one on.
TEST(NSFileWrapper, NumbersManyMembersOfOneName)
{
    constexpr std::size_t kMemberCount = 100'000;
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    const auto member = file("x", u"a");
    for (std::size_t count = 0; count < kMemberCount; ++count)
        folder->addFileWrapper(member);
    EXPECT_EQ(folder->fileWrappers().size(), kMemberCount);
    EXPECT_NE(folder->fileWrapperForKey(u"99999__#$!@%!#__a"), nullptr);
}

TEST(NSFileWrapper, RefusesMembersWithoutAUsableName)
{
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    EXPECT_EQ(folder->addFileWrapper(NSFileWrapper::initRegularFileWithContents({})), u"");
    for (const std::u16string name : {u"", u".", u"..", u"a/b", u"../up"})
        EXPECT_EQ(folder->addFileWrapper(file("x", name)), u"");
    EXPECT_TRUE(folder->fileWrappers().empty());
    EXPECT_EQ(file("x", u"x")->addFileWrapper(file("y", u"y")), u"");
}

TEST(NSFileWrapper, ForgetsMembersThatAreRemoved)
{
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    const auto member = file("1", u"a");
    folder->addFileWrapper(member);
    folder->addFileWrapper(member);
    folder->addFileWrapper(file("1", u"b"));
    folder->removeFileWrapper(*member);
    EXPECT_EQ(folder->keyForFileWrapper(*member), std::nullopt);
    ASSERT_EQ(folder->fileWrappers().size(), 1U);
    EXPECT_NE(folder->fileWrapperForKey(u"b"), nullptr);
}

TEST(NSFileWrapper, GivesMembersTheirKeysForNames)
{
    const auto nameless = NSFileWrapper::initRegularFileWithContents({});
    const auto named = file("", u"own");
    (void)NSFileWrapper::initDirectoryWithFileWrappers({{u"key", nameless}, {u"other", named}});
    EXPECT_EQ(nameless->preferredFilename(), u"key");
    EXPECT_EQ(named->preferredFilename(), u"own");
}

TEST(NSFileWrapper, KeepsRelativeLinksRelative)
{
    const auto link
        = NSFileWrapper::initSymbolicLinkWithDestinationURL(NSURL::URLWithString("../a%20b/c").value());
    EXPECT_EQ(link->symbolicLinkDestination(), "../a b/c");
    EXPECT_EQ(link->symbolicLinkDestinationURL()->absoluteString(), "../a%20b/c");
}

TEST(NSFileWrapper, GoesThroughAnArchive)
{
    const auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->setPreferredFilename(u"Pack.age");
    folder->addFileWrapper(file("bytes", u"caf\u00E9.txt"));
    NSError error;
    const auto data = NSKeyedArchiver::archivedDataWithRootObject(folder, true, &error);
    ASSERT_TRUE(data) << error.localizedDescription();
    const auto read = NSKeyedUnarchiver::unarchivedObjectOfClass(NSFileWrapper::classObject(), data->bytes,
                                                                 foundationClasses(), &error)
                          .mutableObject<NSFileWrapper>();
    ASSERT_TRUE(read) << error.localizedDescription();
    EXPECT_EQ(read->preferredFilename(), u"Pack.age");
    ASSERT_NE(read->fileWrapperForKey(u"caf\u00E9.txt"), nullptr);
    EXPECT_EQ(read->fileWrapperForKey(u"caf\u00E9.txt")->regularFileContents()->bytes, "bytes");
}
