#include "cli/CommandSyntax.h"
#include "cli/NoteArgument.h"
#include "cli/NoteCommand.h"
#include "cli/TextArgument.h"
#include "documents/PlainTextDocument.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace {

constexpr const char* kExplanation
    = "Items of checklists begin with \u2713 or \u25E6 between tabs, dividers are three asterisks, and files "
      "are their names in brackets.\n"
      "\n"
      "Examples:\n"
      "  corvel note text Groceries.cvlnote";

ExitStatus showText(const std::string& path)
{
    const auto note = readNoteOfArgument(path);
    if (!note)
        return ExitStatus::Failure;
    if (const auto text = plainTextOfNoteText(note->noteText()); !text.empty())
        printText(text);
    return ExitStatus::Success;
}

} // namespace

Command addNoteTextCommand(CLI::App& command)
{
    auto path = std::make_shared<std::string>();
    auto& syntax = addCommand(command, "text", "Show a note's text.", kExplanation);
    addPathArgument(syntax, "NOTE", *path, "The note");
    return {&syntax, [path] { return showText(*path); }};
}
