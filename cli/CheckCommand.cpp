#include "cli/Command.h"
#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/ErrorMessage.h"
#include "platform/search/SKIndex.h"

#include <memory>
#include <string>

namespace {

constexpr const char* kExplanation = "Prints what is wrong with the index, and nothing when it is sound.\n"
                                     "\n"
                                     "Examples:\n"
                                     "  corvel check ~/library.index && echo sound";

ExitStatus checkIndex(const std::string& path)
{
    NSError error;
    const auto index = SKIndex::openWithURL(NSURL::fileURLWithPath(path), SKIndexAccess::Read, &error);
    if (!index) {
        printError(path, errorReason(error, path));
        return ExitStatus::Failure;
    }
    const auto findings = index->check();
    for (const auto& finding : findings)
        printLine(printable(finding));
    return findings.empty() ? ExitStatus::Success : ExitStatus::Failure;
}

} // namespace

Command addCheckCommand(CLI::App& program)
{
    auto path = std::make_shared<std::string>();
    auto& command = addCommand(program, "check", "Look for damage in an index.", kExplanation);
    addPathArgument(command, "INDEX", *path, "The index file");
    return {&command, [path] { return checkIndex(*path); }};
}
