#include "cli/CommandSyntax.h"

#include <CLI/CLI.hpp>

namespace {

constexpr int kUnlimited = -1;
// Stands before an argument that the parser would not take as it is.
constexpr char kShield = '\x01';

std::string rejectEmpty(const std::string& path)
{
    return path.empty() ? "a path may not be empty" : std::string();
}

bool needsShield(std::string_view argument)
{
    return argument.starts_with('[') || argument.starts_with('{') || argument.starts_with(kShield);
}

std::string unshielded(std::string argument)
{
    if (argument.starts_with(kShield))
        argument.erase(0, 1);
    return argument;
}

CLI::Option* asGiven(CLI::Option* option)
{
    return option->transform(unshielded, "", "");
}

CLI::Option* asPath(CLI::Option* option)
{
    return asGiven(option)->check(rejectEmpty, "", "");
}

} // namespace

CLI::App& addCommand(CLI::App& program, const std::string& name, const std::string& summary,
                     const std::string& explanation)
{
    auto& command = *program.add_subcommand(name, summary);
    command.footer(explanation);
    return command;
}

void addIndexOption(CLI::App& command, std::string& indexPath)
{
    asPath(command.add_option("--index", indexPath, "The index file")->required()->type_name("INDEX"));
}

void addSocketOption(CLI::App& command, std::string& socketPath)
{
    asPath(command
               .add_option(
                   "--socket", socketPath,
                   "Talk to the service that listens here, and start none (default: the user's own service, "
                   "started on demand)")
               ->type_name("PATH"));
}

CLI::Option* addTextOption(CLI::App& command, const std::string& name, std::optional<std::string>& text,
                           const std::string& valueName, const std::string& description)
{
    return asGiven(command.add_option(name, text, description)->type_name(valueName));
}

void addPathOption(CLI::App& command, const std::string& name, std::optional<std::string>& path,
                   const std::string& valueName, const std::string& description)
{
    addTextOption(command, name, path, valueName, description)->check(rejectEmpty, "", "");
}

CLI::Option* addTextArgument(CLI::App& command, const std::string& name, std::string& text,
                             const std::string& description)
{
    return asGiven(command.add_option(name, text, description)->required()->type_name(" "));
}

void addPathArgument(CLI::App& command, const std::string& name, std::string& path,
                     const std::string& description)
{
    addTextArgument(command, name, path, description)->check(rejectEmpty, "", "");
}

CLI::Option* addTextArguments(CLI::App& command, const std::string& name, const std::string& description)
{
    return asGiven(command.add_option(name, description)
                       ->required()
                       ->type_name(" ")
                       ->type_size(1)
                       ->expected(1, kUnlimited)
                       ->allow_extra_args());
}

std::vector<std::string> givenTexts(const CLI::Option& option)
{
    return option.results();
}

CLI::Option* addPathArguments(CLI::App& command, const std::string& name, const std::string& description)
{
    return addTextArguments(command, name, description)->check(rejectEmpty, "", "");
}

std::vector<std::string> givenPaths(const CLI::Option& option)
{
    return givenTexts(option);
}

std::vector<std::string> argumentsForParser(int argumentCount, const char* const* arguments)
{
    // The parser takes them last first.
    std::vector<std::string> reversed;
    for (int position = argumentCount - 1; position > 0; --position) {
        const std::string argument = arguments[position];
        reversed.push_back(needsShield(argument) ? kShield + argument : argument);
    }
    return reversed;
}
