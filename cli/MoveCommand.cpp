#include "cli/Command.h"
#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/ErrorMessage.h"
#include "cli/MovePlan.h"
#include "client/IndexingClient.h"
#include "platform/search/SKIndex.h"

#include <memory>
#include <string>

namespace {

constexpr const char* kExplanation
    = "Files are not touched. One request to the service renames within a folder, or\n"
      "moves to another folder under the old name; where folder and name change, two\n"
      "requests are made, a move and then a renaming.\n"
      "\n"
      "Examples:\n"
      "  mv a/draft.txt b/final.txt\n"
      "  corvel move --index ~/library.index a/draft.txt b/final.txt";

struct MoveArguments {
    std::string indexPath;
    std::string socketPath;
    std::string from;
    std::string to;
};

std::optional<NSError> requestMove(IndexingClient& client, const MoveStep& step, const NSURL& indexURL)
{
    NSError error;
    const auto reply = client.moveFileURL(step.from, step.to, indexURL, &error);
    return reply ? reply->error : error;
}

ExitStatus moveItem(const MoveArguments& arguments)
{
    const auto indexURL = NSURL::fileURLWithPath(arguments.indexPath);
    NSError error;
    const auto index = SKIndex::openWithURL(indexURL, SKIndexAccess::Read, &error);
    if (!index) {
        printError(arguments.indexPath, errorReason(error, arguments.indexPath));
        return ExitStatus::Failure;
    }
    IndexingClientOptions options;
    options.socketPath = arguments.socketPath;
    const auto client = IndexingClient::connect(options, &error);
    if (!client) {
        printError("indexing service", errorMessage(error));
        return ExitStatus::Failure;
    }
    const auto from = NSURL::fileURLWithPath(arguments.from);
    for (const auto& step : movePlan(from, NSURL::fileURLWithPath(arguments.to))) {
        if (const auto failure = requestMove(*client, step, indexURL)) {
            printError(step.from.path(), errorMessage(*failure));
            return ExitStatus::Failure;
        }
    }
    return ExitStatus::Success;
}

} // namespace

Command addMoveCommand(CLI::App& program)
{
    auto arguments = std::make_shared<MoveArguments>();
    auto& command = addCommand(program, "move",
                               "Tell an index that files or folders have a new name or place.", kExplanation);
    addIndexOption(command, arguments->indexPath);
    addSocketOption(command, arguments->socketPath);
    addPathArgument(command, "FROM", arguments->from, "The path as it was indexed");
    addPathArgument(command, "TO", arguments->to, "Its new path, name included");
    return {&command, [arguments] { return moveItem(*arguments); }};
}
