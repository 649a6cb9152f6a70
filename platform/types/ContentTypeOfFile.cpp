#include "platform/foundation/FileDescriptor.h"
#include "platform/types/UTType.h"

#include <gio/gio.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

// The name decides where it says anything, by the declared types first and by the system's table of file
// names after that. Only a file whose name says nothing is opened, and only its start is looked at.

namespace {

constexpr std::size_t kLookedAtByteCount = 4096;

struct GFree {
    void operator()(char* text) const { g_free(text); }
};

using GLibText = std::unique_ptr<char, GFree>;

struct Guess {
    std::string mimeType;
    bool isUncertain = true;
};

Guess guessByNameOrContent(const std::string& name, std::string_view bytes)
{
    gboolean isUncertain = TRUE;
    const auto* data = reinterpret_cast<const guchar*>(bytes.data());
    const GLibText guessed(g_content_type_guess(name.empty() ? nullptr : name.c_str(),
                                                bytes.empty() ? nullptr : data, bytes.size(), &isUncertain));
    const GLibText mimeType(guessed ? g_content_type_get_mime_type(guessed.get()) : nullptr);
    return {mimeType ? mimeType.get() : "", isUncertain != FALSE};
}

// A kind that is only known to be some kind of text is read as text: "application/x-something" alone would
// not tell.
UTType typeForGuess(const Guess& guess)
{
    auto type = UTType::typeWithMIMEType(guess.mimeType);
    const bool isDeclared = type && !type->identifier().starts_with("dyn.");
    if (!isDeclared && g_content_type_is_a(guess.mimeType.c_str(), "text/plain") != FALSE)
        type = UTType::typeWithMIMEType("text/plain");
    return type ? *type : UTType::typeWithIdentifier(kUTTypeData).value();
}

std::optional<UTType> declaredTypeByName(const NSURL& url, bool isFolder)
{
    const auto type = UTType::typeWithFilenameExtension(url.pathExtension());
    return type && type->conformsToType("com.apple.package") == isFolder ? type : std::nullopt;
}

std::optional<UTType> guessedType(const NSURL& url, NSError* error)
{
    const auto name = url.lastPathComponent();
    auto guess = guessByNameOrContent(name, {});
    if (!guess.isUncertain)
        return typeForGuess(guess);
    const auto file = FileDescriptor::openForReading(url.path());
    const auto start = file.isValid() ? readFile(file.get(), kLookedAtByteCount) : std::nullopt;
    if (!start) {
        setError(error, NSError::errorWithErrno(errno, url.path()));
        return std::nullopt;
    }
    return typeForGuess(guessByNameOrContent(name, *start));
}

} // namespace

std::optional<UTType> UTType::contentTypeOfFile(const NSURL& url, NSError* error)
{
    const auto path = url.isFileURL() ? url.path() : std::string();

    struct stat status { };

    if (::stat(path.c_str(), &status) != 0 || ::faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0) {
        setError(error, NSError::errorWithErrno(errno, path));
        return std::nullopt;
    }
    const bool isFolder = S_ISDIR(status.st_mode);
    if (!isFolder && !S_ISREG(status.st_mode)) {
        setError(
            error,
            NSError::errorWithCode(NSCocoaError::FileReadUnknown, path + " is neither a file nor a folder"));
        return std::nullopt;
    }
    if (auto type = declaredTypeByName(url, isFolder))
        return type;
    return isFolder ? typeWithIdentifier(kUTTypeFolder) : guessedType(url, error);
}
