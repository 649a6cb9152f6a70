#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/ErrorMessage.h"
#include "cli/NoteArgument.h"
#include "cli/NoteCommand.h"
#include "cli/NoteLines.h"
#include "platform/foundation/Unicode.h"
#include "platform/media/ContentLimits.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace {

constexpr const char* kExplanation
    = "Prints a line for each thing that is wrong with the note's folder, and nothing for a sound note. "
      "Changes nothing. A damaged note that can be recovered is written anew by \"corvel note new --from\".\n"
      "\n"
      "Examples:\n"
      "  corvel note check Groceries.cvlnote && echo sound\n"
      "\n"
      "Exit status: 0 sound, 1 something is wrong but the note can be read, 3 the note cannot be read.";

struct CheckArguments {
    std::string path;
    bool isJSON = false;
};

void printCheck(const NoteCheck& check, const std::string& path)
{
    for (const auto& finding : check.findings)
        printLine(printable(UTF8FromUTF16(finding.description())));
    if (check.readability == NoteReadability::Recoverable)
        printLine(UTF8FromUTF16(descriptionOfReadability(check.readability)));
    if (check.readability == NoteReadability::Unreadable)
        printError(path, errorReason(check.error, urlOfNoteArgument(path).path()));
}

ExitStatus checkNoteOfArgument(const CheckArguments& arguments)
{
    const auto check = checkNote(urlOfNoteArgument(arguments.path), ContentLimits().noteMemberBytes);
    if (arguments.isJSON)
        printLine(noteCheckJSON(check, arguments.path));
    else
        printCheck(check, arguments.path);
    if (check.readability == NoteReadability::Unreadable)
        return ExitStatus::Unreadable;
    return check.findings.empty() ? ExitStatus::Success : ExitStatus::Failure;
}

} // namespace

Command addNoteCheckCommand(CLI::App& command)
{
    auto arguments = std::make_shared<CheckArguments>();
    auto& syntax = addCommand(command, "check", "Look for damage in a note.", kExplanation);
    syntax.add_flag("--json", arguments->isJSON, "One line of JSON with all that was found");
    addPathArgument(syntax, "NOTE", arguments->path, "The note");
    return {&syntax, [arguments] { return checkNoteOfArgument(*arguments); }};
}
