#include "client/IndexingClient.h"
#include "note/CVLNoteFile.h"
#include "platform/foundation/NSURLBookmark.h"
#include "platform/search/SKIndex.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/xpc/UnixSocket.h"
#include "tests/client/ServiceProcess.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <set>
#include <signal.h>
#include <thread>

namespace {

/// The real service, a real index and a folder of items.
class IndexingServiceTest : public testing::Test {
protected:
    IndexingServiceTest()
    {
        options.socketPath = folder.file("s");
        EXPECT_TRUE(SKIndex::createWithURL(indexURL));
    }

    std::unique_ptr<IndexingClient> connect()
    {
        NSError error;
        auto client = IndexingClient::connect(options, &error);
        if (!client)
            throw std::runtime_error(error.localizedDescription());
        return client;
    }

    std::unique_ptr<SKIndex> openIndex() { return SKIndex::openWithURL(indexURL, SKIndexAccess::Read); }

    bool holds(const NSURL& url)
    {
        return openIndex()->documentState(SKDocument::createWithURL(url)) == SKDocumentState::Indexed;
    }

    std::set<std::string> namesFoundBy(const std::string& query)
    {
        std::vector<SKSearchHit> hits;
        EXPECT_TRUE(openIndex()->search(query, {}, hits));
        std::set<std::string> names;
        for (const auto& hit : hits)
            names.insert(hit.url.lastPathComponent());
        return names;
    }

    /// The error's code; 0 for success, -1 without an answer.
    int index(IndexingClient& client, const std::string& name, const AttachmentsInfo& attachmentsInfo = {})
    {
        const auto reply
            = client.indexItemWithIdentifier(name, {}, folder.url(name), attachmentsInfo, indexURL);
        if (!reply)
            return -1;
        EXPECT_EQ(reply->itemIdentifier, name);
        return reply->error ? reply->error->code() : 0;
    }

    TemporaryFolder folder;
    IndexingClientOptions options;
    NSURL indexURL = folder.url("library.index");
};

using Names = std::set<std::string>;

std::string outputOf(const std::string& command)
{
    std::string output;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe)
        return output;
    std::array<char, 4096> buffer{};
    while (const auto count = ::fread(buffer.data(), 1, buffer.size(), pipe))
        output.append(buffer.data(), count);
    return ::pclose(pipe) == 0 ? output : "failed: " + output;
}

bool isInstalled(const std::string& program)
{
    return outputOf("command -v " + program) != "failed: ";
}

} // namespace

TEST_F(IndexingServiceTest, IndexesMovesAndRemoves)
{
    const ServiceProcess service(options.socketPath);
    const auto client = connect();
    folder.write("a/b.txt", "the quick brown fox");
    ASSERT_EQ(index(*client, "a/b.txt"), 0);
    EXPECT_EQ(namesFoundBy("fox"), Names{"b.txt"});

    auto reply = client->moveFileURL(folder.url("a/b.txt"), folder.url("a/c.txt"), indexURL);
    ASSERT_TRUE(reply);
    EXPECT_FALSE(reply->error);
    EXPECT_EQ(namesFoundBy("fox"), Names{"c.txt"});

    reply = client->moveFileURL(folder.url("a/c.txt"), folder.url("x/other.txt"), indexURL);
    ASSERT_TRUE(reply);
    EXPECT_FALSE(reply->error);
    EXPECT_TRUE(holds(folder.url("x/c.txt")));

    reply = client->moveFileURL(folder.url("nowhere"), folder.url("else"), indexURL);
    ASSERT_TRUE(reply);
    ASSERT_TRUE(reply->error);
    EXPECT_EQ(reply->error->code(), 10004);

    reply = client->removeFileURLs({folder.url("x/c.txt").absoluteString(), "no url"}, indexURL);
    ASSERT_TRUE(reply);
    EXPECT_FALSE(reply->error);
    EXPECT_EQ(openIndex()->documentCount(), 0);
    EXPECT_TRUE(openIndex()->check().empty());
}

TEST_F(IndexingServiceTest, IndexesNotesWithTheirAttachments)
{
    const ServiceProcess service(options.socketPath);
    const auto client = connect();
    auto file = NSFileWrapper::initRegularFileWithContents({"crane and ferry"});
    file->setPreferredFilename(u"plans.txt");
    NSMutableAttributedString text{std::u16string(u"the lighthouse ")};
    text.appendAttributedString(
        NSAttributedString::attributedStringWithAttachment(NSTextAttachment::initWithFileWrapper(file)));
    CVLNoteFile note;
    note.setNoteText(text);
    ASSERT_TRUE(note.saveToFileURL(folder.url("n.cvlnote")));

    ASSERT_EQ(index(*client, "n.cvlnote", {{"plans.txt", {}}}), 0);
    EXPECT_EQ(namesFoundBy("lighthouse"), Names{"n.cvlnote"});
    EXPECT_EQ(namesFoundBy("ferry"), Names{"plans.txt"});
    EXPECT_TRUE(holds(folder.url("n.cvlnote/plans.txt")));

    ASSERT_EQ(index(*client, "n.cvlnote"), 0);
    EXPECT_EQ(namesFoundBy("lighthouse"), Names{"n.cvlnote"});
    EXPECT_EQ(namesFoundBy("ferry"), Names{});
    EXPECT_TRUE(openIndex()->check().empty());
}

