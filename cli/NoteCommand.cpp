#include "cli/NoteCommand.h"

#include "cli/CommandSyntax.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <vector>

namespace {

constexpr const char* kExplanation = "NOTE is a note's folder, the one whose name ends in .cvlnote.\n"
                                     "\n"
                                     "Examples:\n"
                                     "  corvel note new Groceries.cvlnote --from groceries.md\n"
                                     "  corvel note text Groceries.cvlnote\n"
                                     "  corvel note export Groceries.cvlnote -o groceries.html";

} // namespace

Command addNoteCommand(CLI::App& program)
{
    auto& command = addCommand(program, "note", "Make, read and examine notes.", kExplanation);
    command.require_subcommand(1);
    const std::vector<Command> commands{addNoteNewCommand(command),   addNoteTextCommand(command),
                                        addNoteInfoCommand(command),  addNoteExportCommand(command),
                                        addNoteCheckCommand(command), addNoteRenderCommand(command)};
    return {&command, [commands] {
                const auto given = std::find_if(commands.begin(), commands.end(),
                                                [](const Command& each) { return each.syntax->parsed(); });
                return given == commands.end() ? ExitStatus::Usage : given->run();
            }};
}
