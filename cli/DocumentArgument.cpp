#include "cli/DocumentArgument.h"

#include "cli/Command.h"
#include "cli/Console.h"
#include "cli/ErrorMessage.h"
#include "cli/TextArgument.h"

namespace {

std::optional<Document> readStandardInputDocument(DocumentKind kind, NSError& error)
{
    auto bytes = readStandardInput();
    if (!bytes) {
        error = NSError::errorWithErrno(errno, "standard input");
        return std::nullopt;
    }
    return documentWithData({std::move(*bytes)}, kind, &error);
}

} // namespace

DocumentKind documentKindOfArgument(const std::string& name)
{
    const auto kind = documentKindNamed(name);
    if (!kind)
        throw UsageError(name
                         + " is no kind of file: give markdown, html, rtf, rtfd, docx, txt, pdf or note");
    return *kind;
}

std::optional<Document> readDocumentOfArgument(const std::string& path,
                                               const std::optional<std::string>& kindName)
{
    const auto kind = kindName ? std::optional(documentKindOfArgument(*kindName)) : std::nullopt;
    const auto url = NSURL::fileURLWithPath(path);
    NSError error;
    auto document = path == kStandardInput
        ? readStandardInputDocument(kind.value_or(DocumentKind::PlainText), error)
        : kind ? readDocument(url, *kind, &error)
               : readDocument(url, &error);
    if (!document)
        printError(path == kStandardInput ? "standard input" : path, errorReason(error, path));
    return document;
}
