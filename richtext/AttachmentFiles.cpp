#include "richtext/AttachmentFiles.h"

#include "platform/foundation/FileNameText.h"
#include "platform/foundation/NSLog.h"
#include "platform/types/UTType.h"
#include "richtext/AttachmentRuns.h"
#include "strings/FileNames.h"

#include <optional>

namespace {

constexpr std::size_t kTooLongName = 256;

/// Where the attachment's file was written; none when it was not.
std::optional<NSURL> writeUnlessImage(const NSTextAttachment& attachment, const NSURL& folder)
{
    const auto& file = attachment.fileWrapper();
    const auto type = attachment.fileType();
    if (!file || !file->filename() || !type || UTType::identifierConformsToType(*type, kUTTypeImage))
        return std::nullopt;
    const auto name = fileNameFromText(*file->filename());
    if (!isFileName(std::string_view(name))) {
        NSLog("{} is not written: no file in a folder can have that name", name);
        return std::nullopt;
    }
    auto url = folder.URLByAppendingPathComponent(name);
    // The list that is given says which files are there, and so which are not.
    return file->writeToURL(url, 0) ? std::optional(std::move(url)) : std::nullopt;
}

} // namespace

bool DynamicColors::containsFileAttachments(const NSAttributedString& text)
{
    bool found = false;
    text.enumerateAttribute(NSAttachmentAttributeName, {0, text.length()},
                            {.longestEffectiveRangeNotRequired = true},
                            [&found](const NSAny& value, NSRange, bool& stop) {
                                const auto attachment = value.object<NSTextAttachment>();
                                found = attachment && attachment->fileWrapper();
                                stop = found;
                            });
    return found;
}

std::vector<NSFileWrapper::Ref> DynamicColors::fileAttachments(const NSAttributedString& text)
{
    std::vector<NSFileWrapper::Ref> files;
    enumerateAttachments<NSTextAttachment>(text, [&files](const auto& attachment, NSRange) {
        if (attachment->fileWrapper())
            files.push_back(attachment->fileWrapper());
    });
    return files;
}

std::vector<NSURL> DynamicColors::fileURLsForNonImageAttachmentsWrittenToURL(const NSAttributedString& text,
                                                                             const NSURL& folder)
{
    std::vector<NSURL> urls;
    enumerateAttachments<NSTextAttachment>(text, [&](const auto& attachment, NSRange) {
        if (auto url = writeUnlessImage(*attachment, folder))
            urls.push_back(std::move(*url));
    });
    return urls;
}

void DynamicColors::fixLengthOfAttachmentFilenames(NSMutableAttributedString& text)
{
    enumerateAttachments<NSTextAttachment>(text, [](const auto& attachment, NSRange) {
        const auto& file = attachment->fileWrapper();
        const auto name = file ? file->preferredFilename().value_or(u"") : std::u16string();
        if (name.size() >= kTooLongName)
            file->setPreferredFilename(TSExtensions::stringSanitizedForFileName(name));
    });
}
