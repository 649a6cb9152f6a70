#include "cli/StringCommand.h"

#include "cli/CommandSyntax.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

namespace {

constexpr const char* kExplanation
    = "The operations with which notes and exported files are named, tags are found and\n"
      "Markdown is read. Texts are UTF-8. A TEXT that is - is read from standard input;\n"
      "before one that begins with a dash and a letter stands --.\n"
      "\n"
      "Examples:\n"
      "  corvel string filename '1. Groceries for the weekend. Milk, eggs'\n"
      "  corvel string hashtags - <notes.txt";

ExitStatus runGiven(const std::vector<Command>& commands)
{
    const auto given = std::find_if(commands.begin(), commands.end(),
                                    [](const Command& command) { return command.syntax->parsed(); });
    return given == commands.end() ? ExitStatus::Usage : given->run();
}

} // namespace

Command addStringCommand(CLI::App& program)
{
    auto& command = addCommand(program, "string", "Name, clean and examine texts.", kExplanation);
    command.require_subcommand(1);
    auto commands = std::make_shared<std::vector<Command>>();
    for (const auto add : {addStringNameCommands, addStringTextCommands, addStringMarkdownCommands}) {
        const auto added = add(command);
        commands->insert(commands->end(), added.begin(), added.end());
    }
    return {&command, [commands] { return runGiven(*commands); }};
}
