#include "platform/foundation/NSLog.h"
#include "tests/search/IndexFixture.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class SKIndexTest : public IndexFixture {
protected:
    [[nodiscard]] std::vector<std::string> childNames(std::string_view path) const
    {
        std::vector<std::string> names;
        const auto iterator = m_index->documentIterator(document(path));
        while (const auto next = iterator->copyNext())
            names.push_back(next->name().value_or("(none)"));
        return names;
    }
};

TEST_F(SKIndexTest, IsMadeForItsOwnerOnly)
{
    struct stat status { };

    ASSERT_EQ(::stat(indexPath().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    EXPECT_EQ(m_index->documentCount(), 0);
    EXPECT_EQ(m_index->maximumDocumentID(), 0);
    EXPECT_EQ(m_index->formatVersion(), 1);
}

TEST_F(SKIndexTest, IsNotMadeOverAnExistingFile)
{
    NSError error;
    EXPECT_FALSE(SKIndex::createWithURL(indexURL(), &error));
    EXPECT_NE(error.localizedDescription().find("File exists"), std::string::npos);
    EXPECT_FALSE(SKIndex::createWithURL(m_folder.url("no/such/folder"), &error));
}

TEST_F(SKIndexTest, FindsWhatWasAddedWithText)
{
    ASSERT_TRUE(add("/library/one.txt", "Sailing to Byzantium"));
    ASSERT_TRUE(m_index->flush());
    EXPECT_EQ(found("sailing"), (Paths{"/library/one.txt"}));
    EXPECT_EQ(m_index->documentCount(), 1);
    EXPECT_EQ(m_index->documentState(document("/library/one.txt")), SKDocumentState::Indexed);
    EXPECT_EQ(m_index->documentState(document("/library")), SKDocumentState::NotIndexed);
    EXPECT_EQ(m_index->copyDocumentText(document("/library/one.txt")), "Sailing to Byzantium");
}

TEST_F(SKIndexTest, KnowsDocumentsByIdentifier)
{
    ASSERT_TRUE(add("/a", "x"));
    ASSERT_TRUE(add("/b", "x"));
    EXPECT_EQ(m_index->documentID(document("/b")), 2);
    EXPECT_EQ(m_index->copyDocumentForDocumentID(2)->URL().path(), "/b");
    EXPECT_FALSE(m_index->copyDocumentForDocumentID(3));
    EXPECT_EQ(m_index->documentID(document("/c")), std::nullopt);
    EXPECT_EQ(m_index->copyDocumentText(document("/c")), std::nullopt);
}

TEST_F(SKIndexTest, ReplacesAsAWholeAndKeepsChildren)
{
    ASSERT_TRUE(add("/mail.eml", "first version"));
    ASSERT_TRUE(m_index->addDocumentWithText(child("/mail.eml", "a.txt"), "attached", SKReplace::Yes));
    ASSERT_TRUE(add("/mail.eml", "second"));
    EXPECT_EQ(found("version"), Paths());
    EXPECT_EQ(found("second"), (Paths{"/mail.eml"}));
    EXPECT_EQ(found("attached"), (Paths{"/mail.eml/a.txt"}));
    EXPECT_EQ(m_index->documentCount(), 2);
    EXPECT_EQ(m_index->documentID(document("/mail.eml")), 1);
    expectSound();
}

TEST_F(SKIndexTest, DoesNotReplaceWhereItMayNot)
{
    ASSERT_TRUE(add("/a", "first"));
    EXPECT_FALSE(m_index->addDocumentWithText(document("/a"), "second", SKReplace::No));
    EXPECT_EQ(found("first"), (Paths{"/a"}));
}

TEST_F(SKIndexTest, GivesIdentifiersThatOnlyGrow)
{
    ASSERT_TRUE(add("/a", "x"));
    ASSERT_TRUE(add("/b", "x"));
    ASSERT_TRUE(m_index->removeDocument(document("/b")));
    EXPECT_EQ(m_index->maximumDocumentID(), 2);
    ASSERT_TRUE(add("/c", "x"));
    EXPECT_EQ(m_index->documentID(document("/c")), 3);
    EXPECT_EQ(m_index->documentCount(), 2);
}

TEST_F(SKIndexTest, RemovesADocumentWithItsChildren)
{
    ASSERT_TRUE(add("/mail.eml", "letter"));
    ASSERT_TRUE(m_index->addDocumentWithText(child("/mail.eml", "a.txt"), "attached", SKReplace::Yes));
    ASSERT_TRUE(add("/other", "letter"));
    EXPECT_TRUE(m_index->removeDocument(document("/mail.eml")));
    EXPECT_FALSE(m_index->removeDocument(document("/mail.eml")));
    EXPECT_EQ(found("letter OR attached"), (Paths{"/other"}));
    EXPECT_EQ(m_index->documentCount(), 1);
    expectSound();
}

TEST_F(SKIndexTest, RemovesAFolderThatIsNoDocument)
{
    ASSERT_TRUE(add("/library/notes/a", "word"));
    ASSERT_TRUE(add("/library/notes/deep/b", "word"));
    ASSERT_TRUE(add("/library/c", "word"));
    EXPECT_TRUE(m_index->removeDocument(document("/library/notes")));
    EXPECT_EQ(found("word"), (Paths{"/library/c"}));
    expectSound();
}

TEST_F(SKIndexTest, RenamesInPlace)
{
    ASSERT_TRUE(add("/library/old.txt", "word"));
    ASSERT_TRUE(m_index->addDocumentWithText(child("/library/old.txt", "part"), "inner", SKReplace::Yes));
    EXPECT_TRUE(m_index->renameDocument(document("/library/old.txt"), "fresh.txt"));
    EXPECT_EQ(found("word"), (Paths{"/library/fresh.txt"}));
    EXPECT_EQ(found("inner"), (Paths{"/library/fresh.txt/part"}));
    EXPECT_EQ(found("fresh"), (Paths{"/library/fresh.txt"}));
    EXPECT_EQ(found("old"), Paths());
    EXPECT_EQ(m_index->documentID(document("/library/fresh.txt")), 1);
    expectSound();
}

TEST_F(SKIndexTest, RefusesNamesThatAreNone)
{
    ASSERT_TRUE(add("/a", "x"));
    for (const auto* name : {"", ".", "..", "a/b"})
        EXPECT_FALSE(m_index->renameDocument(document("/a"), name)) << name;
    EXPECT_FALSE(m_index->renameDocument(document("/not-there"), "b"));
    EXPECT_TRUE(m_index->renameDocument(document("/a"), "a"));
}

TEST_F(SKIndexTest, RenamingOntoANameReplacesWhatHadItWithItsChildren)
{
    ASSERT_TRUE(add("/l/a", "mine"));
    ASSERT_TRUE(add("/l/b", "theirs"));
    ASSERT_TRUE(m_index->addDocumentWithText(child("/l/b", "part"), "inner", SKReplace::Yes));
    EXPECT_TRUE(m_index->renameDocument(document("/l/a"), "b"));
    EXPECT_EQ(found("mine OR theirs OR inner"), (Paths{"/l/b"}));
    EXPECT_EQ(m_index->documentCount(), 1);
    expectSound();
}

TEST_F(SKIndexTest, MovesWithAllBeneath)
{
    ASSERT_TRUE(add("/from/dir/a", "word"));
    ASSERT_TRUE(add("/from/dir/sub/b", "word"));
    EXPECT_TRUE(m_index->moveDocument(document("/from/dir"), document("/to/new")));
    EXPECT_EQ(found("word"), (Paths{"/to/new/dir/a", "/to/new/dir/sub/b"}));
    expectSound();
}

TEST_F(SKIndexTest, MovingOntoANameReplacesWhatHadIt)
{
    ASSERT_TRUE(add("/from/a", "mine"));
    ASSERT_TRUE(add("/to/a", "theirs"));
    EXPECT_TRUE(m_index->moveDocument(document("/from/a"), document("/to")));
    EXPECT_EQ(found("mine OR theirs"), (Paths{"/to/a"}));
    EXPECT_EQ(found("theirs"), Paths());
    expectSound();
}

TEST_F(SKIndexTest, MovesAFolderOntoOneThatHoldsTheDestination)
{
    ASSERT_TRUE(add("/a/x/x/1", "inner"));
    ASSERT_TRUE(add("/a/x/2", "outer"));
    EXPECT_TRUE(m_index->moveDocument(document("/a/x/x"), document("/a")));
    EXPECT_EQ(found("inner"), (Paths{"/a/x/1"}));
    EXPECT_EQ(found("outer"), Paths());
    expectSound();
}

TEST_F(SKIndexTest, RefusesMovesThatCannotBe)
{
    ASSERT_TRUE(add("/a/b", "x"));
    EXPECT_FALSE(m_index->moveDocument(document("/not-there"), document("/a")));
    EXPECT_FALSE(m_index->moveDocument(document("/a"), document("/a")));
    EXPECT_FALSE(m_index->moveDocument(document("/a"), document("/a/b")));
    EXPECT_FALSE(m_index->moveDocument(document("/a"), document("/a/not/yet/there")));
    EXPECT_TRUE(m_index->moveDocument(document("/a/b"), document("/a")));
    EXPECT_EQ(found("x"), (Paths{"/a/b"}));
    expectSound();
}

TEST_F(SKIndexTest, ListsTheDocumentsDirectlyBeneathOne)
{
    ASSERT_TRUE(add("/p", "x"));
    for (const auto* name : {"b", "a", ""})
        ASSERT_TRUE(m_index->addDocumentWithText(child("/p", name), "x", SKReplace::Yes));
    ASSERT_TRUE(add("/p/folder/deep", "x"));
    EXPECT_EQ(childNames("/p"), (std::vector<std::string>{"(none)", "a", "b"}));
    EXPECT_EQ(childNames("/q"), std::vector<std::string>());
}

TEST_F(SKIndexTest, RemovesAChildWithoutName)
{
    ASSERT_TRUE(add("/p", "x"));
    ASSERT_TRUE(m_index->addDocumentWithText(child("/p", ""), "nameless", SKReplace::Yes));
    EXPECT_TRUE(m_index->removeDocument(m_index->documentIterator(document("/p"))->copyNext()));
    EXPECT_EQ(found("nameless"), Paths());
    EXPECT_EQ(m_index->documentCount(), 1);
}

TEST_F(SKIndexTest, KeepsNothingThatWasNotFlushed)
{
    ASSERT_TRUE(add("/kept", "word"));
    ASSERT_TRUE(m_index->flush());
    ASSERT_TRUE(add("/lost", "word"));
    ASSERT_TRUE(m_index->removeDocument(document("/kept")));
    reopen();
    EXPECT_EQ(found("word"), (Paths{"/kept"}));
    EXPECT_EQ(m_index->maximumDocumentID(), 1);
    expectSound();
}

TEST_F(SKIndexTest, ReplacesIllFormedText)
{
    ASSERT_TRUE(m_index->addDocumentWithText(document("/a"), std::string_view("alpha\xFF\0beta", 11),
                                             SKReplace::Yes));
    EXPECT_EQ(found("alpha beta"), (Paths{"/a"}));
    EXPECT_EQ(m_index->copyDocumentText(document("/a")), "alpha\uFFFD beta");
    ASSERT_TRUE(m_index->removeDocument(document("/a")));
    expectSound();
}

TEST_F(SKIndexTest, KeepsFileNamesOfAnyBytes)
{
    ASSERT_TRUE(add("/dir/na\xFFme \xE6\x97\xA5?#%", "word"));
    EXPECT_EQ(found("word"), (Paths{"/dir/na\xFFme \xE6\x97\xA5?#%"}));
    EXPECT_EQ(found("日"), (Paths{"/dir/na\xFFme \xE6\x97\xA5?#%"}));
    ASSERT_TRUE(m_index->removeDocument(document("/dir/na\xFFme \xE6\x97\xA5?#%")));
    expectSound();
}

TEST_F(SKIndexTest, ReadsAFileByItsType)
{
    const auto path = m_folder.write("notes.txt", "Sailing to Byzantium");
    EXPECT_TRUE(m_index->addDocument(document(path), "text/plain", SKReplace::Yes));
    EXPECT_EQ(found("byzantium"), (Paths{path}));
    EXPECT_TRUE(m_index->addDocument(document(path), std::nullopt, SKReplace::Yes));
    EXPECT_EQ(found("byzantium"), (Paths{path}));
}

TEST_F(SKIndexTest, FailsToAddAFileThatCannotBeRead)
{
    EXPECT_FALSE(m_index->addDocument(document(m_folder.file("absent.txt")), std::nullopt, SKReplace::Yes));
    ASSERT_EQ(::mkfifo(m_folder.file("fifo.txt").c_str(), 0600), 0);
    EXPECT_FALSE(m_index->addDocument(document(m_folder.file("fifo.txt")), std::nullopt, SKReplace::Yes));
    EXPECT_EQ(m_index->documentCount(), 0);
}

TEST_F(SKIndexTest, NeverReadsOutsideWhatADocumentNames)
{
    m_folder.write("secret.txt", "secret");
    m_folder.write("package/inside.txt", "inside");
    const auto package = m_folder.file("package");
    for (const auto* name : {"../secret.txt", "..", ".", "", "sub/../../secret.txt"})
        EXPECT_FALSE(m_index->addDocument(child(package, name), std::nullopt, SKReplace::Yes)) << name;
    EXPECT_EQ(found("secret"), Paths());
    EXPECT_TRUE(m_index->addDocument(child(package, "inside.txt"), std::nullopt, SKReplace::Yes));
}

TEST_F(SKIndexTest, AddsAFileOfUnknownKindByItsNameAndSaysSo)
{
    std::vector<std::string> lines;
    const NSLogCapture capture([&lines](std::string_view line) { lines.emplace_back(line); });
    const auto path = m_folder.write("holidayPlan.xyzzy", std::string("\0\1\2\3", 4));
    EXPECT_TRUE(m_index->addDocument(document(path), std::nullopt, SKReplace::Yes));
    EXPECT_EQ(found("plan"), (Paths{path}));
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_TRUE(lines[0].starts_with("Indexed by name only: " + path)) << lines[0];
}

TEST_F(SKIndexTest, RemembersTheFilesStamp)
{
    const auto path = m_folder.write("a.txt", "text");
    const timespec times[2]{{1'600'000'000, 5}, {1'600'000'000, 5}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    ASSERT_TRUE(m_index->addDocument(document(path), std::nullopt, SKReplace::Yes));
    const auto stamp = m_index->documentFileStamp(document(path));
    ASSERT_TRUE(stamp);
    EXPECT_EQ(stamp->modificationTime, 1'600'000'000'000'000'005);
    EXPECT_EQ(stamp->size, 4);
    EXPECT_EQ(stamp, SKFileStamp::stampOfFile(m_folder.url("a.txt")));
}

TEST_F(SKIndexTest, TrustsNoStampOfAFileThatChangedMeanwhile)
{
    const auto path = m_folder.write("a.txt", "text");
    const timespec times[2]{{4'000'000'000, 0}, {4'000'000'000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    ASSERT_TRUE(m_index->addDocument(document(path), std::nullopt, SKReplace::Yes));
    EXPECT_EQ(m_index->documentFileStamp(document(path)), std::nullopt);
    ASSERT_TRUE(add("/no/such/file", "text"));
    EXPECT_EQ(m_index->documentFileStamp(document("/no/such/file")), std::nullopt);
}

TEST(SKFileStamp, CoversTheMembersOfAPackage)
{
    const TemporaryFolder folder;
    folder.write("p/a", "12345");
    folder.write("p/sub/b", "678");
    const auto before = SKFileStamp::stampOfFile(folder.url("p"));
    ASSERT_TRUE(before);
    EXPECT_EQ(before->size, 8);
    folder.write("p/sub/b", "6789");
    EXPECT_NE(SKFileStamp::stampOfFile(folder.url("p")), before);
    EXPECT_FALSE(SKFileStamp::stampOfFile(folder.url("absent")));
}

TEST(SKExtractorPlugIns, CountTheirLoads)
{
    const auto before = SKDefaultExtractorPlugInLoadCount();
    SKLoadDefaultExtractorPlugIns();
    SKLoadDefaultExtractorPlugIns();
    EXPECT_EQ(SKDefaultExtractorPlugInLoadCount(), before + 2);
}

} // namespace
