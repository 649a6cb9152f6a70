#include "rendering/NoteRendering.h"

#include "note/CVLNoteFile.h"
#include "platform/layout/LayoutLimits.h"
#include "platform/layout/TextPages.h"
#include "platform/layout/TextSheet.h"
#include "rendering/NoteLook.h"
#include "rendering/ShownNoteText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kSheetMargin = 20;
/// So that one picture does not make a sheet too high to be drawn.
constexpr double kHighestPictureOnSheet = 4000;
/// The share of a page's width that its margins have on either side, for A4 some two centimetres.
constexpr double kPageMargin = 0.095;
/// Pictures among lines and letters: as fine as printers make them.
constexpr double kPixelsPerPointOnPaper = 3;

bool isWidth(double width)
{
    return width >= kNarrowestSheet && width <= kWidestSheet;
}

void tellRefusal(NSError* error, std::string description)
{
    setError(error,
             NSError(DrawingErrorDomain, static_cast<int>(DrawingError::SizeRefused),
                     {{std::string(NSLocalizedDescriptionKey), std::move(description)}}));
}

void tellRefusedWidth(NSError* error, double width)
{
    tellRefusal(error,
                fmt::format("Notes are drawn from {} to {} points wide, not {}.", kNarrowestSheet,
                            kWidestSheet, width));
}

double highestPicture(const CVLNoteFile& note, double page)
{
    return note.showSmallImages() ? std::min(kSmallImageHeight, page) : page;
}

TextSheet sheetWithNote(const CVLNoteFile& note, const NoteSheetOptions& options, double pixelsPerPoint)
{
    const auto look = lookOfNote(note, options.appearance);
    const auto highest = highestPicture(note, kHighestPictureOnSheet);
    return {shownNoteText(note.noteText(), {highest, pixelsPerPoint}),
            {.width = options.width,
             .margins = {kSheetMargin, kSheetMargin, kSheetMargin, kSheetMargin},
             .backgroundColor = look.backgroundColor,
             .appearance = look.appearance}};
}

/// Whether the sheet can be so many pixels; told when it cannot.
bool hasPixels(NSSize size, double scale, NSError* error)
{
    const auto wide = std::ceil(size.width * scale);
    const auto high = std::ceil(size.height * scale);
    const auto longest = static_cast<double>(DrawingSurface::kMaximumSide);
    if (scale > 0 && wide <= longest && high <= longest
        && wide * high <= static_cast<double>(DrawingSurface::kMaximumPixels))
        return true;
    tellRefusal(error,
                fmt::format("The note is {:.0f} x {:.0f} points, which is too large for a picture with {} "
                            "pixels to a point. A PDF document has pages.",
                            size.width, size.height, scale));
    return false;
}

} // namespace

std::optional<NSData> PNGWithNote(const CVLNoteFile& note, const NoteSheetOptions& options, NSError* error)
{
    if (!isWidth(options.width)) {
        tellRefusedWidth(error, options.width);
        return std::nullopt;
    }
    const auto sheet = sheetWithNote(note, options, options.scale);
    const auto surface = sheet.surface();
    if (!hasPixels(surface.size, options.scale, error))
        return std::nullopt;
    return surface.PNGRepresentation(sheet.drawing(), options.scale, error);
}

std::optional<NSData> SVGWithNote(const CVLNoteFile& note, const NoteSheetOptions& options, NSError* error)
{
    if (!isWidth(options.width)) {
        tellRefusedWidth(error, options.width);
        return std::nullopt;
    }
    const auto sheet = sheetWithNote(note, options, kPixelsPerPointOnPaper);
    return sheet.surface().SVGRepresentation(sheet.drawing(), error);
}

NSSize paperOfWidth(double width)
{
    return {width, std::ceil(width * kPaperA4.height / kPaperA4.width)};
}

std::optional<NSData> PDFWithNote(const CVLNoteFile& note, const NotePageOptions& options, NSError* error)
{
    const auto& paper = options.paper;
    if (!isWidth(paper.width) || !isWidth(paper.height)) {
        tellRefusal(error,
                    fmt::format("Pages are from {} to {} points wide and high, not {} x {}.", kNarrowestSheet,
                                kWidestSheet, paper.width, paper.height));
        return std::nullopt;
    }
    const auto look = lookOfNote(note, options.appearance);
    const auto margin = std::round(paper.width * kPageMargin);
    const auto highest = highestPicture(note, paper.height - 2 * margin);
    const TextPages pages(shownNoteText(note.noteText(), {highest, kPixelsPerPointOnPaper}),
                          {.paper = paper,
                           .margins = {margin, margin, margin, margin},
                           .backgroundColor = look.backgroundColor,
                           .appearance = look.appearance});
    if (pages.count() > kMostPages) {
        tellRefusal(
            error,
            fmt::format("The note would take {} pages; a PDF has {} at most.", pages.count(), kMostPages));
        return std::nullopt;
    }
    return pages.surface().PDFRepresentation(pages.drawings(), error);
}
