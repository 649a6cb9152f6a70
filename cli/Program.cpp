#include "cli/Program.h"

#include <CLI/CLI.hpp>

namespace {

constexpr const char* kExamples
    = "Examples:\n"
      "  corvel create ~/library.index\n"
      "  corvel index --index ~/library.index ~/Documents\n"
      "  corvel search --index ~/library.index 'harbour lights'\n"
      "\n"
      "Exit status: 0 done, 1 something failed, 2 the command line was not understood.";

} // namespace

std::vector<Command> addCommands(CLI::App& program)
{
    program.require_subcommand(1);
    program.set_version_flag("--version", "corvel " CORVEL_VERSION);
    program.set_help_all_flag();
    program.footer(kExamples);
    return {addCreateCommand(program),    addIndexCommand(program),  addRemoveCommand(program),
            addMoveCommand(program),      addSearchCommand(program), addStatusCommand(program),
            addCheckCommand(program),     addTextCommand(program),   addStyleCommand(program),
            addStringCommand(program),    addColourCommand(program), addHTMLCommand(program),
            addChecklistCommand(program), addNoteCommand(program)};
}
