#include "service/ItemIndexing.h"

#include "tests/service/RequestTest.h"
#include "tests/support/ZipBytes.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <sys/stat.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A classifier that knows one kind of image.
class PNGTerms final : public ImageTerms {
public:
    explicit PNGTerms(std::vector<std::string> terms)
        : m_terms(std::move(terms))
    {
    }

    [[nodiscard]] bool isFileTypeSupported(const UTType& type) const override
    {
        return type.conformsToType("public.png");
    }

    [[nodiscard]] std::vector<std::string> searchTermsForFile(const NSURL& /*url*/) const override
    {
        return m_terms;
    }

private:
    std::vector<std::string> m_terms;
};

class FixedNoteText final : public NoteText {
public:
    [[nodiscard]] std::optional<std::string> noteTextOfPackage(const NSURL& url) const override
    {
        return url.lastPathComponent() == "good.cvlnote" ? std::optional<std::string>("the note")
                                                         : std::nullopt;
    }
};

constexpr const char* kMessage
    = "From: Ann <ann@example.org>\r\nTo: Bob <bob@example.org>\r\n"
      "Cc: Cid <cid@example.org>\r\nBcc: Dan <dan@example.org>\r\nSubject: Kite\r\n"
      "Content-Type: text/plain\r\n\r\n  The wind is up.  \r\n";

class ItemIndexingTest : public RequestTest { };

} // namespace

TEST_F(ItemIndexingTest, ClosesTheIndexBeforeItReplies)
{
    folder.write("a.txt", "hello");
    indexItem("a.txt");
    EXPECT_THAT(record->events,
                ElementsAre("open", "add a.txt by file as text/plain", "flush", "close", "reply"));
    EXPECT_EQ(errorCode(), 0);
    EXPECT_EQ(identifierInReply(), "id");
}

TEST_F(ItemIndexingTest, ReportsAnIndexThatCannotBeOpened)
{
    folder.write("a.txt", "hello");
    record->opens = false;
    indexItem("a.txt");
    EXPECT_THAT(record->events, ElementsAre("refuse to open", "reply"));
    EXPECT_EQ(errorCode(), 10001);
    EXPECT_THAT(errorUserInfo(), IsEmpty());
    EXPECT_EQ(identifierInReply(), "id");
}

TEST_F(ItemIndexingTest, ReportsAMissingIndexURL)
{
    Corvel_Indexing service(environment);
    service.indexItemWithIdentifier("id", {}, folder.url("a.txt"), {}, std::nullopt, replyBlock());
    EXPECT_THAT(record->events, ElementsAre("reply"));
    EXPECT_EQ(errorCode(), 10001);
}

TEST_F(ItemIndexingTest, ReportsAnUnreachableFile)
{
    indexItem("missing.txt");
    EXPECT_THAT(record->events, ElementsAre("open", "close", "reply"));
    EXPECT_EQ(errorCode(), 10002);
    EXPECT_THAT(errorUserInfo(), IsEmpty());
    EXPECT_EQ(identifierInReply(), "id");
}

TEST_F(ItemIndexingTest, ReportsURLsThatAreNoFile)
{
    Corvel_Indexing service(environment);
    for (const auto& url :
         {std::optional<NSURL>(), NSURL::URLWithString("http://example.org/a"), NSURL::URLWithString("a.txt"),
          NSURL::URLWithString("file://elsewhere/etc/hosts")}) {
        replies.clear();
        service.indexItemWithIdentifier("id", {}, url, {}, indexURL, replyBlock());
        EXPECT_EQ(errorCode(), 10002);
    }
}

TEST_F(ItemIndexingTest, ReportsAReachableFileThatIsNoDocument)
{
    Corvel_Indexing service(environment);
    const auto root = NSURL::URLWithString("file:///");
    ASSERT_TRUE(root && root->checkResourceIsReachableAndReturnError());
    service.indexItemWithIdentifier("id", {}, root, {}, indexURL, replyBlock());
    EXPECT_THAT(record->events, ElementsAre("open", "close", "reply"));
    EXPECT_EQ(errorCode(), 10002);
    EXPECT_EQ(identifierInReply(), "id");
}

TEST_F(ItemIndexingTest, ReportsARefusedAdd)
{
    folder.write("a.txt", "hello");
    record->adds = [](const std::string&) { return false; };
    indexItem("a.txt");
    EXPECT_THAT(record->events, ElementsAre("open", "add a.txt by file as text/plain", "close", "reply"));
    EXPECT_EQ(errorCode(), 10003);
    EXPECT_THAT(errorUserInfo(), IsEmpty());
    EXPECT_EQ(identifierInReply(), "id");
}

