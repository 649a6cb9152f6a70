#include "service/MailAttachmentIndexing.h"

#include "tests/service/RequestTest.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

struct Part {
    std::string type;
    std::string name;
    std::string body;
};

std::string messageWith(const std::vector<Part>& parts)
{
    std::string message = "From: a@example.org\r\nSubject: s\r\nMIME-Version: 1.0\r\n"
                          "Content-Type: multipart/mixed; boundary=XX\r\n\r\n"
                          "--XX\r\nContent-Type: text/plain\r\n\r\nbody\r\n";
    for (const auto& part : parts) {
        message += "--XX\r\nContent-Type: " + part.type + "\r\nContent-Disposition: attachment";
        message += (part.name.empty() ? "" : "; filename=\"" + part.name + "\"") + "\r\n\r\n" + part.body
            + "\r\n";
    }
    return message + "--XX--\r\n";
}

class MagicTerms final : public ImageTerms {
public:
    [[nodiscard]] bool isFileTypeSupported(const UTType& type) const override
    {
        return type.conformsToType("public.png");
    }

    [[nodiscard]] std::vector<std::string> searchTermsForData(std::string_view data) const override
    {
        return data == "cat" ? std::vector<std::string>{"cat", "sofa"} : std::vector<std::string>();
    }
};

/// The temporary folder of these tests is one of their own.
class MailAttachmentIndexingTest : public RequestTest {
protected:
    MailAttachmentIndexingTest()
    {
        std::filesystem::create_directory(folder.file("tmp"));
        EXPECT_EQ(::setenv("TMPDIR", folder.file("tmp").c_str(), 1), 0);
        environment.sources.imageTerms = std::make_shared<const MagicTerms>();
    }

    ~MailAttachmentIndexingTest() override { EXPECT_EQ(::unsetenv("TMPDIR"), 0); }

    /// Without the item's own add, and with the folder's unique name replaced.
    Events eventsOfAttachments() const
    {
        Events events;
        for (auto event : record->events) {
            for (auto start = event.find("tmp/CVLINDEXING "); start != std::string::npos;
                 start = event.find("tmp/CVLINDEXING "))
                event.replace(start, std::string("tmp/CVLINDEXING ").size() + kUUIDLength, "TMP");
            if (!event.starts_with("add a.eml with")
                && (event.starts_with("add") || event.starts_with("move") || event.starts_with("remove")))
                events.push_back(event);
        }
        return events;
    }

    std::size_t filesInTemporaryFolders() const
    {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.file("tmp")))
            count += entry.is_directory() ? 0U : 1U;
        return count;
    }

    std::size_t temporaryFolders() const
    {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder.file("tmp")))
            count += entry.path().filename().native().starts_with("CVLINDEXING ") ? 1U : 0U;
        return count;
    }

private:
    static constexpr std::size_t kUUIDLength = 36;
};

} // namespace

TEST_F(MailAttachmentIndexingTest, DoesNothingWithoutAttachmentsInfo)
{
    folder.write("a.eml", messageWith({{"text/plain", "a.txt", "x"}}));
    indexItem("a.eml");
    EXPECT_THAT(eventsOfAttachments(), IsEmpty());
    EXPECT_EQ(temporaryFolders(), 0U);
}

TEST_F(MailAttachmentIndexingTest, WritesAddsMovesAndDeletesOneByOne)
{
    folder.write("a.eml", messageWith({{"text/plain", "a.txt", "x"}, {"text/plain", "b.txt", "y"}}));
    indexItem("a.eml", {{"a.txt", {}}});
    EXPECT_THAT(eventsOfAttachments(),
                ElementsAre("add TMP/a.txt by file", "move TMP/a.txt under a.eml", "add TMP/b.txt by file",
                            "move TMP/b.txt under a.eml"));
    EXPECT_EQ(filesInTemporaryFolders(), 0U);
    EXPECT_EQ(temporaryFolders(), 1U);
    EXPECT_EQ(errorCode(), 0);
}

TEST_F(MailAttachmentIndexingTest, TakesRecognisedTextAndTermsWithoutWriting)
{
    folder.write("a.eml", messageWith({{"text/plain", "a.txt", "x"}, {"image/png", "c.png", "cat"}}));
    indexItem("a.eml",
              {{"a.txt", {{"TextRecognitionString", "seen"}}}, {"c.png", {{"TextRecognitionString", "r"}}}});
    EXPECT_THAT(eventsOfAttachments(),
                ElementsAre("add a.eml/a.txt with \"seen\"", "add a.eml/c.png with \"r\ncat\nsofa\""));
}

TEST_F(MailAttachmentIndexingTest, AddsAnImageWithoutTermsByFile)
{
    folder.write("a.eml", messageWith({{"image/png", "d.png", "dog"}}));
    indexItem("a.eml", {{"d.png", {}}});
    EXPECT_THAT(eventsOfAttachments(), ElementsAre("add TMP/d.png by file", "move TMP/d.png under a.eml"));
}

