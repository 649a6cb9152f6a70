#include "cli/Command.h"
#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/ErrorMessage.h"
#include "cli/JSONLines.h"
#include "cli/TextArgument.h"
#include "platform/media/PDFTextCache.h"
#include "platform/search/FileText.h"
#include "platform/search/SKIndex.h"
#include "service/ApplicationSources.h"
#include "service/ItemText.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <string>

namespace {

constexpr const char* kExplanation = "The rule that chose the text goes to standard error.\n"
                                     "\n"
                                     "Examples:\n"
                                     "  corvel text ~/Mail/invitation.eml\n"
                                     "  corvel text --json report.docx";

struct TextArguments {
    std::string path;
    bool isJSON = false;
};

/// What would be indexed, and the rule that says so.
struct IndexedText {
    std::string rule;
    std::optional<std::string> text;
};

IndexedText indexedText(const NSURL& url, NSError& error)
{
    // As in a request: what is read of a PDF is read once.
    const PDFTextCache::RequestScope scope;
    auto item = textOfItem(url, {}, applicationSources());
    const std::string rule(nameOfItemTextRule(item.rule));
    if (item.error) {
        error = *item.error;
        return {rule, std::nullopt};
    }
    if (item.text)
        return {rule, std::move(item.text)};
    auto text = textOfFile(url, item.mimeTypeHint);
    if (!text)
        error = commandError(CommandError::NotPrepared, "the file cannot be read");
    const std::string byFile(nameOfItemTextRule(ItemTextRule::ByFile));
    return {item.rule == ItemTextRule::ByFile ? rule : rule + ", " + byFile, std::move(text)};
}

ExitStatus showText(const TextArguments& arguments)
{
    const auto url = NSURL::fileURLWithPath(arguments.path);
    NSError error;
    if (!url.checkResourceIsReachableAndReturnError(&error)) {
        printError(arguments.path, errorReason(error, arguments.path));
        return ExitStatus::Failure;
    }
    SKLoadDefaultExtractorPlugIns();
    const auto found = indexedText(url, error);
    if (arguments.isJSON)
        printLine(textLine(arguments.path, found.rule, found.text));
    else
        printNote("rule: " + found.rule);
    if (!found.text) {
        printError(arguments.path, errorReason(error, arguments.path));
        return ExitStatus::Failure;
    }
    if (!arguments.isJSON && !found.text->empty())
        printText(*found.text);
    return ExitStatus::Success;
}

} // namespace

Command addTextCommand(CLI::App& program)
{
    auto arguments = std::make_shared<TextArguments>();
    auto& command
        = addCommand(program, "text", "Show the text with which a file would be indexed.", kExplanation);
    command.add_flag("--json", arguments->isJSON, "One line of JSON with the rule and the text");
    addPathArgument(command, "PATH", arguments->path, "The file, or a note or RTFD package");
    return {&command, [arguments] { return showText(*arguments); }};
}
