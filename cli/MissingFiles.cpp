#include "cli/MissingFiles.h"

#include "cli/Console.h"
#include "cli/NoteArgument.h"
#include "note/NoteCheck.h"
#include "platform/foundation/FileNameText.h"
#include "platform/foundation/NSFileWrapper.h"
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

/// The member that other programs have for a file, under its name with a mark; empty when there is none.
std::string copyOf(std::u16string_view name, const NSURL& url)
{
    const auto ending = fileNameFromText(std::u16string(NSFileWrapperUniqueMark) + std::u16string(name));
    std::error_code failure; // Of a folder that cannot be looked into no copy is known.
    auto members = std::filesystem::directory_iterator(url.path(), failure);
    for (; !failure && members != std::filesystem::directory_iterator(); members.increment(failure)) {
        const std::string found = members->path().filename().native();
        std::error_code unknown; // What cannot be looked at is no copy.
        const auto status = members->symlink_status(unknown);
        if (found.ends_with(ending) && std::filesystem::is_regular_file(status))
            return found;
    }
    return {};
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
    const auto url = urlOfNoteArgument(path);
    const auto check = checkNote(url, ContentLimits().noteMemberBytes);
    for (const auto& finding : check.findings) {
        if (!finding.isLoss())
            continue;
        printError(path, UTF8FromUTF16(finding.description()));
        const bool isFile = finding.kind == NoteFinding::Kind::MissingFile;
        if (const auto copy = isFile ? copyOf(finding.subject, url) : std::string(); !copy.empty())
            printError(path, copy + " in it may be a copy");
    }
}