TEST_F(MailAttachmentIndexingTest, SkipsAttachmentsWithoutAName)
{
    folder.write("a.eml", messageWith({{"application/octet-stream", "", "x"}}));
    indexItem("a.eml", {{"a", {}}});
    EXPECT_THAT(eventsOfAttachments(), IsEmpty());
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(MailAttachmentIndexingTest, KeepsHostileNamesWithinTheTemporaryFolder)
{
    folder.write("a.eml", messageWith({{"text/plain", "../../evil.txt", "x"}, {"text/plain", "..", "x"}}));
    indexItem("a.eml", {{"x", {}}});
    EXPECT_THAT(eventsOfAttachments(),
                ElementsAre("add TMP/evil.txt by file", "move TMP/evil.txt under a.eml"));
    EXPECT_FALSE(std::filesystem::exists(folder.file("evil.txt")));
    ASSERT_EQ(log.size(), 2U);
    EXPECT_THAT(log[0], StartsWith("Cannot write mail attachment data for indexing: "));
    EXPECT_EQ(log[1], "Couldn't index mail attachment ..");
}

TEST_F(MailAttachmentIndexingTest, AddsTwoAttachmentsOfOneName)
{
    folder.write("a.eml", messageWith({{"text/plain", "a.txt", "x"}, {"text/plain", "a.txt", "y"}}));
    indexItem("a.eml", {{"a.txt", {}}});
    EXPECT_EQ(eventsOfAttachments().size(), 4U);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(MailAttachmentIndexingTest, LogsARefusedAddAndDeletesItsFile)
{
    folder.write("a.eml", messageWith({{"text/plain", "a.txt", "x"}}));
    record->adds = [](const std::string& name) { return name == "a.eml"; };
    indexItem("a.eml", {{"a.txt", {}}});
    EXPECT_THAT(eventsOfAttachments(), ElementsAre("add TMP/a.txt by file"));
    EXPECT_THAT(log, ElementsAre("Couldn't index mail attachment a.txt"));
    EXPECT_EQ(filesInTemporaryFolders(), 0U);
    EXPECT_EQ(errorCode(), 0);
}

TEST_F(MailAttachmentIndexingTest, LeavesNoDocumentInTheTemporaryFolder)
{
    folder.write("a.eml", messageWith({{"text/plain", "a.txt", "x"}}));
    record->moves = false;
    indexItem("a.eml", {{"a.txt", {}}});
    EXPECT_THAT(eventsOfAttachments(),
                ElementsAre("add TMP/a.txt by file", "move TMP/a.txt under a.eml", "remove TMP/a.txt"));
    EXPECT_THAT(log, ElementsAre("Couldn't index mail attachment a.txt"));
}

TEST_F(MailAttachmentIndexingTest, DeletesItsFileWhenAnAddRaises)
{
    folder.write("a.eml", messageWith({{"text/plain", "a.txt", "x"}}));
    record->adds = [](const std::string& name) -> bool {
        return name == "a.eml" ? true : throw SKIndexException("damaged");
    };
    indexItem("a.eml", {{"a.txt", {}}});
    EXPECT_EQ(filesInTemporaryFolders(), 0U);
    EXPECT_EQ(errorCode(), 10003);
}

TEST_F(MailAttachmentIndexingTest, StopsWhenThereIsNoTemporaryFolder)
{
    folder.write("a.eml", messageWith({{"text/plain", "a.txt", "x"}}));
    EXPECT_EQ(::setenv("TMPDIR", folder.file("a.eml").c_str(), 1), 0);
    indexItem("a.eml", {{"a.txt", {}}});
    ASSERT_EQ(log.size(), 1U);
    EXPECT_THAT(log[0], StartsWith("Couldn't create temporary directory to index attachments: "));
    EXPECT_EQ(errorCode(), 0);
}

TEST_F(MailAttachmentIndexingTest, StopsWhenTheMessageCannotBeRead)
{
    folder.write("a.eml", messageWith({{"text/plain", "a.txt", "x"}}));
    record->adds = [this](const std::string&) { return std::filesystem::remove(folder.file("a.eml")); };
    indexItem("a.eml", {{"a.txt", {}}}, "seen");
    ASSERT_EQ(log.size(), 1U);
    EXPECT_THAT(log[0], StartsWith("Couldn't open message data for indexing attachments: "));
    EXPECT_THAT(log[0], HasSubstr("a.eml"));
    EXPECT_EQ(errorCode(), 0);
}

TEST_F(MailAttachmentIndexingTest, GoesOnAfterAnAttachmentThatCannotBeIndexed)
{
    folder.write("a.eml", messageWith({{"text/plain", "a.txt", "x"}, {"text/plain", "b.txt", "y"}}));
    record->adds = [](const std::string& name) { return !name.ends_with("/a.txt"); };
    indexItem("a.eml", {{"a.txt", {}}});
    EXPECT_THAT(eventsOfAttachments(),
                ElementsAre("add TMP/a.txt by file", "add TMP/b.txt by file", "move TMP/b.txt under a.eml"));
    EXPECT_THAT(log, ElementsAre("Couldn't index mail attachment a.txt"));
    EXPECT_EQ(errorCode(), 0);
}

TEST_F(MailAttachmentIndexingTest, KeepsChildrenThatAttachmentsInfoDoesNotName)
{
    folder.write("a.eml", messageWith({{"text/plain", "a.txt", "x"}}));
    const auto parent = SKDocument::createWithURL(folder.url("a.eml"));
    record->children = {SKDocument::create({}, parent, "a.txt"), SKDocument::create({}, parent, "old.txt")};
    indexItem("a.eml", {{"a.txt", {}}});
    indexItem("a.eml");
    EXPECT_THAT(eventsOfAttachments(), ElementsAre("add TMP/a.txt by file", "move TMP/a.txt under a.eml"));
}

TEST_F(MailAttachmentIndexingTest, PutsALineBreakBetweenEmptyRecognisedTextAndTerms)
{
    folder.write("a.eml", messageWith({{"image/png", "c.png", "cat"}}));
    indexItem("a.eml", {{"c.png", {{"TextRecognitionString", ""}}}});
    EXPECT_THAT(eventsOfAttachments(), ElementsAre("add a.eml/c.png with \"\ncat\nsofa\""));
}
