#include "cli/CommandSyntax.h"
#include "cli/Console.h"
#include "cli/ErrorMessage.h"
#include "cli/NoteArgument.h"
#include "cli/NoteCommand.h"
#include "cli/OutputFile.h"
#include "documents/DocumentFile.h"
#include "rendering/NoteRendering.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace {

constexpr const char* kExplanation
    = "OUT's name says what is made: a picture (.png, .svg) of the whole note on one sheet, or a document "
      "(.pdf) with pages. Nothing that exists is replaced without --force; but a thumbnail takes the "
      "place of an empty file or a PNG image. A note with a background of its own is drawn in "
      "the appearance that can be read on it.\n"
      "\n"
      "Examples:\n"
      "  corvel note render Groceries.cvlnote -o groceries.png\n"
      "  corvel note render Groceries.cvlnote -o groceries.png --dark --width 400 --scale 2\n"
      "  corvel note render Groceries.cvlnote -o groceries.pdf";

constexpr double kSmallestScale = 0.1;
constexpr double kLargestScale = 10;

struct RenderArguments {
    std::string path;
    std::optional<std::string> output;
    bool isDark = false;
    std::optional<double> width;
    std::optional<double> scale;
    std::optional<std::size_t> thumbnail;
    bool isForced = false;

    [[nodiscard]] ExistingFiles existingFiles() const
    {
        if (isForced)
            return ExistingFiles::Replace;
        return thumbnail ? ExistingFiles::ReplaceImage : ExistingFiles::Keep;
    }

    [[nodiscard]] NSAppearance appearance() const
    {
        return isDark ? NSAppearance::Dark : NSAppearance::Light;
    }
};

enum class Format { PNG, SVG, PDF };

Format formatOfOutput(const std::string& path)
{
    auto extension = std::filesystem::path(path).extension().native();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    if (extension == ".png")
        return Format::PNG;
    if (extension == ".svg")
        return Format::SVG;
    if (extension == ".pdf")
        return Format::PDF;
    throw UsageError("note render: OUT does not end in .png, .svg or .pdf");
}

void checkUsage(const RenderArguments& arguments)
{
    if (arguments.thumbnail) {
        if (arguments.width || arguments.scale)
            throw UsageError("note render: a thumbnail has a width and a scale of its own");
        return;
    }
    if (formatOfOutput(*arguments.output) != Format::PNG && arguments.scale)
        throw UsageError("note render: --scale is for .png, which has pixels");
}

std::optional<NSData> drawNote(const CVLNoteFile& note, const RenderArguments& arguments, NSError* error)
{
    if (arguments.thumbnail)
        return thumbnailWithNote(note, *arguments.thumbnail, arguments.appearance(), error);
    NoteSheetOptions sheet{.appearance = arguments.appearance()};
    sheet.width = arguments.width.value_or(sheet.width);
    sheet.scale = arguments.scale.value_or(sheet.scale);
    switch (formatOfOutput(*arguments.output)) {
    case Format::PNG:
        return PNGWithNote(note, sheet, error);
    case Format::SVG:
        return SVGWithNote(note, sheet, error);
    case Format::PDF:
        break;
    }
    NotePageOptions pages{.appearance = arguments.appearance()};
    if (arguments.width)
        pages.paper = paperOfWidth(*arguments.width);
    return PDFWithNote(note, pages, error);
}

bool writeDrawing(const NSData& drawn, const RenderArguments& arguments, NSError* error)
{
    if (isStandardOutput(*arguments.output))
        return writeStandardOutput(drawn.bytes, error);
    // Of the kinds that are files, which one it is does not matter here.
    const DocumentPlace place{NSURL::fileURLWithPath(*arguments.output), DocumentKind::PDF,
                              arguments.existingFiles(), urlOfNoteArgument(arguments.path)};
    return writeDocument({NSFileWrapper::initRegularFileWithContents(drawn), {}, 0}, place, {}, error);
}

ExitStatus renderNote(const RenderArguments& arguments)
{
    checkUsage(arguments);
    const auto note = readNoteOfArgument(arguments.path);
    if (!note)
        return ExitStatus::Failure;
    NSError error;
    const auto drawn = drawNote(*note, arguments, &error);
    if (!drawn) {
        printError(arguments.path, errorMessage(error));
        return ExitStatus::Failure;
    }
    if (writeDrawing(*drawn, arguments, &error))
        return ExitStatus::Success;
    printError(*arguments.output, errorReason(error, *arguments.output));
    return ExitStatus::Failure;
}

/// Not CLI::Range, which lets pass what is not a number.
CLI::Validator numberWithin(double least, double most)
{
    auto check = [least, most](const std::string& given) {
        double number = 0;
        if (CLI::detail::lexical_cast(given, number) && number >= least && number <= most)
            return std::string();
        return fmt::format("'{}' is no number from {} to {}", given, least, most);
    };
    return {std::move(check), fmt::format("FLOAT in [{} - {}]", least, most)};
}

} // namespace

Command addNoteRenderCommand(CLI::App& command)
{
    auto arguments = std::make_shared<RenderArguments>();
    auto& syntax = addCommand(command, "render", "Draw a note as a picture or a document.", kExplanation);
    addPathOption(syntax, "-o,--output", arguments->output, "OUT", "The file to write");
    syntax.get_option("--output")->required();
    syntax.add_flag("--dark", arguments->isDark, "In the dark appearance");
    syntax
        .add_option("--width", arguments->width,
                    "How wide the sheet or the page is, in points (default: 600; of pages 595, A4)")
        ->check(numberWithin(kNarrowestSheet, kWidestSheet))
        ->type_name("POINTS");
    syntax.add_option("--scale", arguments->scale, "Pixels to a point (default: 1)")
        ->check(numberWithin(kSmallestScale, kLargestScale))
        ->type_name("S");
    syntax
        .add_option("--thumbnail", arguments->thumbnail,
                    "The note's beginning only, as a PNG image so many pixels wide and high")
        ->check(CLI::Range(kSmallestThumbnail, kLargestThumbnail))
        ->type_name("SIZE");
    syntax.add_flag("--force", arguments->isForced, "Replace the file that is there");
    addPathArgument(syntax, "NOTE", arguments->path, "The note");
    return {&syntax, [arguments] { return renderNote(*arguments); }};
}
