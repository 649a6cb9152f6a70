#include "service/ItemIndexing.h"

#include "note/NotePackage.h"
#include "platform/media/PDFTextCache.h"
#include "service/AttachmentIndexing.h"
#include "service/CVLIndexingError.h"
#include "service/ItemText.h"
#include "service/MailAttachmentIndexing.h"

#include <exception>
#include <memory>
#include <string>
#include <utility>

namespace {

using UserInfo = std::map<std::string, NSErrorValue>;

SKDocumentRef documentOfReachableFile(const std::optional<NSURL>& url)
{
    return url && url->checkResourceIsReachableAndReturnError() ? SKDocument::createWithURL(*url) : nullptr;
}

bool addDocument(SKIndex& index, const SKDocumentRef& document, const ItemText& item)
{
    if (item.text)
        return index.addDocumentWithText(document, *item.text, SKReplace::Yes);
    return index.addDocument(document, item.mimeTypeHint, SKReplace::Yes);
}

void addAttachments(SKIndex& index, const SKDocumentRef& document, const ItemText& item,
                    const ItemIndexingRequest& request, const ItemSources& sources)
{
    const auto conformsTo
        = [&](std::string_view type) { return item.contentType && item.contentType->conformsToType(type); };
    if (conformsTo(CVLNoteType) || conformsTo(kUTTypeRTFD))
        indexAttachments(request.attachmentsInfo, document, index, *sources.imageTerms);
    else if (conformsTo(kUTTypeEmailMessage) && !request.attachmentsInfo.empty())
        indexMailAttachments(request.attachmentsInfo, *request.fileURL, document, index, *sources.imageTerms);
}

UserInfo userInfoOf(const std::exception& exception)
{
    const std::string reason = exception.what();
    return reason.empty() ? UserInfo() : UserInfo{{std::string(NSLocalizedDescriptionKey), reason}};
}

// Why the item could not be added; none when it was, and is durable.
std::optional<UserInfo> addItem(SKIndex& index, const SKDocumentRef& document,
                                const ItemIndexingRequest& request, const ItemSources& sources)
{
    // A PDF is walked for its text and then read by the extractor: in the scope both share the work.
    // Attachments are left out of it, as each has limits of its own.
    std::optional<PDFTextCache::RequestScope> scope(std::in_place);
    const auto item = textOfItem(*request.fileURL, request.textRecognitionData, sources);
    if (item.error)
        return UserInfo{{std::string(NSUnderlyingErrorKey), std::make_shared<const NSError>(*item.error)}};
    try {
        if (!addDocument(index, document, item))
            return UserInfo();
        scope.reset();
        addAttachments(index, document, item, request, sources);
        return index.flush() ? std::nullopt : std::optional(UserInfo());
    } catch (const std::exception& exception) {
        return userInfoOf(exception);
    }
}

} // namespace

void indexItem(const ItemIndexingRequest& request, const IndexingEnvironment& environment,
               const ReplyBlock& reply)
{
    const auto answer = [&](std::optional<NSError> error) {
        auto dictionary = error ? failureReply(std::move(*error)) : ReplyDictionary();
        dictionary.emplace(kItemIdentifierKey, std::string(request.identifier));
        reply(dictionary);
    };
    auto index = environment.openIndexForRequest(request.indexFileURL);
    if (!index)
        return answer(indexingError(CVLIndexingError::IndexNotOpened));
    const auto document = documentOfReachableFile(request.fileURL);
    if (!document) {
        index.reset();
        return answer(indexingError(CVLIndexingError::ItemUnreachable));
    }
    auto failure = addItem(*index, document, request, environment.sources);
    index.reset();
    answer(failure ? std::optional(indexingError(CVLIndexingError::AddFailed, std::move(*failure)))
                   : std::nullopt);
}
