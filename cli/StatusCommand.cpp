#include "cli/Command.h"
#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/ErrorMessage.h"
#include "cli/JSONLines.h"
#include "platform/search/SKIndex.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <filesystem>
#include <memory>
#include <string>

namespace {

constexpr const char* kExplanation = "Examples:\n"
                                     "  corvel status --index ~/library.index\n"
                                     "  corvel status --index ~/library.index --json";

struct StatusArguments {
    std::string indexPath;
    bool isJSON = false;
};

std::string statusText(const IndexStatus& status)
{
    return fmt::format("documents           {}\n"
                       "maximum identifier  {}\n"
                       "size                {} bytes\n"
                       "format              {}",
                       status.documentCount, status.maximumDocumentID, status.byteCount,
                       status.formatVersion);
}

ExitStatus showStatus(const StatusArguments& arguments)
{
    NSError error;
    const auto index
        = SKIndex::openWithURL(NSURL::fileURLWithPath(arguments.indexPath), SKIndexAccess::Read, &error);
    if (!index) {
        printError(arguments.indexPath, errorReason(error, arguments.indexPath));
        return ExitStatus::Failure;
    }
    const IndexStatus status{index->documentCount(), index->maximumDocumentID(),
                             std::filesystem::file_size(arguments.indexPath), index->formatVersion()};
    printLine(arguments.isJSON ? statusLine(status) : statusText(status));
    return ExitStatus::Success;
}

} // namespace

Command addStatusCommand(CLI::App& program)
{
    auto arguments = std::make_shared<StatusArguments>();
    auto& command = addCommand(program, "status", "Show what an index holds.", kExplanation);
    addIndexOption(command, arguments->indexPath);
    command.add_flag("--json", arguments->isJSON, "One line of JSON");
    return {&command, [arguments] { return showStatus(*arguments); }};
}
