#include "service/DocumentRemoval.h"

#include "platform/foundation/NSLog.h"
#include "service/CVLIndexingError.h"

namespace {

/// Compaction pays when more than every second identifier is unused.
constexpr std::int64_t kIdentifiersPerDocument = 2;

void removeDocument(SKIndex& index, std::string_view urlString)
{
    const auto url = NSURL::URLWithString(urlString);
    const auto document = url ? SKDocument::createWithURL(*url) : nullptr;
    if (document)
        (void)index.removeDocument(document); // What the index does not hold needs no removing.
}

bool needsCompaction(const SKIndex& index)
{
    const auto count = index.documentCount();
    return count >= 1 && index.maximumDocumentID() > kIdentifiersPerDocument * count;
}

} // namespace

void removeDocuments(const std::vector<std::string_view>& fileURLs, const std::optional<NSURL>& indexFileURL,
                     const IndexingEnvironment& environment, const ReplyBlock& reply)
{
    auto index = environment.openIndexForRequest(indexFileURL);
    if (!index)
        return reply(failureReply(indexingError(CVLIndexingError::IndexNotOpened)));
    for (const auto urlString : fileURLs)
        removeDocument(*index, urlString);
    if (!index->flush())
        throw SKIndexException("the removal could not be written to the index");
    if (needsCompaction(*index) && !index->compact())
        NSLog("Couldn't compact index {}", indexFileURL->absoluteString());
    index.reset();
    reply({});
}