TEST_F(IndexingServiceTest, SurvivesNotesThatAreNone)
{
    const ServiceProcess service(options.socketPath);
    const auto client = connect();
    folder.write("damaged.cvlnote/NoteText", "damaged");
    folder.write("empty.cvlnote/NoteText", "");
    folder.write("both.cvlnote/NoteText", "damaged");
    folder.write("both.cvlnote/TXT.rtf", "{\\rtf1");
    folder.write("file.cvlnote", "no folder");
    for (const auto* name : {"damaged.cvlnote", "empty.cvlnote", "both.cvlnote", "file.cvlnote"})
        EXPECT_EQ(index(*client, name), 0) << name;
    EXPECT_EQ(openIndex()->documentCount(), 4);
}

TEST_F(IndexingServiceTest, AnswersEveryFailureWithItsCode)
{
    const ServiceProcess service(options.socketPath);
    const auto client = connect();
    folder.write("a.docx", "no document");
    EXPECT_EQ(index(*client, "missing.txt"), 10002);
    EXPECT_EQ(index(*client, "a.docx"), 10003);
    indexURL = folder.url("no.index");
    EXPECT_EQ(index(*client, "a.docx"), 10001);
    folder.write("other.index", "this is no index");
    indexURL = folder.url("other.index");
    EXPECT_EQ(index(*client, "a.docx"), 10001);
}

TEST_F(IndexingServiceTest, FindsAttachmentsOfPackages)
{
    const ServiceProcess service(options.socketPath);
    const auto client = connect();
    folder.write("n.rtfd/TXT.rtf", "{\\rtf1 note}");
    folder.write("n.rtfd/inner.txt", "walrus");
    ASSERT_EQ(
        index(*client, "n.rtfd", {{"inner.txt", {}}, {"pic.png", {{"TextRecognitionString", "puffin"}}}}), 0);
    EXPECT_EQ(namesFoundBy("walrus"), Names{"inner.txt"});
    EXPECT_EQ(namesFoundBy("puffin"), Names{"pic.png"});
    ASSERT_EQ(index(*client, "n.rtfd", {{"inner.txt", {}}}), 0);
    EXPECT_EQ(namesFoundBy("puffin"), Names{});
}

TEST_F(IndexingServiceTest, FindsAttachmentsOfMessages)
{
    const ServiceProcess service(options.socketPath);
    const auto client = connect();
    folder.write("m.eml",
                 "From: a@example.org\r\nSubject: kite\r\nMIME-Version: 1.0\r\n"
                 "Content-Type: multipart/mixed; boundary=XX\r\n\r\n--XX\r\n\r\nbody\r\n--XX\r\n"
                 "Content-Type: text/plain\r\n"
                 "Content-Disposition: attachment; filename=\"in.txt\"\r\n\r\nwalrus\r\n--XX--\r\n");
    ASSERT_EQ(index(*client, "m.eml", {{"in.txt", {}}}), 0);
    EXPECT_EQ(namesFoundBy("kite"), Names{"m.eml"});
    EXPECT_EQ(namesFoundBy("walrus"), Names{"in.txt"});
    EXPECT_TRUE(holds(folder.url("m.eml").URLByAppendingPathComponent("in.txt")));
}

TEST_F(IndexingServiceTest, TakesABookmark)
{
    const ServiceProcess service(options.socketPath);
    const auto client = connect();
    EXPECT_TRUE(client->setCustomFolderBookmarkData(bookmarkDataForURL(folder.url("")).value()));
    EXPECT_TRUE(client->setCustomFolderBookmarkData("nonsense"));
    EXPECT_TRUE(client->setCustomFolderBookmarkData(""));
}

TEST_F(IndexingServiceTest, CarriesNamesThatAreNoUTF8)
{
    const ServiceProcess service(options.socketPath);
    const auto client = connect();
    folder.write("caf\xE9.txt", "walrus");
    const auto reply
        = client->indexItemWithIdentifier("caf\xE9", {}, folder.url("caf\xE9.txt"), {}, indexURL);
    ASSERT_TRUE(reply);
    EXPECT_FALSE(reply->error);
    EXPECT_EQ(reply->itemIdentifier, "caf\xEF\xBF\xBD");
    EXPECT_TRUE(holds(folder.url("caf\xE9.txt")));
}

