#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/DocumentArgument.h"
#include "cli/ErrorMessage.h"
#include "cli/MissingFiles.h"
#include "cli/NoteArgument.h"
#include "cli/NoteCommand.h"
#include "cli/OutputFile.h"
#include "cli/TextArgument.h"
#include "documents/DocumentFile.h"
#include "platform/foundation/Unicode.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>
#include <string>

namespace {

constexpr const char* kExplanation
    = "Markdown and pages have their images and other files in a folder beside OUT, list_files for list.md; "
      "RTFD packages and Word documents have them within. RTF, plain text, and what goes to standard output, "
      "leave them out, and a line on standard error says how many.\n"
      "\n"
      "Examples:\n"
      "  corvel note export Groceries.cvlnote -o groceries.md\n"
      "  corvel note export Groceries.cvlnote --to html -o index.html --force\n"
      "  corvel note export Groceries.cvlnote --to txt | wc -w";

struct ExportArguments {
    std::string path;
    std::optional<std::string> output;
    std::optional<std::string> kind;
    bool isForced = false;
};

DocumentKind kindOf(const ExportArguments& arguments)
{
    if (arguments.kind)
        return documentKindToWrite(*arguments.kind);
    const auto kind = arguments.output ? documentKindOfPath(*arguments.output) : std::nullopt;
    if (!kind)
        throw UsageError("note export: say with --to what the note is to become");
    return *kind;
}

void tellLeftOut(const std::string& path, std::size_t count)
{
    if (count > 0)
        printError(path,
                   std::to_string(count) + (count == 1 ? " attachment was" : " attachments were")
                       + " left out");
}

/// The other kinds have the names of files at the most, which stay there for missing ones too.
bool holdsFiles(DocumentKind kind)
{
    return kind == DocumentKind::Markdown || kind == DocumentKind::Page || kind == DocumentKind::RTFD
        || kind == DocumentKind::PDF;
}

std::optional<ExportedDocument> exportedNote(const ExportArguments& arguments, DocumentKind kind,
                                             const DocumentExportOptions& options)
{
    const auto note = readNoteOfArgument(arguments.path);
    if (!note)
        return std::nullopt;
    const auto missingCount
        = holdsFiles(kind) ? takeMissingFilesOut(*note, urlOfNoteArgument(arguments.path)) : 0;
    NSError error;
    auto document = exportedDocument(*note, kind, options, &error);
    if (document)
        document->leftOutCount += missingCount;
    else
        printError(arguments.path, errorMessage(error));
    return document;
}

bool isText(DocumentKind kind)
{
    return kind == DocumentKind::Markdown || kind == DocumentKind::Page || kind == DocumentKind::RTF
        || kind == DocumentKind::PlainText;
}

/// What is no text goes to standard output only for somebody who asks for it; packages cannot.
bool mayShow(DocumentKind kind, bool isAskedFor)
{
    return isText(kind) || (isAskedFor && kind != DocumentKind::RTFD);
}

ExitStatus showNote(const ExportArguments& arguments, DocumentKind kind, const DocumentExportOptions& options)
{
    if (!mayShow(kind, arguments.output.has_value()))
        throw UsageError("note export: give the file to write with -o");
    const auto document = exportedNote(arguments, kind, options);
    if (!document)
        return ExitStatus::Failure;
    const auto& bytes = document->document->regularFileContents()->bytes;
    NSError error;
    if (isText(kind) && !bytes.empty())
        printText(bytes);
    else if (!isText(kind) && !writeStandardOutput(bytes, &error)) {
        printError("standard output", errorReason(error, "standard output"));
        return ExitStatus::Failure;
    }
    tellLeftOut(arguments.path, document->leftOutCount);
    return ExitStatus::Success;
}

ExitStatus writeNote(const ExportArguments& arguments, DocumentKind kind, DocumentExportOptions options)
{
    const auto url = NSURL::fileURLWithPath(*arguments.output);
    const auto existing = arguments.isForced ? ExistingFiles::Replace : ExistingFiles::Keep;
    options.filesFolder = filesFolderOfDocument(url);
    const auto document = exportedNote(arguments, kind, options);
    if (!document)
        return ExitStatus::Failure;
    NSError error;
    const DocumentPlace place{url, kind, existing, urlOfNoteArgument(arguments.path)};
    if (!writeDocument(*document, place, options.filesFolder, &error)) {
        printError(*arguments.output, errorReason(error, *arguments.output));
        return ExitStatus::Failure;
    }
    tellLeftOut(arguments.path, document->leftOutCount);
    return ExitStatus::Success;
}

ExitStatus exportNote(const ExportArguments& arguments)
{
    const auto kind = kindOf(arguments);
    const auto name = std::filesystem::path(urlOfNoteArgument(arguments.path).path()).stem().native();
    const DocumentExportOptions options{.title = UTF16FromUTF8(name)};
    const bool isShown = !arguments.output || isStandardOutput(*arguments.output);
    return isShown ? showNote(arguments, kind, options) : writeNote(arguments, kind, options);
}

} // namespace

Command addNoteExportCommand(CLI::App& command)
{
    auto arguments = std::make_shared<ExportArguments>();
    auto& syntax = addCommand(command, "export", "Write a note as a file of another kind.", kExplanation);
    addTextOption(syntax, "--to", arguments->kind, "KIND",
                  "markdown, html, rtf, rtfd, docx, txt or pdf (default: by the name of OUT)");
    addPathOption(syntax, "-o,--output", arguments->output, "OUT",
                  "The file to write; - for standard output (default, for kinds that are text)");
    syntax.add_flag("--force", arguments->isForced, "Replace what is there");
    addPathArgument(syntax, "NOTE", arguments->path, "The note");
    return {&syntax, [arguments] { return exportNote(*arguments); }};
}
