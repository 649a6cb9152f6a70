#include "documents/DocumentFile.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/FileNameText.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/stat.h>

namespace {

constexpr unsigned kPermissionBits = 0777;
constexpr std::string_view kFilesEnding = "_files";

using Status = struct stat;

enum class Links { Follow, Show };

/// None, with errno set, when there is nothing.
std::optional<Status> statusOf(const std::string& path, Links links)
{
    Status status{};
    const auto failed
        = links == Links::Follow ? ::stat(path.c_str(), &status) : ::lstat(path.c_str(), &status);
    return failed == 0 ? std::optional(status) : std::nullopt;
}

bool failWithErrno(NSError* error, int errnoValue, const NSURL& url)
{
    setError(error, NSError::errorWithErrno(errnoValue, url.path()));
    return false;
}

NSURL folderBeside(const NSURL& url, const std::u16string& name)
{
    return url.URLByDeletingLastPathComponent().URLByAppendingPathComponent(fileNameFromText(name));
}

bool writeThrough(const std::string& bytes, const NSURL& url, NSError* error)
{
    const FileDescriptor file(::open(url.path().c_str(), O_WRONLY | O_CLOEXEC));
    return (file.isValid() && writeAll(file.get(), bytes)) || failWithErrno(error, errno, url);
}

bool writeFile(NSFileWrapper& file, const NSURL& url, NSError* error)
{
    const auto target = resolvedDocumentURL(url);
    const auto status = file.isRegularFile() ? statusOf(target.path(), Links::Follow) : std::nullopt;
    if (status && !S_ISREG(status->st_mode))
        return writeThrough(file.regularFileContents()->bytes, target, error);
    if (status) {
        auto attributes = file.fileAttributes();
        attributes.posixPermissions = status->st_mode & kPermissionBits;
        file.setFileAttributes(attributes);
    }
    return file.writeToURL(target, NSFileWrapperWritingAtomic, std::nullopt, error);
}

bool makeFilesFolder(const NSURL& folder, NSError* error)
{
    if (::mkdir(folder.path().c_str(), kPermissionBits) == 0)
        return true;
    const auto errnoValue = errno;
    const auto status = statusOf(folder.path(), Links::Show);
    const bool isUsable = errnoValue == EEXIST && status && S_ISDIR(status->st_mode);
    return isUsable || failWithErrno(error, errnoValue, folder);
}

bool isSameFile(const NSFileWrapper& file, const NSURL& url)
{
    const auto* const contents = file.regularFileContents();
    const auto descriptor = contents ? FileDescriptor::openForReading(url.path()) : FileDescriptor();
    return descriptor.isValid() && readFile(descriptor.get(), contents->bytes.size() + 1) == contents->bytes;
}

/// Files that are there already, as the same note was written as another kind, need not be written.
bool keepsFiles(const NSFileWrapper::FileWrappers& files, const NSURL& folder, NSError* error)
{
    for (const auto& [name, file] : files) {
        const auto url = folder.URLByAppendingPathComponent(fileNameFromText(name));
        if (statusOf(url.path(), Links::Show) && !isSameFile(*file, url))
            return failWithErrno(error, EEXIST, url);
    }
    return true;
}

bool writeFiles(const NSFileWrapper::FileWrappers& files, const NSURL& folder, NSError* error)
{
    for (const auto& [name, file] : files) {
        const auto url = folder.URLByAppendingPathComponent(fileNameFromText(name));
        if (!file->writeToURL(url, NSFileWrapperWritingAtomic, std::nullopt, error))
            return false;
    }
    return true;
}

} // namespace

std::u16string filesFolderOfDocument(const NSURL& url)
{
    return textFromFileName(std::filesystem::path(url.path()).stem().native() + std::string(kFilesEnding));
}

bool writeDocument(const ExportedDocument& document, const DocumentPlace& place,
                   const std::u16string& filesFolder, NSError* error)
{
    if (!mayWriteDocument(place, error))
        return false;
    const auto folder = folderBeside(place.url, filesFolder);
    const bool mayWrite
        = place.existing == ExistingFiles::Replace || keepsFiles(document.files, folder, error);
    if (!mayWrite)
        return false;
    if (!document.files.empty()
        && (!makeFilesFolder(folder, error) || !writeFiles(document.files, folder, error)))
        return false;
    return writeFile(*document.document, place.url, error);
}