TEST_F(IndexingServiceTest, ServesTwoConnectionsOnOneIndex)
{
    constexpr int kItemCount = 40;
    const ServiceProcess service(options.socketPath);
    for (const char* prefix : {"a", "b"}) {
        for (int item = 0; item < kItemCount; ++item)
            folder.write(prefix + std::to_string(item) + ".txt", "walrus");
    }
    const auto work = [this](const std::string& prefix) {
        const auto client = connect();
        for (int item = 0; item < kItemCount; ++item)
            EXPECT_EQ(index(*client, prefix + std::to_string(item) + ".txt"), 0);
    };
    std::thread other(work, "b");
    work("a");
    other.join();
    EXPECT_EQ(openIndex()->documentCount(), 2 * kItemCount);
    EXPECT_TRUE(openIndex()->check().empty());
}

TEST_F(IndexingServiceTest, LosesNothingThatItAnsweredWhenItIsKilled)
{
    constexpr int kRounds = 5;
    constexpr int kItemCount = 200;
    std::vector<std::string> answered;
    for (int round = 0; round < kRounds; ++round) {
        const ServiceProcess service(options.socketPath);
        std::atomic<int> count = 0;
        std::thread host([&] {
            const auto client = connect();
            for (int item = 0; item < kItemCount; ++item) {
                const auto name = std::to_string(round) + "-" + std::to_string(item) + ".txt";
                folder.write(name, "walrus " + name);
                if (index(*client, name) != 0)
                    return;
                answered.push_back(name);
                ++count;
            }
        });
        while (count < 10 + 7 * round)
            std::this_thread::yield();
        service.signal(SIGKILL);
        host.join();
    }
    const auto index = openIndex();
    ASSERT_TRUE(index);
    EXPECT_EQ(index->check(), std::vector<std::string>());
    EXPECT_GE(answered.size(), 10U * kRounds);
    for (const auto& name : answered)
        EXPECT_EQ(index->documentState(SKDocument::createWithURL(folder.url(name))),
                  SKDocumentState::Indexed);
}

TEST_F(IndexingServiceTest, AnswersTheRequestInHandWhenItIsTerminated)
{
    constexpr std::size_t kWordCount = 400'000;
    std::string text;
    for (std::size_t word = 0; word < kWordCount; ++word)
        text += "word" + std::to_string(word % 5000) + ' ';
    folder.write("big.txt", text);
    ServiceProcess service(options.socketPath);
    const auto client = connect();
    int code = -1;
    std::thread host([&] { code = index(*client, "big.txt"); });
    EXPECT_TRUE(service.waitUntilOpen(folder.file("library.index")));
    service.signal(SIGTERM);
    host.join();
    EXPECT_EQ(code, 0);
    EXPECT_EQ(service.waitForEnd(), 0);
    EXPECT_FALSE(std::filesystem::exists(options.socketPath));
    EXPECT_TRUE(holds(folder.url("big.txt")));
}

TEST_F(IndexingServiceTest, ASecondServiceLeavesTheFirstAlone)
{
    const ServiceProcess service(options.socketPath);
    const auto output = outputOf(ServiceProcess::programPath() + " --socket " + options.socketPath + " 2>&1");
    EXPECT_NE(output.find("failed: "), std::string::npos);
    EXPECT_NE(output.find("cannot listen"), std::string::npos);
    EXPECT_TRUE(connect());
}

TEST_F(IndexingServiceTest, TalksToStockClients)
{
    const ServiceProcess service(options.socketPath);
    folder.write("a.txt", "walrus");
    const auto object = std::string(" /com/tessel/corvel/Indexing com.tessel.corvel.CVLIndexingProtocol");
    const auto index = indexURL.absoluteString();
    const auto item = folder.url("a.txt").absoluteString();
    if (!isInstalled("busctl"))
        GTEST_SKIP() << "busctl is not installed";
    const auto busctl = "busctl --address=unix:path=" + options.socketPath + " call any.name" + object + " ";
    EXPECT_EQ(outputOf(busctl + "indexItemWithIdentifier 'saysa{sa{sv}}s' one 0 " + item + " 0 " + index),
              "a{sv} 1 \"ItemIdentifier\" s \"one\"\n");
    EXPECT_EQ(namesFoundBy("walrus"), Names{"a.txt"});
    EXPECT_EQ(outputOf(busctl + "removeFileURLs ass 1 " + item + " 'not a url'"),
              "a{sv} 1 \"Error\" a{sv} 3 \"domain\" s \"CVLIndexingError\" \"code\" i 10001 \"userInfo\" "
              "a{sv} 0\n");
    EXPECT_EQ(outputOf(busctl + "moveFileURL ss a b 2>&1").substr(0, 8), "failed: ");
    if (!isInstalled("gdbus"))
        GTEST_SKIP() << "gdbus is not installed";
    const auto gdbus = "gdbus call --address unix:path=" + options.socketPath
        + " --dest any.name --object-path /com/tessel/corvel/Indexing"
          " --method com.tessel.corvel.CVLIndexingProtocol.";
    EXPECT_EQ(outputOf(gdbus + "removeFileURLs \"['" + item + "']\" " + index), "(@a{sv} {},)\n");
    EXPECT_EQ(namesFoundBy("walrus"), Names{});
}
