#include "cli/ChecklistLines.h"
#include "cli/Command.h"
#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/DocumentArgument.h"
#include "markdown/MarkdownImport.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace {

constexpr const char* kExplanation
    = "FILE is Markdown, plain text with items as in Markdown or lines that begin with a box (\u2610 or "
      "\u2611), a page with boxes to tick, or the keyed archive of a text.\n"
      "\n"
      "Examples:\n"
      "  corvel checklist groceries.md\n"
      "  corvel checklist --open --json groceries.md";

struct ChecklistArguments {
    std::string path;
    bool isOpen = false;
    bool isDone = false;
    bool isJSON = false;
};

ExitStatus showChecklist(const ChecklistArguments& arguments)
{
    if (arguments.isOpen && arguments.isDone)
        throw UsageError("checklist: give --open or --done, or neither for both");
    const auto file = readDocumentOfArgument(arguments.path);
    if (!file)
        return ExitStatus::Failure;
    const bool isPlain = file->kind == DocumentKind::PlainText;
    const auto text
        = isPlain ? attributedStringWithMarkdown(markdownOfBoxes(file->text.string())) : file->text;
    for (const auto& item : checklistItems(text)) {
        const bool isLeftOut = item.isDone ? arguments.isOpen : arguments.isDone;
        if (isLeftOut)
            continue;
        const auto line = checklistLine(item);
        printLine(arguments.isJSON ? checklistJSON(item) : isOutputTerminal() ? printable(line) : line);
    }
    return ExitStatus::Success;
}

} // namespace

Command addChecklistCommand(CLI::App& program)
{
    auto arguments = std::make_shared<ChecklistArguments>();
    auto& command
        = addCommand(program, "checklist", "List the open and the done items of a text.", kExplanation);
    command.add_flag("--open", arguments->isOpen, "Only those that are open");
    command.add_flag("--done", arguments->isDone, "Only those that are done");
    command.add_flag("--json", arguments->isJSON, "One line of JSON for each item");
    addPathArgument(command, "FILE", arguments->path, "The text");
    return {&command, [arguments] { return showChecklist(*arguments); }};
}
