#include "service/Corvel_Indexing.h"

#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSURLBookmark.h"
#include "service/DocumentMove.h"
#include "service/DocumentRemoval.h"
#include "service/ItemIndexing.h"

#include <utility>

Corvel_Indexing::Corvel_Indexing(IndexingEnvironment environment)
    : m_environment(std::move(environment))
{
    SKLoadDefaultExtractorPlugIns();
}

std::optional<NSURL> Corvel_Indexing::customFolderURL() const
{
    const auto url = m_customFolderURL.load();
    return url ? std::optional(*url) : std::nullopt;
}

void Corvel_Indexing::setCustomFolderBookmarkData(std::string_view bookmarkData)
{
    NSError error;
    const auto url = URLByResolvingBookmarkData(bookmarkData, &error);
    m_customFolderURL = url ? std::make_shared<const NSURL>(*url) : nullptr;
    if (!url)
        NSLog("Error resolving custom folder URL: {}", error.localizedDescription());
}

void Corvel_Indexing::indexItemWithIdentifier(std::string_view identifier,
                                              std::string_view textRecognitionData,
                                              const std::optional<NSURL>& fileURL,
                                              const AttachmentsInfo& attachmentsInfo,
                                              const std::optional<NSURL>& indexFileURL,
                                              const ReplyBlock& withReply)
{
    indexItem({identifier, textRecognitionData, fileURL, attachmentsInfo, indexFileURL}, m_environment,
              withReply);
}

void Corvel_Indexing::moveFileURL(const std::optional<NSURL>& fileURL, const std::optional<NSURL>& toFileURL,
                                  const std::optional<NSURL>& indexFileURL, const ReplyBlock& withReply)
{
    moveDocument(fileURL, toFileURL, indexFileURL, m_environment, withReply);
}

void Corvel_Indexing::removeFileURLs(const std::vector<std::string_view>& fileURLs,
                                     const std::optional<NSURL>& indexFileURL, const ReplyBlock& withReply)
{
    removeDocuments(fileURLs, indexFileURL, m_environment, withReply);
}
