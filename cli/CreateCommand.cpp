#include "cli/Command.h"
#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/ErrorMessage.h"
#include "platform/search/SKIndex.h"

#include <memory>
#include <string>

namespace {

constexpr const char* kExplanation = "Examples:\n"
                                     "  corvel create ~/library.index";

ExitStatus createIndex(const std::string& path)
{
    NSError error;
    if (SKIndex::createWithURL(NSURL::fileURLWithPath(path), &error))
        return ExitStatus::Success;
    printError(path, errorReason(error, path));
    return ExitStatus::Failure;
}

} // namespace

Command addCreateCommand(CLI::App& program)
{
    auto path = std::make_shared<std::string>();
    auto& command
        = addCommand(program, "create", "Make a new, empty index that only you can read.", kExplanation);
    addPathArgument(command, "INDEX", *path, "The file to make; it must not exist");
    return {&command, [path] { return createIndex(*path); }};
}
