#include "cli/ColourLines.h"
#include "cli/ColourName.h"
#include "cli/Command.h"
#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "platform/foundation/Unicode.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <string_view>

namespace {

constexpr const char* kExplanation
    = "COLOUR is digits, as #fc6, #ffcc66 or #ffcc66ff, or a name: one of the system's colours\n"
      "(textColor), a highlight (\"yellow highlight\") or a colour of a list (Snow, Crayons/Snow).\n"
      "Case, blanks and the ending Color do not matter. Colours that follow the appearance are\n"
      "shown as in the light one unless --dark is given.\n"
      "\n"
      "Examples:\n"
      "  corvel colour Cantaloupe\n"
      "  corvel colour --dark textBackgroundColor \"yellow highlight\"\n"
      "  corvel colour --json '#ffcc66'\n"
      "  corvel colour --list\n"
      "  corvel colour --list --json --dark";

struct ColourArguments {
    bool isJSON = false;
    bool isDark = false;
    bool isList = false;
    CLI::Option* colours = nullptr;
};

void showColour(const NamedColour& named, const ColourArguments& arguments)
{
    const auto appearance = arguments.isDark ? NSAppearance::Dark : NSAppearance::Light;
    if (arguments.isJSON) {
        printLine(colourJSON(named, appearance));
        return;
    }
    for (const auto& line : colourLines(named, appearance, isOutputStyled()))
        printLine(line);
}

void listColours(const ColourArguments& arguments)
{
    for (const auto& named : namedColours()) {
        if (arguments.isJSON)
            showColour(named, arguments);
        else
            printLine(UTF8FromUTF16(named.name));
    }
}

ExitStatus showColours(const ColourArguments& arguments)
{
    const auto names = givenTexts(*arguments.colours);
    if (arguments.isList != names.empty())
        throw UsageError("colour takes either --list or one COLOUR or more");
    if (arguments.isList) {
        listColours(arguments);
        return ExitStatus::Success;
    }
    auto status = ExitStatus::Success;
    for (const auto& name : names) {
        if (const auto named = colourNamed(name)) {
            showColour(*named, arguments);
            continue;
        }
        printError(name.empty() ? "''" : name, "there is no such colour; corvel colour --list has the names");
        status = ExitStatus::Failure;
    }
    return status;
}

} // namespace

Command addColourCommand(CLI::App& program)
{
    auto arguments = std::make_shared<ColourArguments>();
    auto& command
        = addCommand(program, "colour", "Show a colour in the forms that notes keep it in.", kExplanation);
    command.add_flag("--json", arguments->isJSON, "A line of JSON for each colour");
    command.add_flag("--dark", arguments->isDark, "As in the dark appearance");
    command.add_flag("--list", arguments->isList, "The names of all colours, or with --json a line for each");
    arguments->colours = addTextArguments(command, "COLOUR", "Digits or names")->required(false);
    return {&command, [arguments] { return showColours(*arguments); }};
}
