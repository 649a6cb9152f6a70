#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/Program.h"
#include "platform/foundation/NSLog.h"

#include <CLI/CLI.hpp>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

namespace {

ExitStatus usageError(const std::string& why)
{
    printError("usage", why);
    printNote("Try 'corvel --help'.");
    return ExitStatus::Usage;
}

ExitStatus runCommand(const Command& command)
{
    try {
        return command.run();
    } catch (const UsageError& error) {
        return usageError(error.what());
    } catch (const std::exception& exception) {
        printError(command.syntax->get_name(), exception.what());
        return ExitStatus::Failure;
    }
}

ExitStatus run(int argumentCount, const char* const* arguments)
{
    CLI::App program(kProgramSummary, kProgramName);
    const auto commands = addCommands(program);
    try {
        program.parse(argumentsForParser(argumentCount, arguments));
    } catch (const CLI::Success& request) {
        program.exit(request);
        return ExitStatus::Success;
    } catch (const CLI::Error& error) {
        return usageError(error.what());
    }
    for (const auto& command : commands) {
        if (command.syntax->parsed())
            return runCommand(command);
    }
    return ExitStatus::Usage;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    // A reader of the output that has seen enough ends the program without a word, whatever it inherited.
    (void)std::signal(SIGPIPE, SIG_DFL);
    const NSLogCapture log([](std::string_view line) { printNote("corvel: " + std::string(line)); });
    auto status = ExitStatus::Failure;
    try {
        status = run(argumentCount, arguments);
    } catch (const std::exception& exception) {
        printError("internal error", exception.what());
    }
    if (!isOutputIntact()) {
        printError("standard output", "could not be written");
        status = ExitStatus::Failure;
    }
    return static_cast<int>(status);
}
