#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/DocumentArgument.h"
#include "cli/ErrorMessage.h"
#include "cli/MissingFiles.h"
#include "cli/NoteArgument.h"
#include "cli/NoteCommand.h"
#include "documents/DocumentFile.h"
#include "documents/NoteImport.h"
#include "platform/foundation/Unicode.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace {

constexpr const char* kExplanation
    = "FILE is Markdown, a page (HTML), RTF, RTFD, a Word document (docx), plain text or another note. Items "
      "with boxes to tick become checklists, rules become dividers, and the images beside Markdown and pages "
      "attachments. A note is written anew with all that can be read of it, recovered if need be; what is "
      "lost, lines on standard error say.\n"
      "\n"
      "Examples:\n"
      "  corvel note new Groceries.cvlnote --from groceries.md\n"
      "  pandoc -t markdown paper.tex | corvel note new Paper.cvlnote --from - --kind markdown";

struct NewArguments {
    std::string path;
    std::optional<std::string> from;
    std::optional<std::string> kind;
    bool isForced = false;
};

bool isNote(const NewArguments& arguments)
{
    if (arguments.kind)
        return documentKindToRead(*arguments.kind) == DocumentKind::Note;
    return documentKindOfFile(NSURL::fileURLWithPath(*arguments.from)) == DocumentKind::Note;
}

/// What is lost must not be lost in silence: in the new note nothing shows it.
std::unique_ptr<CVLNoteFile> noteOfNote(const std::string& path)
{
    auto note = readNoteOfArgument(path);
    if (!note)
        return nullptr;
    tellLosses(path);
    takeLinksOut(*note);
    return note;
}

/// Null, and said why, when the file cannot be read.
std::unique_ptr<CVLNoteFile> noteOfFile(const NewArguments& arguments)
{
    if (isNote(arguments))
        return noteOfNote(*arguments.from);
    const auto document = readDocumentOfArgument(*arguments.from, arguments.kind);
    if (!document)
        return nullptr;
    auto note = std::make_unique<CVLNoteFile>();
    note->setNoteText(noteTextOfDocument(*document));
    return note;
}

ExitStatus makeNote(const NewArguments& arguments)
{
    const auto url = NSURL::fileURLWithPath(arguments.path);
    if (documentKindOfPath(url.path()) != DocumentKind::Note)
        throw UsageError("note new: the name of a note ends in .cvlnote");
    if (arguments.kind && !arguments.from)
        throw UsageError("note new: --kind says what the file of --from is");
    NSError error;
    const auto existing = arguments.isForced ? ExistingFiles::Replace : ExistingFiles::Keep;
    const auto source
        = arguments.from ? std::optional(NSURL::fileURLWithPath(*arguments.from)) : std::nullopt;
    if (!mayWriteDocument({url, DocumentKind::Note, existing, source}, &error)) {
        printError(arguments.path, errorReason(error, arguments.path));
        return ExitStatus::Failure;
    }
    const auto note = arguments.from ? noteOfFile(arguments) : std::make_unique<CVLNoteFile>();
    if (!note)
        return ExitStatus::Failure;
    if (note->saveToFileURL(resolvedDocumentURL(url), &error))
        return ExitStatus::Success;
    printError(arguments.path, errorReason(error, arguments.path));
    return ExitStatus::Failure;
}

} // namespace

Command addNoteNewCommand(CLI::App& command)
{
    auto arguments = std::make_shared<NewArguments>();
    auto& syntax = addCommand(command, "new", "Make a note, empty or of a file.", kExplanation);
    addPathOption(syntax, "--from", arguments->from, "FILE",
                  "What the note is made of; - for standard input, pipes are read too");
    addTextOption(
        syntax, "--kind", arguments->kind, "KIND",
        "What FILE is, whatever its name says: markdown, html, rtf, rtfd, docx, txt or note (default "
        "of standard input and of pipes: txt)");
    syntax.add_flag("--force", arguments->isForced, "Replace the note that is there");
    addPathArgument(syntax, "OUT", arguments->path, "The note to make");
    return {&syntax, [arguments] { return makeNote(*arguments); }};
}
