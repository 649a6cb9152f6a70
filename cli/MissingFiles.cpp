#include "cli/MissingFiles.h"

#include "cli/Console.h"
#include "cli/NoteArgument.h"
#include "note/NoteCheck.h"
#include "platform/foundation/FileNameText.h"
#include "platform/foundation/Unicode.h"
#include "platform/media/ContentLimits.h"
#include "richtext/AttachmentRuns.h"

#include <filesystem>

namespace {

bool isLink(const NSTextAttachment& attachment)
{
    return attachment.fileWrapper() && attachment.fileWrapper()->isSymbolicLink();
}

bool isMissing(const NSTextAttachment& attachment, const NSURL& url)
{
    const auto& file = attachment.fileWrapper();
    const auto* const contents = file ? file->regularFileContents() : nullptr;
    if (!contents || !contents->bytes.empty() || !file->preferredFilename())
        return false;
    const auto member = url.URLByAppendingPathComponent(fileNameFromText(*file->preferredFilename()));
    std::error_code failure; // What cannot be looked at is missing as well.
    return !std::filesystem::exists(std::filesystem::symlink_status(member.path(), failure));
}

template <typename Condition> std::size_t takeOut(CVLNoteFile& note, const Condition& condition)
{
    NSMutableAttributedString text(note.noteText());
    std::size_t count = 0;
    enumerateAttachments<NSTextAttachment>(text, [&](const auto& attachment, NSRange range) {
        if (!condition(*attachment))
            return;
        text.deleteCharactersInRange(range);
        count += range.length;
    });
    if (count > 0)
        note.setNoteText(text);
    return count;
}

} // namespace

std::size_t takeMissingFilesOut(CVLNoteFile& note, const NSURL& url)
{
    return takeOut(note, [&url](const NSTextAttachment& attachment) {
        return isLink(attachment) || isMissing(attachment, url);
    });
}

void takeLinksOut(CVLNoteFile& note)
{
    (void)takeOut(note, isLink);
}

void tellLosses(const std::string& path)
{
    const auto check = checkNote(urlOfNoteArgument(path), ContentLimits().noteMemberBytes);
    for (const auto& finding : check.findings) {
        if (finding.isLoss())
            printError(path, UTF8FromUTF16(finding.description()));
    }
}
