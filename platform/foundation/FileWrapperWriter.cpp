#include "platform/foundation/FileWrapperWriter.h"

#include "platform/foundation/FileNameText.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSUUID.h"

#include <cerrno>
#include <fcntl.h>

namespace {

bool failWith(int code)
{
    errno = code;
    return false;
}

constexpr unsigned kPermissionBits = 0777;
constexpr unsigned kOwnerReads = 0400;
constexpr unsigned kOwnerReadsFolder = 0700;

/// What a wrapper holds, counted as those count who read it.
class Measure {
public:
    /// 0, or the errno for a limit that it passes.
    // No deeper than the limit, and no more often than there may be members.
    int add(const NSFileWrapper& fileWrapper, std::size_t depth) // NOLINT(misc-no-recursion): see above
    {
        if (depth > NSFileWrapper::kMostDepth)
            return ELOOP;
        const auto* const contents = fileWrapper.regularFileContents();
        m_byteCount += contents ? contents->bytes.size() : 0;
        m_memberCount += fileWrapper.fileWrappers().size();
        int passed = m_byteCount > NSFileWrapper::kMostBytes || m_memberCount > NSFileWrapper::kMostMembers
            ? EFBIG
            : 0;
        for (auto member = fileWrapper.fileWrappers().begin();
             passed == 0 && member != fileWrapper.fileWrappers().end(); ++member)
            passed = add(*member->second, depth + 1);
        return passed;
    }

private:
    std::size_t m_byteCount = 0;
    std::size_t m_memberCount = 0;
};

/// Whether a rename failed because the file system does not know its kind.
bool isUnsupported(int code)
{
    return code == EINVAL || code == ENOSYS || code == ENOTSUP;
}

/// Whether a plain rename failed because a folder is in its way, or would take a file's place.
bool needsFreeName(int code)
{
    return code == ENOTEMPTY || code == EEXIST || code == EISDIR || code == ENOTDIR;
}

} // namespace

bool FileWrapperWriter::write(NSFileWrapper& fileWrapper, const NSURL& url, unsigned options, NSError* error)
{
    const auto path = url.isFileURL() ? url.path() : std::string();
    const auto slash = path.rfind('/');
    const auto name = slash == std::string::npos ? std::string() : path.substr(slash + 1);
    if (!isFileName(std::string_view(name))) {
        setError(error, NSError::errorWithErrno(EINVAL, url.absoluteString()));
        return false;
    }
    if (const int passed = Measure().add(fileWrapper, 0); passed != 0) {
        setError(error, NSError::errorWithErrno(passed, path));
        return false;
    }
    const auto folder = m_operations.openFolderAtPath(slash == 0 ? "/" : path.substr(0, slash));
    const auto hidden = ".corvel-" + NSUUID::UUIDString();
    const Place place{folder.get(), name, hidden, hidden + "-old"};
    const bool isAtomic = (options & NSFileWrapperWritingAtomic) != 0;
    const bool written = folder.isValid()
        && (isAtomic ? writeAtomically(fileWrapper, place) : writeInPlace(fileWrapper, place));
    if (!written) {
        setError(error, NSError::errorWithErrno(errno, path));
        return false;
    }
    if (!m_keepsPermissions)
        NSLog("{} has other permissions than it should: they cannot be set there", path);
    if ((options & NSFileWrapperWritingWithNameUpdating) != 0)
        updateNames(fileWrapper, textFromFileName(name));
    return true;
}

bool FileWrapperWriter::writeInPlace(const NSFileWrapper& fileWrapper, const Place& place)
{
    if (!build(fileWrapper, place.folder, place.name))
        return false;
    if (m_operations.sync(place.folder))
        return true;
    discard(place.folder, place.name);
    return false;
}

bool FileWrapperWriter::writeAtomically(const NSFileWrapper& fileWrapper, const Place& place)
{
    if (!build(fileWrapper, place.folder, place.building, place.name))
        return false;
    const auto placed = put(place);
    if (placed == Placed::No) {
        discard(place.folder, place.building);
        return false;
    }
    if (!m_operations.sync(place.folder)) {
        const int reason = errno;
        takeBack(place, placed);
        return failWith(reason);
    }
    removeOld(place, placed);
    return true;
}

bool FileWrapperWriter::build(const NSFileWrapper& fileWrapper, int folder, const std::string& name,
                              const std::string& predecessor)
{
    if (!isFileName(std::string_view(name)))
        return failWith(EINVAL);
    if (fileWrapper.isSymbolicLink())
        return m_operations.createLink(fileWrapper.symbolicLinkDestination(), folder, name);
    return fileWrapper.isDirectory() ? buildFolder(fileWrapper, folder, name, predecessor)
                                     : buildFile(fileWrapper, folder, name, predecessor);
}

