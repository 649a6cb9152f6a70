#include "cli/NoteArgument.h"

#include "cli/Console.h"
#include "cli/ErrorMessage.h"

#include <filesystem>
#include <system_error>

NSURL urlOfNoteArgument(const std::string& path)
{
    std::error_code failure;
    const auto resolved = std::filesystem::canonical(path, failure);
    return NSURL::fileURLWithPath(failure ? path : resolved.native());
}

std::unique_ptr<CVLNoteFile> readNoteOfArgument(const std::string& path)
{
    const auto url = urlOfNoteArgument(path);
    NSError error;
    auto note = CVLNoteFile::initWithFileURL(url, &error);
    if (!note)
        printError(path, errorReason(error, url.path()));
    return note;
}
