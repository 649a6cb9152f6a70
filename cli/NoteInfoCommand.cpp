#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/ErrorMessage.h"
#include "cli/JSONLines.h"
#include "cli/NoteArgument.h"
#include "cli/NoteCommand.h"
#include "cli/NoteLines.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace {

constexpr const char* kExplanation = "Lengths count UTF-16 units. Attachments are listed with their type, "
                                     "whether they are shown as icons or in "
                                     "place, and their size.\n"
                                     "\n"
                                     "Examples:\n"
                                     "  corvel note info Groceries.cvlnote\n"
                                     "  corvel note info --json Groceries.cvlnote | jq .checklist.open";

struct InfoArguments {
    std::string path;
    bool isJSON = false;
};

/// Nothing, with the reason in `error`, for a note that cannot be read.
std::optional<NoteInformation> informationAtURL(const NSURL& url, NSError& error)
{
    const auto package = NSFileWrapper::initWithURL(url, NSFileWrapperReadingOptions::Immediate, &error);
    if (!package)
        return std::nullopt;
    CVLNoteFile note;
    note.setBackgroundColor(nullptr);
    if (note.readFileWrapper(*package, &error))
        return informationOfNote(note, *package);
    if (!isRecoverable(error) || !note.attemptRecoveryFromRTFD(url))
        return std::nullopt;
    auto information = informationOfNote(note, *package);
    information.isRecovered = true;
    return information;
}

ExitStatus showInformation(const InfoArguments& arguments)
{
    const auto url = urlOfNoteArgument(arguments.path);
    NSError error;
    const auto information = informationAtURL(url, error);
    if (!information && arguments.isJSON)
        printLine(itemLine(arguments.path, error));
    if (!information) {
        printError(arguments.path, errorReason(error, url.path()));
        return ExitStatus::Failure;
    }
    if (arguments.isJSON)
        printLine(noteInformationJSON(*information, arguments.path));
    else
        for (const auto& line : noteInformationLines(*information))
            printLine(printable(line));
    return ExitStatus::Success;
}

} // namespace

Command addNoteInfoCommand(CLI::App& command)
{
    auto arguments = std::make_shared<InfoArguments>();
    auto& syntax = addCommand(command, "info", "Show what a note has.", kExplanation);
    syntax.add_flag("--json", arguments->isJSON, "One line of JSON");
    addPathArgument(syntax, "NOTE", arguments->path, "The note");
    return {&syntax, [arguments] { return showInformation(*arguments); }};
}
