#include "platform/search/FileText.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSLog.h"
#include "platform/media/ContentReader.h"
#include "platform/search/ExtractorPlugIns.h"
#include "platform/types/UTType.h"

#include <sys/stat.h>

namespace {

// Opening a FIFO or a device may have effects of its own; they are no items.
bool isFileOrFolder(const std::string& path)
{
    struct stat status { };

    return ::stat(path.c_str(), &status) == 0 && (S_ISREG(status.st_mode) || S_ISDIR(status.st_mode));
}

std::optional<UTType> typeFor(const NSURL& url, const std::optional<std::string>& mimeTypeHint)
{
    if (mimeTypeHint) {
        if (auto hinted = UTType::typeWithMIMEType(*mimeTypeHint))
            return hinted;
    }
    return UTType::contentTypeOfFile(url);
}

std::string joinedText(Content content)
{
    std::string text;
    for (const auto& field : content.fields)
        text.append(field.value).append("\n");
    return text.empty() ? std::move(content.text) : text.append(content.text);
}

} // namespace

std::optional<std::string> textOfFile(const NSURL& url, const std::optional<std::string>& mimeTypeHint)
{
    const auto path = url.isFileURL() ? url.path() : std::string();
    if (path.empty() || !isFileOrFolder(path))
        return std::nullopt;
    const auto file = FileDescriptor::openForReading(path);
    if (!file.isValid())
        return std::nullopt;
    const auto type = typeFor(url, mimeTypeHint);
    if (!type || !isReadByLoadedExtractors(*type)) {
        NSLog("Indexed by name only: {}: no extractor for {}", path, type ? type->identifier() : "its type");
        return std::string();
    }
    auto content = readContent({file.get(), {}, type->identifier(), url.lastPathComponent()});
    if (content.status == ContentStatus::Unreadable)
        return std::nullopt;
    for (const auto& note : content.cutNotes)
        NSLog("Indexed in part: {}: {}", path, note);
    if (content.status == ContentStatus::Read)
        return joinedText(std::move(content));
    NSLog("Indexed by name only: {}: {}", path, content.reason);
    return std::string();
}