TEST_F(ItemIndexingTest, ReportsAnExceptionWithItsReason)
{
    folder.write("a.txt", "hello");
    record->adds = [](const std::string&) -> bool { throw SKIndexException("the disk is full"); };
    indexItem("a.txt");
    EXPECT_THAT(record->events, ElementsAre("open", "add a.txt by file as text/plain", "close", "reply"));
    EXPECT_EQ(errorCode(), 10003);
    ASSERT_EQ(errorUserInfo().size(), 1U);
    EXPECT_EQ(std::get<std::string>(errorUserInfo().at("NSLocalizedDescription")), "the disk is full");
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(ItemIndexingTest, ReportsAnExceptionWithoutAReasonWithoutUserInfo)
{
    folder.write("a.txt", "hello");
    record->adds = [](const std::string&) -> bool { throw SKIndexException(""); };
    indexItem("a.txt");
    EXPECT_EQ(errorCode(), 10003);
    EXPECT_THAT(errorUserInfo(), IsEmpty());
}

TEST_F(ItemIndexingTest, ReportsAnExceptionOfAnAttachmentAndKeepsNothing)
{
    folder.write("n.cvlnote/pic.txt", "x");
    record->adds = [](const std::string& name) -> bool {
        if (name == "n.cvlnote")
            return true;
        throw SKIndexException("damaged");
    };
    indexItem("n.cvlnote", {{"pic.txt", {}}});
    EXPECT_EQ(errorCode(), 10003);
    EXPECT_THAT(record->eventsStartingWith("flush"), IsEmpty());
    EXPECT_EQ(record->events.back(), "reply");
}

TEST_F(ItemIndexingTest, ReportsAFlushThatFails)
{
    folder.write("a.txt", "hello");
    record->flushes = false;
    indexItem("a.txt");
    EXPECT_EQ(errorCode(), 10003);
}

TEST_F(ItemIndexingTest, TakesRecognisedTextWhateverTheTypeIs)
{
    folder.write("a.eml", kMessage);
    folder.write("a.png", "x");
    folder.write("n.cvlnote/m", "x");
    indexItem("a.eml", {}, "seen");
    indexItem("a.png", {}, "seen");
    indexItem("n.cvlnote", {}, "seen");
    EXPECT_THAT(
        record->eventsStartingWith("add"),
        ElementsAre("add a.eml with \"seen\"", "add a.png with \"seen\"", "add n.cvlnote with \"seen\""));
}

TEST_F(ItemIndexingTest, StillIndexesTheAttachmentsOfANoteWithRecognisedText)
{
    folder.write("n.cvlnote/m", "x");
    indexItem("n.cvlnote", {{"m", {}}}, "seen");
    EXPECT_THAT(record->events,
                ElementsAre("open", "add n.cvlnote with \"seen\"", "walk the children of n.cvlnote",
                            "add n.cvlnote/m by file", "flush", "close", "reply"));
}

TEST_F(ItemIndexingTest, AddsByFileWhenRecognisedTextIsNoUTF8)
{
    folder.write("a.txt", "hello");
    folder.write("a.pdf", "%PDF-1.4");
    folder.write("n.cvlnote/m", "x");
    for (const auto* name : {"a.txt", "a.pdf", "n.cvlnote"})
        indexItem(name, {}, "\xFF\xFE");
    EXPECT_THAT(record->eventsStartingWith("add"),
                ElementsAre("add a.txt by file as text/plain", "add a.pdf by file", "add n.cvlnote by file"));
}

TEST_F(ItemIndexingTest, AddsPlainTextAndMarkdownByFileAsPlainText)
{
    folder.write("a.md", "# Title");
    folder.write("a.csv", "a,b");
    indexItem("a.md");
    indexItem("a.csv");
    EXPECT_THAT(record->eventsStartingWith("add"),
                ElementsAre("add a.md by file as text/plain", "add a.csv by file as text/plain"));
}

TEST_F(ItemIndexingTest, TakesTheTextOfANote)
{
    environment.sources.noteText = std::make_shared<const FixedNoteText>();
    folder.write("good.cvlnote/m", "x");
    folder.write("bad.cvlnote/m", "x");
    indexItem("good.cvlnote");
    indexItem("bad.cvlnote");
    EXPECT_THAT(record->eventsStartingWith("add"),
                ElementsAre("add good.cvlnote with \"the note\"", "add bad.cvlnote by file"));
}

TEST_F(ItemIndexingTest, TakesAddressesSubjectAndBodyOfAMessage)
{
    folder.write("a.eml", kMessage);
    indexItem("a.eml");
    EXPECT_THAT(
        record->events,
        ElementsAre("open",
                    "add a.eml with \"Ann <ann@example.org>\nBob <bob@example.org>\nCid <cid@example.org>\n"
                    "Dan <dan@example.org>\nKite\nThe wind is up.\"",
                    "flush", "close", "reply"));
}

TEST_F(ItemIndexingTest, ReportsAMessageThatCannotBeRead)
{
    // A regular file that can be opened, but whose first byte, at address 0, nobody can read.
    std::filesystem::create_symlink("/proc/self/mem", folder.file("a.eml"));
    indexItem("a.eml");
    EXPECT_THAT(record->events, ElementsAre("open", "close", "reply"));
    EXPECT_EQ(errorCode(), 10003);
    ASSERT_EQ(errorUserInfo().count("NSUnderlyingError"), 1U);
    EXPECT_EQ(std::get<std::shared_ptr<const NSError>>(errorUserInfo().at("NSUnderlyingError"))->code(), EIO);
}

TEST_F(ItemIndexingTest, WalksAPDFAndAddsItByFile)
{
    folder.write("a.pdf", "%PDF-1.4 and no more");
    indexItem("a.pdf");
    EXPECT_THAT(record->eventsStartingWith("add"), ElementsAre("add a.pdf by file"));
    EXPECT_EQ(errorCode(), 0);
}

TEST_F(ItemIndexingTest, AddsLockedAndLongPDFsByFile)
{
    const std::filesystem::path samples = std::filesystem::path(CORVEL_SAMPLES_DIR) / "pdf";
    if (!std::filesystem::exists(samples))
        GTEST_SKIP() << "the sample files are not there";
    for (const auto* name : {"pdfbox_PasswordSample-256bit.pdf", "qpdf_merge-implicit-ranges.pdf"}) {
        std::filesystem::copy_file(samples / name, folder.file(name));
        replies.clear();
        indexItem(name);
        EXPECT_EQ(errorCode(), 0);
        EXPECT_THAT(record->eventsStartingWith("add"),
                    testing::Contains(std::string("add ") + name + " by file"));
    }
}

TEST_F(ItemIndexingTest, TakesTextThatIsNotPlainAsItStands)
{
    folder.write("a.html",
                 "<p>Gr\xC3\xBC\xC3\x9F"
                 "e</p>");
    folder.write("b.xml", "<a>\xE9t\xE9</a>");
    indexItem("a.html");
    indexItem("b.xml");
    EXPECT_THAT(record->eventsStartingWith("add"),
                ElementsAre("add a.html with \"<p>Grüße</p>\"", "add b.xml with \"<a>été</a>\""));
}

TEST_F(ItemIndexingTest, AddsTextThatCannotBeReadByFile)
{
    // A regular file that can be opened, but whose first byte, at address 0, nobody can read.
    std::filesystem::create_symlink("/proc/self/mem", folder.file("a.html"));
    indexItem("a.html");
    EXPECT_THAT(record->events, ElementsAre("open", "add a.html by file", "flush", "close", "reply"));
    EXPECT_EQ(errorCode(), 0);
}

TEST_F(ItemIndexingTest, TakesTheTextOfAWordDocument)
{
    folder.write("a.docx",
                 zipOf({{"word/document.xml",
                         "<w:document xmlns:w='w'><w:body><w:p><w:r><w:t>The wind is up.</w:t></w:r></w:p>"
                         "</w:body></w:document>"}}));
    indexItem("a.docx");
    EXPECT_THAT(record->events,
                ElementsAre("open", "add a.docx with \"The wind is up.\n\"", "flush", "close", "reply"));
    EXPECT_EQ(errorCode(), 0);
}

TEST_F(ItemIndexingTest, ReportsAWordDocumentThatCannotBeRead)
{
    folder.write("a.docx", "this is no document");
    indexItem("a.docx");
    EXPECT_THAT(record->events, ElementsAre("open", "close", "reply"));
    EXPECT_EQ(errorCode(), 10003);
    ASSERT_EQ(errorUserInfo().count("NSUnderlyingError"), 1U);
    EXPECT_NE(std::get<std::shared_ptr<const NSError>>(errorUserInfo().at("NSUnderlyingError"))->code(), 0);
}

TEST_F(ItemIndexingTest, TakesTheTermsOfAnImage)
{
    environment.sources.imageTerms
        = std::make_shared<const PNGTerms>(std::vector<std::string>{"cat", "sofa"});
    folder.write("a.png", "x");
    folder.write("a.jpg", "x");
    indexItem("a.png");
    indexItem("a.jpg");
    EXPECT_THAT(record->eventsStartingWith("add"),
                ElementsAre("add a.png with \"cat\nsofa\"", "add a.jpg by file"));
}

TEST_F(ItemIndexingTest, AddsAnImageWithoutTermsByFile)
{
    environment.sources.imageTerms = std::make_shared<const PNGTerms>(std::vector<std::string>());
    folder.write("a.png", "x");
    indexItem("a.png");
    EXPECT_THAT(record->eventsStartingWith("add"), ElementsAre("add a.png by file"));
}

TEST_F(ItemIndexingTest, AddsWhatHasNoTypeByFile)
{
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
    indexItem("pipe", {{"a", {}}});
    EXPECT_THAT(record->events, ElementsAre("open", "add pipe by file", "flush", "close", "reply"));
}
