#include "cli/DocumentArgument.h"

#include "cli/Command.h"
#include "cli/Console.h"
#include "cli/ErrorMessage.h"
#include "cli/TextArgument.h"
#include "platform/foundation/FileDescriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::string_view kNameOfStandardInput = "standard input";
/// As much as the reader of any kind takes, and a byte that shows that there is more.
constexpr std::size_t kMostBytes = (std::size_t{512} << 20U) + 1;
constexpr std::size_t kBytesAtOnce = 65536;

/// Whether it can be read from front to back only, once.
bool isStream(const std::string& path)
{
    struct stat status { };

    return ::stat(path.c_str(), &status) == 0 && (S_ISFIFO(status.st_mode) || S_ISCHR(status.st_mode));
}

/// None, with errno set, when it cannot be read to its end.
std::optional<std::string> readStream(const std::string& path)
{
    // Unlike a file in a folder that is walked, a pipe that a person names is waited for.
    const FileDescriptor stream(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
    if (!stream.isValid())
        return std::nullopt;
    std::string bytes;
    std::string buffer(kBytesAtOnce, '\0');
    while (bytes.size() < kMostBytes) {
        const auto count = ::read(stream.get(), buffer.data(), buffer.size());
        if (count == 0)
            break;
        if (count > 0)
            bytes.append(buffer, 0, static_cast<std::size_t>(count));
        else if (errno != EINTR)
            return std::nullopt;
    }
    return bytes;
}

std::optional<Document> readStreamDocument(const std::string& path, DocumentKind kind, NSError& error)
{
    auto bytes = path == kStandardInput ? readStandardInput() : readStream(path);
    if (!bytes) {
        error = NSError::errorWithErrno(errno, path == kStandardInput ? kNameOfStandardInput : path);
        return std::nullopt;
    }
    return documentWithData({std::move(*bytes)}, kind, &error);
}

} // namespace

DocumentKind documentKindToRead(const std::string& name)
{
    const auto kind = documentKindNamed(name);
    if (!kind || kind == DocumentKind::PDF)
        throw UsageError(
            name + " is no kind of file that can be read: give markdown, html, rtf, rtfd, docx, txt or note");
    return *kind;
}

DocumentKind documentKindToWrite(const std::string& name)
{
    const auto kind = documentKindNamed(name);
    if (!kind || kind == DocumentKind::Note)
        throw UsageError(name
                         + " is no kind of file to write: give markdown, html, rtf, rtfd, docx, txt or pdf");
    return *kind;
}

std::optional<Document> readDocumentOfArgument(const std::string& path,
                                               const std::optional<std::string>& kindName)
{
    const auto kind = kindName ? std::optional(documentKindToRead(*kindName)) : std::nullopt;
    const auto url = NSURL::fileURLWithPath(path);
    const std::string name(path == kStandardInput ? kNameOfStandardInput : path);
    NSError error;
    auto document = path == kStandardInput || isStream(path)
        ? readStreamDocument(path, kind.value_or(DocumentKind::PlainText), error)
        : kind ? readDocument(url, *kind, &error)
               : readDocument(url, &error);
    if (!document)
        printError(name, errorReason(error, name));
    return document;
}
