#include "cli/Command.h"
#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/ErrorMessage.h"
#include "cli/IndexReport.h"
#include "cli/IndexRun.h"
#include "cli/ItemAttachments.h"
#include "platform/foundation/FileDescriptor.h"
#include "platform/search/SKIndex.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <thread>
#include <utility>

namespace {

constexpr const char* kExplanation
    = "Folders are walked; hidden files and links in them are left out, and so are files\n"
      "that the index holds as they are. Note and RTFD packages are one item each.\n"
      "\n"
      "Examples:\n"
      "  corvel index --index ~/library.index ~/Documents\n"
      "  corvel index --index ~/library.index --jobs 4 --json ~/Notes ~/Mail\n"
      "  corvel index --index ~/library.index --recognized-text scan.txt scan.png";

constexpr const char* kItemGroup = "For one item";
constexpr unsigned kMaximumJobs = 64;
constexpr std::size_t kMaximumRecognizedText = std::size_t{64} << 20;
constexpr std::size_t kMaximumAttachmentsInfo = std::size_t{16} << 20;

struct IndexArguments {
    std::string indexPath;
    std::string socketPath;
    unsigned jobs = std::clamp(std::thread::hardware_concurrency(), 1U, kMaximumJobs);
    bool sendsAll = false;
    bool isJSON = false;
    bool includesHidden = false;
    std::optional<std::string> identifier;
    std::optional<std::string> recognizedTextPath;
    std::optional<std::string> attachmentsInfo;
    CLI::Option* paths = nullptr;
};

std::string readUserFile(const std::string& path, std::size_t maximumByteCount)
{
    const auto file = FileDescriptor::openForReading(path);
    auto bytes = file.isValid() ? readFile(file.get(), maximumByteCount + 1) : std::nullopt;
    if (!bytes)
        throw UsageError(NSError::errorWithErrno(errno, path).localizedDescription());
    if (bytes->size() > maximumByteCount)
        throw UsageError(path + " is larger than " + std::to_string(maximumByteCount) + " bytes");
    return std::move(*bytes);
}

AttachmentsInfo readAttachmentsInfo(const std::string& argument)
{
    const auto json
        = argument.starts_with('@') ? readUserFile(argument.substr(1), kMaximumAttachmentsInfo) : argument;
    NSError error;
    auto info = attachmentsInfoFromJSON(json, &error);
    if (!info)
        throw UsageError("--attachments-info: " + errorMessage(error));
    return std::move(*info);
}

bool isOneItem(const std::vector<std::string>& paths)
{
    std::error_code ignored; // What cannot be looked up is one item, which fails.
    return paths.size() == 1
        && (!std::filesystem::is_directory(paths[0], ignored)
            || isPackageName(NSURL::fileURLWithPath(paths[0]).lastPathComponent()));
}

ItemDetails itemDetails(const IndexArguments& arguments, const std::vector<std::string>& paths)
{
    ItemDetails details;
    details.identifier = arguments.identifier;
    if (arguments.recognizedTextPath)
        details.recognizedText = readUserFile(*arguments.recognizedTextPath, kMaximumRecognizedText);
    if (arguments.attachmentsInfo)
        details.attachmentsInfo = readAttachmentsInfo(*arguments.attachmentsInfo);
    if (!details.isEmpty() && !isOneItem(paths))
        throw UsageError("--identifier, --recognized-text and --attachments-info are for one item");
    return details;
}

/// As many connections as jobs; empty when one cannot be had.
std::vector<std::unique_ptr<IndexingClient>> connectClients(const IndexArguments& arguments)
{
    IndexingClientOptions options;
    options.socketPath = arguments.socketPath;
    std::vector<std::unique_ptr<IndexingClient>> clients;
    while (clients.size() < arguments.jobs) {
        NSError error;
        auto client = IndexingClient::connect(options, &error);
        if (!client) {
            printError("indexing service", errorMessage(error));
            return {};
        }
        clients.push_back(std::move(client));
    }
    return clients;
}

ExitStatus indexItems(const IndexArguments& arguments)
{
    const auto paths = givenPaths(*arguments.paths);
    IndexRunOptions options;
    options.indexURL = NSURL::fileURLWithPath(arguments.indexPath);
    options.unchangedItems = arguments.sendsAll ? UnchangedItems::Send : UnchangedItems::Skip;
    options.details = itemDetails(arguments, paths);
    options.walk = {arguments.includesHidden, options.indexURL};

    NSError error;
    const auto index = SKIndex::openWithURL(options.indexURL, SKIndexAccess::Read, &error);
    if (!index) {
        printError(arguments.indexPath, errorReason(error, arguments.indexPath));
        return ExitStatus::Failure;
    }
    auto clients = connectClients(arguments);
    if (clients.empty())
        return ExitStatus::Failure;
    IndexReport report(arguments.isJSON ? ReportForm::JSON : ReportForm::Human);
    runIndexing(paths, options, std::move(clients), report);
    return report.finish() ? ExitStatus::Success : ExitStatus::Failure;
}

void addItemOptions(CLI::App& command, IndexArguments& arguments)
{
    addTextOption(command, "--identifier", arguments.identifier, "ID",
                  "The item's identifier, instead of its path")
        ->group(kItemGroup);
    addTextOption(command, "--recognized-text", arguments.recognizedTextPath, "FILE",
                  "Index the text in this file instead of the item's own")
        ->group(kItemGroup);
    addTextOption(command, "--attachments-info", arguments.attachmentsInfo, "JSON",
                  "The item's attachments, as JSON or as @FILE that holds it: "
                  R"({"scan.png": {"TextRecognitionString": "invoice"}})")
        ->group(kItemGroup);
}

} // namespace

Command addIndexCommand(CLI::App& program)
{
    auto arguments = std::make_shared<IndexArguments>();
    auto& command = addCommand(program, "index", "Index files and folders.", kExplanation);
    addIndexOption(command, arguments->indexPath);
    addSocketOption(command, arguments->socketPath);
    command.add_option("--jobs", arguments->jobs, "Items sent at a time (default: the number of processors)")
        ->type_name("N")
        ->check(CLI::Range(1U, kMaximumJobs), "", "");
    command.add_flag("--all", arguments->sendsAll, "Send unchanged files too");
    command.add_flag("--hidden", arguments->includesHidden, "Walk hidden files and folders too");
    command.add_flag("--json", arguments->isJSON, "A JSON line for each item as it is answered");
    addItemOptions(command, *arguments);
    arguments->paths = addPathArguments(command, "PATH", "Files and folders");
    return {&command, [arguments] { return indexItems(*arguments); }};
}
