#include "cli/Command.h"
#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/DocumentArgument.h"
#include "cli/ErrorMessage.h"
#include "cli/OutputFile.h"
#include "cli/TextArgument.h"
#include "markdown/MarkdownExport.h"
#include "platform/foundation/Unicode.h"
#include "platform/html/NSAttributedStringHTML.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSDocumentAttributes.h"
#include "richtext/ChecklistTextLists.h"
#include "richtext/Dividers.h"
#include "richtext/HTMLForSharing.h"
#include "richtext/ListRecognition.h"
#include "richtext/WebPageCleanup.h"
#include "styles/CVLNoteTextStyle.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <string>

namespace {

constexpr const char* kExplanation = "Nothing is fetched from the network, and no scripts are run.\n"
                                     "\n"
                                     "Examples:\n"
                                     "  corvel html import recipe.html\n"
                                     "  corvel html export list.md -o list.html";
constexpr const char* kImportExplanation
    = "The page becomes Markdown: headings, lists, boxes to tick, tables, emphasis and links. Images are "
      "named by "
      "their files when they lie in the page's folder, else by their descriptions.\n"
      "\n"
      "Examples:\n"
      "  corvel html import recipe.html -o recipe.md\n"
      "  corvel html import --text --clean recipe.html";
constexpr const char* kExportExplanation = "FILE is Markdown, plain text, a page, or the keyed archive of a "
                                           "text. Boxes to tick are written as characters. "
                                           "With --share the page holds its images itself and leaves other "
                                           "files out, so that it can be the body of "
                                           "a message; without, images are named only.\n"
                                           "\n"
                                           "Examples:\n"
                                           "  corvel html export list.md -o list.html\n"
                                           "  corvel html export --share list.md -o message.html";

struct HTMLArguments {
    std::string path;
    std::optional<std::string> output;
    bool isText = false;
    bool isMarkdown = false;
    bool isCleaned = false;
    bool isShared = false;
};

using Arguments = std::shared_ptr<HTMLArguments>;

/// Writes to the file given, as a whole, or to standard output.
ExitStatus writeResult(const std::string& bytes, const std::optional<std::string>& output)
{
    if (!output) {
        if (!bytes.empty())
            printText(bytes);
        return ExitStatus::Success;
    }
    NSError error;
    if (writeOutputFile(bytes, *output, &error))
        return ExitStatus::Success;
    printError(*output, errorReason(error, *output));
    return ExitStatus::Failure;
}

/// All that can be cleaned, whatever the user's settings for pasted text are.
void cleanUp(NSMutableAttributedString& text)
{
    const auto font = CVLNoteTextStyle::bodyNoteTextStyle()->font();
    DynamicColors::cleanupTextFromWebPageInRange(text, {0, text.length()}, font, true, true, true);
    DynamicColors::checkForTextListsAndConvertIfNecessary(text);
}

std::u16string plainText(const NSAttributedString& text)
{
    std::u16string plain(text.string());
    std::erase(plain, NSAttachmentCharacter);
    std::replace(plain.begin(), plain.end(), u'\u2028', u'\n');
    if (!plain.empty() && plain.back() != u'\n')
        plain += u'\n';
    return plain;
}

ExitStatus importPage(const HTMLArguments& arguments)
{
    if (arguments.isText && arguments.isMarkdown)
        throw UsageError("html import: give --text or --markdown, not both");
    const auto file = readDocumentOfArgument(arguments.path);
    if (!file)
        return ExitStatus::Failure;
    if (file->kind != DocumentKind::Page) {
        printError(arguments.path, "it is no page: give an HTML file");
        return ExitStatus::Failure;
    }
    NSMutableAttributedString text(file->text);
    if (arguments.isCleaned)
        cleanUp(text);
    const auto result = arguments.isText ? plainText(text) : markdownWithAttributedString(text);
    return writeResult(UTF8FromUTF16(result), arguments.output);
}

ExitStatus exportPage(const HTMLArguments& arguments)
{
    const auto file = readDocumentOfArgument(arguments.path);
    if (!file)
        return ExitStatus::Failure;
    NSMutableAttributedString text(file->text);
    DynamicColors::convertChecklistAttachmentsToTextLists(text);
    DynamicColors::convertDividersToText(text);
    if (arguments.isShared)
        return writeResult(UTF8FromUTF16(DynamicColors::htmlStringForSharingToMail(text)), arguments.output);
    NSError error;
    const auto page = NSAttributedStringDocumentFormats::HTMLFromRange(
        text, {0, text.length()}, {{std::u16string(NSTitleDocumentAttribute), file->title}}, &error);
    if (page)
        return writeResult(page->bytes, arguments.output);
    printError(arguments.path, errorMessage(error));
    return ExitStatus::Failure;
}

void addOutputOption(CLI::App& command, HTMLArguments& arguments)
{
    addPathOption(command, "-o,--output", arguments.output, "OUT",
                  "The file to write (default: standard output)");
}

Command addImport(CLI::App& parent)
{
    auto arguments = std::make_shared<HTMLArguments>();
    auto& command = addCommand(parent, "import", "Turn a page into Markdown or text.", kImportExplanation);
    addOutputOption(command, *arguments);
    command.add_flag("--markdown", arguments->isMarkdown, "Write Markdown, as without options");
    command.add_flag("--text", arguments->isText, "Write the text alone");
    command.add_flag(
        "--clean", arguments->isCleaned,
        "Clean up first, as for pasting into a note: blank lines for spacing, the Body style's font");
    addPathArgument(command, "PAGE", arguments->path, "The HTML file");
    return {&command, [arguments] { return importPage(*arguments); }};
}

Command addExport(CLI::App& parent)
{
    auto arguments = std::make_shared<HTMLArguments>();
    auto& command = addCommand(parent, "export", "Turn a text into a page.", kExportExplanation);
    addOutputOption(command, *arguments);
    command.add_flag("--share", arguments->isShared, "One page with its images within it, for a message");
    addPathArgument(command, "FILE", arguments->path, "The text");
    return {&command, [arguments] { return exportPage(*arguments); }};
}

} // namespace

Command addHTMLCommand(CLI::App& program)
{
    auto& command = addCommand(program, "html", "Turn pages into texts, and texts into pages.", kExplanation);
    command.require_subcommand(1);
    const auto importing = addImport(command);
    const auto exporting = addExport(command);
    return {&command, [importing, exporting] {
                return importing.syntax->parsed() ? importing.run() : exporting.run();
            }};
}
