#include "documents/DocumentFile.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/FileNameText.h"
#include "platform/types/UTType.h"

#include <cerrno>
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

bool isPackage(const NSURL& url)
{
    const auto type = UTType::typeWithFilenameExtension(url.pathExtension());
    return type && type->conformsToType("com.apple.package");
}

NSURL folderBeside(const NSURL& url, const std::u16string& name)
{
    return url.URLByDeletingLastPathComponent().URLByAppendingPathComponent(fileNameFromText(name));
}

/// Where a link leads to; the URL itself of anything else.
NSURL resolvedURL(const NSURL& url)
{
    std::error_code failure;
    const auto path = std::filesystem::canonical(url.path(), failure);
    return failure ? url : NSURL::fileURLWithPath(path.native());
}

bool writeFile(NSFileWrapper& file, const NSURL& url, NSError* error)
{
    const auto target = resolvedURL(url);
    if (const auto status = statusOf(target.path(), Links::Follow); status && file.isRegularFile()) {
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

bool mayWriteDocument(const NSURL& url, NSFileType type, ExistingFiles existing, NSError* error)
{
    if (!statusOf(url.path(), Links::Show))
        return errno == ENOENT || failWithErrno(error, errno, url);
    if (existing == ExistingFiles::Keep)
        return failWithErrno(error, EEXIST, url);
    const auto status = statusOf(url.path(), Links::Follow);
    const bool isFolder = status && S_ISDIR(status->st_mode);
    if (type == NSFileType::Directory && isFolder && isPackage(url))
        return true;
    if (type == NSFileType::Regular && status && S_ISREG(status->st_mode))
        return true;
    return failWithErrno(error, isFolder ? EISDIR : EEXIST, url);
}

std::u16string filesFolderOfDocument(const NSURL& url)
{
    return textFromFileName(std::filesystem::path(url.path()).stem().native() + std::string(kFilesEnding));
}

bool writeDocument(const ExportedDocument& document, const NSURL& url, const std::u16string& filesFolder,
                   ExistingFiles existing, NSError* error)
{
    if (!mayWriteDocument(url, document.document->fileType(), existing, error))
        return false;
    const auto folder = folderBeside(url, filesFolder);
    const bool mayWrite = existing == ExistingFiles::Replace || keepsFiles(document.files, folder, error);
    if (!mayWrite)
        return false;
    if (!document.files.empty()
        && (!makeFilesFolder(folder, error) || !writeFiles(document.files, folder, error)))
        return false;
    return writeFile(*document.document, url, error);
}
