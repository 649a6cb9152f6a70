#include "service/DocumentMove.h"

#include "platform/foundation/NSLog.h"
#include "service/CVLIndexingError.h"

namespace {

SKDocumentRef documentOf(const std::optional<NSURL>& url)
{
    return url ? SKDocument::createWithURL(*url) : nullptr;
}

std::optional<NSURL> folderOf(const std::optional<NSURL>& url)
{
    return url ? std::optional(url->URLByDeletingLastPathComponent()) : std::nullopt;
}

bool renameOrMove(SKIndex& index, const std::optional<NSURL>& fileURL, const std::optional<NSURL>& toFileURL)
{
    const auto newFolder = folderOf(toFileURL);
    const bool isSameFolder = folderOf(fileURL) == newFolder;
    const auto document = documentOf(fileURL);
    if (!document)
        return false;
    if (isSameFolder)
        return index.renameDocument(document, toFileURL->lastPathComponent());
    const auto newParent = documentOf(newFolder);
    return newParent && index.moveDocument(document, newParent);
}

} // namespace

void moveDocument(const std::optional<NSURL>& fileURL, const std::optional<NSURL>& toFileURL,
                  const std::optional<NSURL>& indexFileURL, const IndexingEnvironment& environment,
                  const ReplyBlock& reply)
{
    const auto index = environment.openIndexForRequest(indexFileURL);
    if (!index)
        return reply(failureReply(indexingError(CVLIndexingError::IndexNotOpened)));
    bool moved = false;
    try {
        moved = renameOrMove(*index, fileURL, toFileURL) && index->flush();
    } catch (const SKIndexException& exception) {
        NSLog("Couldn't move {}: {}", fileURL->absoluteString(), exception.what());
    }
    if (moved)
        return reply({});
    reply(failureReply(indexingError(CVLIndexingError::MoveFailed)));
}
