#include "service/AttachmentIndexing.h"

#include "platform/foundation/NSLog.h"
#include "platform/types/UTType.h"
#include "service/AttachmentText.h"

#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

bool isNameOfMember(const std::string& name)
{
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos
        && name.find('\0') == std::string::npos;
}

bool isLink(const NSURL& url)
{
    struct stat status { };

    return ::lstat(url.path().c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

void removeStaleChildren(const AttachmentsInfo& attachmentsInfo, const SKDocumentRef& parentDocument,
                         SKIndex& index)
{
    std::vector<SKDocumentRef> stale;
    const auto children = index.documentIterator(parentDocument);
    while (auto child = children->copyNext()) {
        const auto name = child->name();
        if (!name || attachmentsInfo.find(*name) == attachmentsInfo.end())
            stale.push_back(std::move(child));
    }
    for (const auto& child : stale)
        (void)index.removeDocument(child); // It was there a moment ago; gone is gone.
}

std::vector<std::string> termsOfFile(const NSURL& url, const ImageTerms& imageTerms)
{
    const auto type = UTType::contentTypeOfFile(url);
    return type && imageTerms.isFileTypeSupported(*type) ? imageTerms.searchTermsForFile(url)
                                                         : std::vector<std::string>();
}

bool addAttachment(const std::string& name, const std::optional<std::string>& recognisedText,
                   const SKDocumentRef& parentDocument, SKIndex& index, const ImageTerms& imageTerms)
{
    if (!isNameOfMember(name))
        return false;
    const auto document = SKDocument::create({}, parentDocument, name);
    if (!document)
        return false;
    // A link may lead out of the package: what it points at is not looked at.
    const auto url = document->URL();
    const bool link = isLink(url);
    const auto terms = link ? std::vector<std::string>() : termsOfFile(url, imageTerms);
    const auto text = attachmentText(recognisedText, terms);
    if (!text.empty())
        return index.addDocumentWithText(document, text, SKReplace::Yes);
    return !link && index.addDocument(document, std::nullopt, SKReplace::Yes);
}

} // namespace

void indexAttachments(const AttachmentsInfo& attachmentsInfo, const SKDocumentRef& parentDocument,
                      SKIndex& index, const ImageTerms& imageTerms)
{
    removeStaleChildren(attachmentsInfo, parentDocument, index);
    for (const auto& [name, entry] : attachmentsInfo) {
        const auto recognisedText = recognisedTextOfAttachment(attachmentsInfo, name);
        if (!addAttachment(name, recognisedText, parentDocument, index, imageTerms))
            NSLog("Couldn't index attachment {}", name);
    }
}
