#include "cli/Command.h"
#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/ErrorMessage.h"
#include "client/IndexingClient.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr const char* kExplanation
    = "The files need not exist any more. A folder goes with all that is below it. What\n"
      "the index does not hold is no error.\n"
      "\n"
      "Examples:\n"
      "  corvel remove --index ~/library.index ~/Documents/draft.txt\n"
      "  corvel remove --index ~/library.index ~/Documents/old-folder";

constexpr std::size_t kPathsPerRequest = 1000;

struct RemoveArguments {
    std::string indexPath;
    std::string socketPath;
    CLI::Option* paths = nullptr;
};

std::optional<NSError> requestRemoval(IndexingClient& client, const std::vector<std::string>& urls,
                                      const NSURL& indexURL)
{
    NSError error;
    const auto reply = client.removeFileURLs(urls, indexURL, &error);
    return reply ? reply->error : error;
}

ExitStatus removeItems(const RemoveArguments& arguments)
{
    IndexingClientOptions options;
    options.socketPath = arguments.socketPath;
    NSError error;
    const auto client = IndexingClient::connect(options, &error);
    if (!client) {
        printError("indexing service", errorMessage(error));
        return ExitStatus::Failure;
    }
    std::vector<std::string> urls;
    for (const auto& path : givenPaths(*arguments.paths))
        urls.push_back(NSURL::fileURLWithPath(path).absoluteString());
    const auto indexURL = NSURL::fileURLWithPath(arguments.indexPath);
    for (std::size_t offset = 0; offset < urls.size(); offset += kPathsPerRequest) {
        const auto count = std::min(kPathsPerRequest, urls.size() - offset);
        const auto first = urls.begin() + static_cast<std::ptrdiff_t>(offset);
        const auto failure
            = requestRemoval(*client, {first, first + static_cast<std::ptrdiff_t>(count)}, indexURL);
        if (failure) {
            printError(arguments.indexPath, errorReason(*failure, arguments.indexPath));
            return ExitStatus::Failure;
        }
    }
    return ExitStatus::Success;
}

} // namespace

Command addRemoveCommand(CLI::App& program)
{
    auto arguments = std::make_shared<RemoveArguments>();
    auto& command = addCommand(program, "remove", "Take files and folders out of an index.", kExplanation);
    addIndexOption(command, arguments->indexPath);
    addSocketOption(command, arguments->socketPath);
    arguments->paths = addPathArguments(command, "PATH", "Files and folders as they were indexed");
    return {&command, [arguments] { return removeItems(*arguments); }};
}
