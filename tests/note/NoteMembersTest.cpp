#include "note/NoteMembers.h"

#include "tests/note/NotePackages.h"
#include "tests/support/OrdinaryUser.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <sys/stat.h>

using testing::HasSubstr;
using State = NoteMembers::State;

namespace {

constexpr std::size_t kMost = 100;

class NoteMembersTest : public testing::Test {
protected:
    [[nodiscard]] const TemporaryFolder& folder() const { return m_folder; }

    [[nodiscard]] NoteMembers members() const
    {
        return NoteMembers::createWithURL(m_folder.url("a.cvlnote")).value();
    }

    [[nodiscard]] std::string path(const std::string& name) const
    {
        return m_folder.file("a.cvlnote/" + name);
    }

    void write(const std::string& name, std::string_view bytes) const
    {
        m_folder.write("a.cvlnote/" + name, bytes);
    }

    [[nodiscard]] const std::string& log() const { return m_log.text(); }

private:
    TemporaryFolder m_folder;
    LogLines m_log;
};

} // namespace

TEST_F(NoteMembersTest, AreThoseOfAFolderOnly)
{
    folder().write("file", "x");
    std::filesystem::create_directory(folder().file("real"));
    std::filesystem::create_directory_symlink("real", folder().file("link"));
    for (const auto* name : {"file", "link", "missing"})
        EXPECT_FALSE(NoteMembers::createWithURL(folder().url(name))) << name;
    EXPECT_TRUE(NoteMembers::createWithURL(folder().url("real")));
}

TEST_F(NoteMembersTest, AreReadUpToTheirBound)
{
    write("member", std::string(kMost, 'x'));
    const auto member = members().read(u"member", kMost);
    EXPECT_EQ(member.state, State::Read);
    EXPECT_EQ(member.bytes, std::string(kMost, 'x'));
    EXPECT_EQ(log(), "");
    EXPECT_EQ(members().read(u"member", kMost - 1).state, State::TooLarge);
    EXPECT_EQ(members().read(u"member", kMost - 1).bytes, "");
    EXPECT_THAT(log(), HasSubstr("a.cvlnote/member is too large for its text to be read"));
}

TEST_F(NoteMembersTest, MayBeAbsentOrNoFile)
{
    write("file", "x");
    std::filesystem::create_directory(path("folder"));
    std::filesystem::create_symlink("file", path("link"));
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(members().read(u"missing", kMost).state, State::Absent);
    for (const auto* name : {u"folder", u"link", u"pipe"})
        EXPECT_EQ(members().read(name, kMost).state, State::NoFile);
    EXPECT_EQ(log(), "");
}

TEST_F(NoteMembersTest, ThatCannotBeReadAreNotAbsent)
{
    const OrdinaryUser user;
    const TemporaryFolder own;
    own.write("a.cvlnote/member", "x");
    std::filesystem::permissions(own.file("a.cvlnote/member"), std::filesystem::perms(0));
    const auto members = NoteMembers::createWithURL(own.url("a.cvlnote"));
    ASSERT_TRUE(members);
    EXPECT_EQ(members->read(u"member", kMost).state, State::Unreadable);
    EXPECT_THAT(log(), HasSubstr("a.cvlnote/member cannot be read: Permission denied"));
}

TEST_F(NoteMembersTest, AreReadInAFolderWhoseNamesCannotBe)
{
    const OrdinaryUser user;
    const TemporaryFolder own;
    own.write("a.cvlnote/member", "x");
    std::filesystem::permissions(own.file("a.cvlnote"), std::filesystem::perms(0300));
    const auto members = NoteMembers::createWithURL(own.url("a.cvlnote"));
    ASSERT_TRUE(members);
    EXPECT_EQ(members->read(u"member", kMost).bytes, "x");
    EXPECT_FALSE(members->packageWithContents(u"member", {State::Read, "x"}));
    EXPECT_THAT(log(), HasSubstr("a.cvlnote cannot be read: Permission denied"));
    std::filesystem::permissions(own.file("a.cvlnote"), std::filesystem::perms(0700));
}

TEST_F(NoteMembersTest, StandForTheOthersWithoutTheirContents)
{
    write("file", "contents");
    write("member", "contents");
    write("folder/inner", "contents");
    std::filesystem::create_symlink("file", path("link"));
    const auto package = members().packageWithContents(u"member", {State::Read, "read"});
    ASSERT_TRUE(package);
    EXPECT_EQ(package->fileWrappers().size(), 4U);
    EXPECT_EQ(package->fileWrapperForKey(u"member")->regularFileContents()->bytes, "read");
    EXPECT_EQ(package->fileWrapperForKey(u"file")->regularFileContents()->bytes, "");
    EXPECT_TRUE(package->fileWrapperForKey(u"folder")->isDirectory());
    EXPECT_TRUE(package->fileWrapperForKey(u"folder")->fileWrappers().empty());
    EXPECT_TRUE(package->fileWrapperForKey(u"link")->isSymbolicLink());
}

TEST_F(NoteMembersTest, AreEmptyThemselvesWhenTheyWereNotRead)
{
    std::filesystem::create_directories(path("member"));
    const auto package = members().packageWithContents(u"member", members().read(u"member", kMost));
    ASSERT_TRUE(package);
    EXPECT_TRUE(package->fileWrapperForKey(u"member")->isDirectory());
}
