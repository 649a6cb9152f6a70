#include "note/NotePlainText.h"

#include "note/CVLNoteFile.h"
#include "note/NoteRecovery.h"
#include "platform/foundation/NSLog.h"

#include <string_view>
#include <sys/stat.h>

namespace {

/// Nothing for what is not there. What is no file is there, but its contents are nothing to read.
bool statusOf(const std::string& path, struct stat& status)
{
    return ::lstat(path.c_str(), &status) == 0;
}

/// The members that hold text, in a folder by themselves.
class TextMembers {
public:
    TextMembers(const NSURL& package, std::size_t mostBytes)
        : m_package(package)
        , m_mostBytes(mostBytes)
    {
    }

    /// @return false when the member is there and cannot be read, or has too many bytes.
    bool add(std::string_view name)
    {
        const auto url = m_package.URLByAppendingPathComponent(name);

        struct stat status { };

        if (!statusOf(url.path(), status))
            return true;
        if (!S_ISREG(status.st_mode))
            return addMember(std::make_shared<NSFileWrapper>(NSFileType::Directory), name);
        if (static_cast<std::size_t>(status.st_size) > m_mostBytes) {
            NSLog("{} is too large for its text to be read", url.absoluteString());
            return false;
        }
        return addMember(NSFileWrapper::initWithURL(url, NSFileWrapperReadingOptions::Immediate), name);
    }

    [[nodiscard]] const NSFileWrapper& folder() const { return *m_folder; }

private:
    bool addMember(const NSFileWrapper::Ref& member, std::string_view name)
    {
        if (!member)
            return false;
        member->setPreferredFilename(std::u16string(name.begin(), name.end()));
        return !m_folder->addFileWrapper(member).empty();
    }

    const NSURL& m_package;
    std::size_t m_mostBytes;
    NSFileWrapper::Ref m_folder = std::make_shared<NSFileWrapper>(NSFileType::Directory);
};

std::optional<std::u16string> recoveredText(const NSURL& url, const NSFileWrapper& package)
{
    NSLog("Attempting to recover note from RTFD: {}", url.absoluteString());
    NSError error;
    const auto text = noteTextFromRTFD(package, error);
    return text ? std::optional(std::u16string(text->string())) : std::nullopt;
}

} // namespace

std::optional<std::u16string> plainTextOfNotePackage(const NSURL& url, std::size_t mostMemberBytes)
{
    struct stat status { };

    if (!statusOf(url.path(), status) || !S_ISDIR(status.st_mode))
        return std::nullopt;
    TextMembers members(url, mostMemberBytes);
    if (!members.add("NoteText") || !members.add("NoteAttributes") || !members.add("TXT.rtf"))
        return std::nullopt;
    NSError error;
    if (const auto note = CVLNoteFile::initWithFileWrapper(members.folder(), &error))
        return std::u16string(note->noteText().string());
    return isRecoverable(error) ? recoveredText(url, members.folder()) : std::nullopt;
}
