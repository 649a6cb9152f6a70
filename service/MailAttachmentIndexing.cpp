#include "service/MailAttachmentIndexing.h"

#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSUUID.h"
#include "platform/media/MCOMessageParser.h"
#include "platform/types/UTType.h"
#include "service/AttachmentText.h"
#include "service/MailText.h"

#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::seconds kTimeForAllAttachments{60};

/// A written file that is deleted at the end, however that comes.
class WrittenFile {
public:
    explicit WrittenFile(NSURL url)
        : m_url(std::move(url))
    {
    }

    WrittenFile(const WrittenFile&) = delete;
    WrittenFile& operator=(const WrittenFile&) = delete;

    ~WrittenFile()
    {
        NSError error;
        if (!NSFileManager::removeItemAtURL(m_url, &error))
            NSLog("Couldn't remove {}: {}", m_url.path(), error.localizedDescription());
    }

    [[nodiscard]] const NSURL& url() const { return m_url; }

private:
    NSURL m_url;
};

class MailAttachmentIndexer {
public:
    MailAttachmentIndexer(SKDocumentRef parentDocument, SKIndex& index, const ImageTerms& imageTerms,
                          NSURL folder)
        : m_parentDocument(std::move(parentDocument))
        , m_index(index)
        , m_imageTerms(imageTerms)
        , m_folder(std::move(folder))
    {
    }

    [[nodiscard]] bool add(const MCOAttachment& attachment, const std::optional<std::string>& recognisedText);

private:
    [[nodiscard]] std::vector<std::string> termsOf(const MCOAttachment& attachment) const;
    [[nodiscard]] bool addText(const std::string& name, const std::string& text);
    [[nodiscard]] bool addContent(const MCOAttachment& attachment);
    [[nodiscard]] bool addFile(const NSURL& url);

    SKDocumentRef m_parentDocument;
    SKIndex& m_index;
    const ImageTerms& m_imageTerms;
    NSURL m_folder;
};

std::vector<std::string> MailAttachmentIndexer::termsOf(const MCOAttachment& attachment) const
{
    if (attachment.mimeType().empty())
        return {};
    const auto type = UTType::typeWithMIMEType(attachment.mimeType());
    return type && m_imageTerms.isFileTypeSupported(*type)
        ? m_imageTerms.searchTermsForData(attachment.data())
        : std::vector<std::string>();
}

bool MailAttachmentIndexer::addText(const std::string& name, const std::string& text)
{
    const auto document = SKDocument::create({}, m_parentDocument, name);
    return document && m_index.addDocumentWithText(document, text, SKReplace::Yes);
}

bool MailAttachmentIndexer::addContent(const MCOAttachment& attachment)
{
    NSError error;
    const auto url = writeNewFile(attachment.data(), m_folder, attachment.filename(), &error);
    if (!url) {
        NSLog("Cannot write mail attachment data for indexing: {}", error.localizedDescription());
        return false;
    }
    const WrittenFile file(*url);
    return addFile(file.url());
}

bool MailAttachmentIndexer::addFile(const NSURL& url)
{
    const auto document = SKDocument::createWithURL(url);
    if (!document || !m_index.addDocument(document, std::nullopt, SKReplace::Yes))
        return false;
    if (m_index.moveDocument(document, m_parentDocument))
        return true;
    (void)m_index.removeDocument(document); // Nothing may point into the temporary folder; absent is as good.
    return false;
}

bool MailAttachmentIndexer::add(const MCOAttachment& attachment,
                                const std::optional<std::string>& recognisedText)
{
    const auto text = attachmentText(recognisedText, termsOf(attachment));
    return text.empty() ? addContent(attachment) : addText(attachment.filename(), text);
}

std::optional<NSURL> makeTemporaryFolder(NSError* error)
{
    auto folder = NSFileManager::temporaryDirectory().URLByAppendingPathComponent("CVLINDEXING "
                                                                                  + NSUUID::UUIDString());
    if (!NSFileManager::createDirectoryAtURL(folder, true, error))
        return std::nullopt;
    return folder;
}

} // namespace

void indexMailAttachments(const AttachmentsInfo& attachmentsInfo, const NSURL& messageURL,
                          const SKDocumentRef& parentDocument, SKIndex& index, const ImageTerms& imageTerms)
{
    NSError error;
    const auto message = readMailMessage(messageURL, &error);
    if (!message)
        return NSLog("Couldn't open message data for indexing attachments: {}", error.localizedDescription());
    const auto folder = makeTemporaryFolder(&error);
    if (!folder)
        return NSLog("Couldn't create temporary directory to index attachments: {}",
                     error.localizedDescription());
    MailAttachmentIndexer indexer(parentDocument, index, imageTerms, *folder);
    const auto deadline = std::chrono::steady_clock::now() + kTimeForAllAttachments;
    const MCOMessageParser parser(*message);
    for (const auto& attachment : parser.attachments()) {
        const auto& name = attachment.filename();
        if (name.empty())
            continue;
        if (std::chrono::steady_clock::now() >= deadline
            || !indexer.add(attachment, recognisedTextOfAttachment(attachmentsInfo, name)))
            NSLog("Couldn't index mail attachment {}", name);
    }
}