bool FileWrapperWriter::buildFile(const NSFileWrapper& fileWrapper, int folder, const std::string& name,
                                  const std::string& predecessor)
{
    const auto file = m_operations.createFile(folder, name);
    if (!file.isValid())
        return false;
    if (!predecessor.empty())
        m_operations.inherit(folder, predecessor, file.get());
    const auto& attributes = fileWrapper.fileAttributes();
    const auto setDate = [&] {
        return !attributes.modificationDate
            || m_operations.setModificationDate(file.get(), *attributes.modificationDate);
    };
    if (m_operations.write(file.get(), fileWrapper.regularFileContents()->bytes) && setDate()
        && finish(attributes, file.get()))
        return true;
    discard(folder, name);
    return false;
}

bool FileWrapperWriter::buildFolder(const NSFileWrapper& fileWrapper, int folder, const std::string& name,
                                    const std::string& predecessor)
{
    if (!m_operations.createFolder(folder, name))
        return false;
    const auto made = m_operations.openFolder(folder, name);
    bool complete = made.isValid();
    if (complete && !predecessor.empty())
        m_operations.inherit(folder, predecessor, made.get());
    for (const auto& [key, member] : fileWrapper.fileWrappers())
        complete = complete && build(*member, made.get(), fileNameFromText(key));
    if (complete && finish(fileWrapper.fileAttributes(), made.get()))
        return true;
    discard(folder, name);
    return false;
}

bool FileWrapperWriter::finish(const NSFileAttributes& attributes, int file)
{
    if (attributes.extensionHidden)
        m_operations.setExtensionHidden(file);
    return setPermissions(attributes, file) && m_operations.sync(file);
}

bool FileWrapperWriter::setPermissions(const NSFileAttributes& attributes, int file)
{
    if (!attributes.posixPermissions)
        return true;
    const bool isFolder = attributes.fileType == NSFileType::Directory;
    const auto permissions
        = (*attributes.posixPermissions & kPermissionBits) | (isFolder ? kOwnerReadsFolder : kOwnerReads);
    if (m_operations.setPermissions(file, permissions))
        return true;
    // File systems without permissions say that nobody may set them.
    const bool isKnownThere = errno != EPERM && errno != ENOTSUP && errno != ENOSYS;
    m_keepsPermissions = m_keepsPermissions && isKnownThere;
    return !isKnownThere;
}

FileWrapperWriter::Placed FileWrapperWriter::put(const Place& place)
{
    if (m_operations.rename(place.folder, place.building, place.name, RenameKind::NoReplace))
        return Placed::New;
    if (errno == EEXIST
        && m_operations.rename(place.folder, place.building, place.name, RenameKind::Exchange))
        return Placed::Exchanged;
    return isUnsupported(errno) ? putWithoutExchange(place) : Placed::No;
}

FileWrapperWriter::Placed FileWrapperWriter::putWithoutExchange(const Place& place)
{
    if (m_operations.rename(place.folder, place.building, place.name, RenameKind::Replace))
        return Placed::Replaced;
    if (!needsFreeName(errno)
        || !m_operations.rename(place.folder, place.name, place.aside, RenameKind::Replace))
        return Placed::No;
    if (m_operations.rename(place.folder, place.building, place.name, RenameKind::Replace))
        return Placed::MovedAside;
    const int reason = errno;
    if (!m_operations.rename(place.folder, place.aside, place.name, RenameKind::Replace))
        NSLog("The old contents of {} are in {} now", place.name, place.aside);
    errno = reason;
    return Placed::No;
}

void FileWrapperWriter::takeBack(const Place& place, Placed placed)
{
    bool isBack = false;
    if (placed == Placed::Exchanged)
        isBack = m_operations.rename(place.folder, place.building, place.name, RenameKind::Exchange);
    else if (placed != Placed::Replaced)
        isBack = m_operations.rename(place.folder, place.name, place.building, RenameKind::Replace);
    if (isBack && placed == Placed::MovedAside)
        isBack = m_operations.rename(place.folder, place.aside, place.name, RenameKind::Replace);
    if (isBack)
        discard(place.folder, place.building);
    else
        NSLog("{} has its new contents, which may not be on the disk yet", place.name);
}

void FileWrapperWriter::removeOld(const Place& place, Placed placed)
{
    if (placed == Placed::New || placed == Placed::Replaced)
        return;
    const auto& old = placed == Placed::Exchanged ? place.building : place.aside;
    if (!m_operations.remove(place.folder, old))
        NSLog("{} has its new contents, but the old ones stay in {}", place.name, old);
}

void FileWrapperWriter::discard(int folder, const std::string& name)
{
    const int reason = errno;
    if (!m_operations.remove(folder, name))
        NSLog("{} is left of what could not be written", name);
    errno = reason;
}

void FileWrapperWriter::updateNames(NSFileWrapper& fileWrapper, const std::u16string& name)
{
    fileWrapper.setFilename(name);
    for (const auto& [key, member] : fileWrapper.fileWrappers())
        updateNames(*member, key);
}
