#include "note/NoteMembers.h"

#include "platform/foundation/FileNameText.h"
#include "platform/foundation/NSLog.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <system_error>
#include <utility>

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { (void)::closedir(folder); } // Nothing was written through it.
};

NSFileType fileTypeOf(mode_t mode)
{
    if (S_ISDIR(mode))
        return NSFileType::Directory;
    return S_ISLNK(mode) ? NSFileType::SymbolicLink : NSFileType::Regular;
}

void logFailure(const NSURL& url, int reason)
{
    NSLog("{} cannot be read: {}", url.absoluteString(), std::generic_category().message(reason));
}

} // namespace

std::optional<NoteMembers> NoteMembers::createWithURL(const NSURL& url)
{
    // A folder whose names cannot be read may have members that can.
    constexpr int kFlags = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    FileDescriptor folder(::open(url.path().c_str(), kFlags));
    if (!folder.isValid())
        return std::nullopt;
    return NoteMembers(url, std::move(folder));
}

NoteMembers::Member NoteMembers::read(std::u16string_view name, std::size_t mostBytes) const
{
    const auto onDisk = fileNameFromText(name);
    const auto url = m_url.URLByAppendingPathComponent(onDisk);

    struct stat status { };

    if (::fstatat(m_folder.get(), onDisk.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        const int reason = errno;
        if (reason == ENOENT)
            return {State::Absent};
        logFailure(url, reason);
        return {State::Unreadable};
    }
    if (!S_ISREG(status.st_mode))
        return {State::NoFile};
    std::optional<std::string> bytes;
    if (static_cast<std::size_t>(status.st_size) <= mostBytes) {
        constexpr int kFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
        const FileDescriptor file(::openat(m_folder.get(), onDisk.c_str(), kFlags));
        bytes = file.isValid() ? readFile(file.get(), mostBytes + 1) : std::nullopt;
        if (!bytes) {
            logFailure(url, errno);
            return {State::Unreadable};
        }
    }
    if (bytes && bytes->size() <= mostBytes)
        return {State::Read, *std::move(bytes)};
    NSLog("{} is too large for its text to be read", url.absoluteString());
    return {State::TooLarge};
}

std::optional<NSFileWrapper::FileWrappers> NoteMembers::emptyMembers() const
{
    FileDescriptor descriptor(::openat(m_folder.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, CloseFolder> folder(descriptor.isValid() ? ::fdopendir(descriptor.get())
                                                                        : nullptr);
    if (!folder) {
        logFailure(m_url, errno);
        return std::nullopt;
    }
    (void)descriptor.release(); // It is the folder's now.
    NSFileWrapper::FileWrappers members;
    errno = 0;
    while (const auto* entry = ::readdir(folder.get())) { // NOLINT(concurrency-mt-unsafe): one's own stream
        const std::string name(&entry->d_name[0]);

        struct stat status { };

        if (isFileName(std::string_view(name)) && members.size() < NSFileWrapper::kMostMembers
            && ::fstatat(m_folder.get(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0)
            members.emplace(textFromFileName(name),
                            std::make_shared<NSFileWrapper>(fileTypeOf(status.st_mode)));
        errno = 0;
    }
    if (errno == 0)
        return members;
    logFailure(m_url, errno);
    return std::nullopt;
}

NSFileWrapper::Ref NoteMembers::packageWithContents(std::u16string_view name, Member member) const
{
    auto members = emptyMembers();
    if (!members)
        return nullptr;
    if (member.state == State::Read)
        members->insert_or_assign(std::u16string(name),
                                  NSFileWrapper::initRegularFileWithContents({std::move(member.bytes)}));
    return NSFileWrapper::initDirectoryWithFileWrappers(*members);
}
