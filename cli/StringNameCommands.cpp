#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/StringCommand.h"
#include "cli/TextArgument.h"
#include "platform/foundation/NSURL.h"
#include "strings/FileNames.h"
#include "strings/FilenameGeneration.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace {

struct Arguments {
    std::string text;
    std::string folder;
    std::size_t length = 0;
    bool isWholeSentence = false;
};

/// Empty, or what is wrong with the count.
std::string isUnitCount(const std::string& argument)
{
    constexpr std::size_t kMostDigits = 18;
    const bool isCount = !argument.empty() && argument.size() <= kMostDigits
        && argument.find_first_not_of("0123456789") == std::string::npos;
    return isCount ? std::string() : argument + " is no number of units";
}

ExitStatus showFilename(const Arguments& arguments)
{
    const auto text = textOfArgument(arguments.text, "filename");
    if (!text)
        return ExitStatus::Failure;
    printText(TSExtensions::generateFilenameTruncatingToPeriod(*text, !arguments.isWholeSentence));
    return ExitStatus::Success;
}

ExitStatus showSanitized(const Arguments& arguments)
{
    const auto text = lineOfArgument(arguments.text, "sanitize");
    if (!text)
        return ExitStatus::Failure;
    printText(TSExtensions::stringSanitizedForFileName(*text));
    return ExitStatus::Success;
}

ExitStatus showUnique(const Arguments& arguments)
{
    const auto name = lineOfArgument(arguments.text, "unique");
    if (!name)
        return ExitStatus::Failure;
    if (name->empty() || name->find(u'/') != std::u16string::npos) {
        printError("unique", "a file name is neither empty nor has a slash");
        return ExitStatus::Usage;
    }
    const auto folder = NSURL::fileURLWithPath(arguments.folder);
    printText(TSExtensions::makeFilenameUniqueInDirectoryAtURL(*name, folder));
    return ExitStatus::Success;
}

ExitStatus showTruncated(const Arguments& arguments)
{
    const auto text = lineOfArgument(arguments.text, "truncate-middle");
    if (!text)
        return ExitStatus::Failure;
    printText(TSExtensions::stringByTruncatingMiddleWithMaxLength(*text, arguments.length));
    return ExitStatus::Success;
}

Command addFilename(CLI::App& parent)
{
    auto arguments = std::make_shared<Arguments>();
    auto& command = addCommand(parent, "filename", "Make a file name from the start of a text.",
                               "Examples:\n"
                               "  corvel string filename 'Meeting notes. Agenda follows'");
    command.add_flag("--whole-sentence", arguments->isWholeSentence,
                     "Take the whole first sentence instead of what stands before the first period");
    addTextArgument(command, "TEXT", arguments->text, "The text");
    return {&command, [arguments] { return showFilename(*arguments); }};
}

Command addSanitize(CLI::App& parent)
{
    auto arguments = std::make_shared<Arguments>();
    auto& command = addCommand(parent, "sanitize", "Make a text safe as a file name.",
                               "Examples:\n"
                               "  corvel string sanitize 'AC/DC: live'");
    addTextArgument(command, "TEXT", arguments->text, "The text");
    return {&command, [arguments] { return showSanitized(*arguments); }};
}

Command addUnique(CLI::App& parent)
{
    auto arguments = std::make_shared<Arguments>();
    auto& command = addCommand(parent, "unique", "Make a file name that a folder does not have yet.",
                               "Examples:\n"
                               "  corvel string unique Report.pdf --in ~/Documents");
    addTextArgument(command, "NAME", arguments->text, "The wanted name");
    command.add_option("--in", arguments->folder, "The folder")->required()->type_name("FOLDER");
    return {&command, [arguments] { return showUnique(*arguments); }};
}

Command addTruncateMiddle(CLI::App& parent)
{
    auto arguments = std::make_shared<Arguments>();
    auto& command = addCommand(parent, "truncate-middle", "Keep the two ends of a text.",
                               "Half of the length stands on each side of the ellipsis.\n"
                               "\n"
                               "Examples:\n"
                               "  corvel string truncate-middle 12 'Minutes of the harbour committee.txt'");
    command.add_option("N", arguments->length, "The length, in UTF-16 units, from which on a text is cut")
        ->required()
        ->check(CLI::Validator(isUnitCount, "", ""))
        ->type_name(" ");
    addTextArgument(command, "TEXT", arguments->text, "The text");
    return {&command, [arguments] { return showTruncated(*arguments); }};
}

} // namespace

std::vector<Command> addStringNameCommands(CLI::App& command)
{
    return {addFilename(command), addSanitize(command), addUnique(command), addTruncateMiddle(command)};
}
