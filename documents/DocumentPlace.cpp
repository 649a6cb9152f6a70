#include "documents/DocumentPlace.h"

#include "documents/DocumentErrors.h"
#include "platform/foundation/FileDescriptor.h"
#include "platform/types/UTType.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

constexpr auto kFileExists = static_cast<NSCocoaError>(516);
constexpr std::string_view kStartOfPNG = "\x89PNG\r\n\x1a\n";

using Status = struct stat;

bool failWithErrno(NSError* error, int errnoValue, const NSURL& url)
{
    setError(error, NSError::errorWithErrno(errnoValue, url.path()));
    return false;
}

bool fail(NSError* error, std::u16string_view text)
{
    setError(error, documentError(kFileExists, text));
    return false;
}

bool holdsFile(const fs::path& folder, std::string_view name)
{
    std::error_code failure; // What cannot be looked at is not there.
    return fs::is_regular_file(fs::symlink_status(folder / name, failure));
}

bool isPackageName(const fs::path& folder)
{
    const auto kind = documentKindOfPath(folder.native());
    const auto type = UTType::typeWithFilenameExtension(
        folder.extension().native().substr(std::min<std::size_t>(folder.extension().native().size(), 1)));
    return type && type->conformsToType("com.apple.package")
        && (kind == DocumentKind::Note || kind == DocumentKind::RTFD);
}

/// A damaged one may have lost either.
bool holdsNote(const fs::path& folder)
{
    return holdsFile(folder, "NoteText") || holdsFile(folder, "NoteAttributes");
}

bool holdsRTFD(const fs::path& folder)
{
    return holdsFile(folder, "TXT.rtf") && !holdsNote(folder);
}

/// As far as there is anything, links are followed; what is not there yet is taken as it is called.
fs::path resolvedPath(const NSURL& url)
{
    std::error_code failure;
    const auto path = fs::weakly_canonical(url.path(), failure);
    return failure ? fs::path(url.path()) : path;
}

bool isSame(const fs::path& path, const NSURL& source)
{
    std::error_code failure; // What is not there is not the source.
    return fs::equivalent(path, source.path(), failure);
}

bool isSourceOrWithin(fs::path path, const NSURL& source)
{
    while (!isSame(path, source)) {
        if (!path.has_relative_path())
            return false;
        path = path.parent_path();
    }
    return true;
}

bool mayReplaceFolder(const DocumentPlace& place, NSError* error)
{
    const auto path = resolvedPath(place.url);
    const bool isPackage = place.kind == DocumentKind::Note || place.kind == DocumentKind::RTFD;
    if (!isPackage || !isPackageName(path))
        return failWithErrno(error, EISDIR, place.url);
    std::error_code failure;
    if (fs::is_empty(path, failure))
        return true;
    const bool isLike = place.kind == DocumentKind::Note ? holdsNote(path) : holdsRTFD(path);
    return isLike || fail(error, u"There is a folder that holds something else, which is not replaced.");
}

bool isEmptyOrImage(const NSURL& url)
{
    const auto file = FileDescriptor::openForReading(url.path());
    const auto start = file.isValid() ? readFile(file.get(), kStartOfPNG.size()) : std::nullopt;
    return start && (start->empty() || *start == kStartOfPNG);
}

bool mayReplace(const DocumentPlace& place, const Status& status, NSError* error)
{
    const bool isFile = place.kind != DocumentKind::Note && place.kind != DocumentKind::RTFD;
    if (isFile && (S_ISFIFO(status.st_mode) || S_ISCHR(status.st_mode)))
        return true;
    if (place.existing == ExistingFiles::Keep)
        return failWithErrno(error, EEXIST, place.url);
    if (S_ISDIR(status.st_mode))
        return mayReplaceFolder(place, error);
    const bool isKept = place.existing == ExistingFiles::ReplaceImage && !isEmptyOrImage(place.url);
    if (isFile && S_ISREG(status.st_mode) && !isKept)
        return true;
    return failWithErrno(error, EEXIST, place.url);
}

} // namespace

bool mayWriteDocument(const DocumentPlace& place, NSError* error)
{
    if (place.source && isSourceOrWithin(resolvedPath(place.url), *place.source))
        return fail(error, u"It is what is to be read, or lies in it.");
    if (isInPackage(place.url, error))
        return false;
    Status status{};
    if (::stat(place.url.path().c_str(), &status) == 0)
        return mayReplace(place, status, error);
    if (errno != ENOENT)
        return failWithErrno(error, errno, place.url);
    const bool isLink = ::lstat(place.url.path().c_str(), &status) == 0;
    return !isLink || failWithErrno(error, EEXIST, place.url);
}

bool isInPackage(const NSURL& url, NSError* error)
{
    auto path = resolvedPath(url);
    std::error_code failure; // A folder that cannot be looked at cannot be written into.
    while (path.has_relative_path()) {
        path = path.parent_path();
        if (holdsNote(path) || (isPackageName(path) && fs::is_directory(path, failure)))
            return !fail(error, u"It lies in a note or an RTFD package, which it would damage.");
    }
    return false;
}

NSURL resolvedDocumentURL(const NSURL& url)
{
    std::error_code failure;
    const auto path = fs::canonical(url.path(), failure);
    return failure ? url : NSURL::fileURLWithPath(path.native());
}
