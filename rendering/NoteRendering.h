#pragma once

#include "platform/drawing/DrawingSurface.h"
#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"

#include <cstddef>
#include <optional>

class CVLNoteFile;

/// A note as a person sees it: its text in its styles, boxes to tick, dividers, highlights, tables, images in
/// their places (small ones when the note says so), other files as icons with names, all on the note's own
/// background.
///
/// Images are never wider than the lines of their paragraph and never higher than a page; what cannot be read
/// of them is shown as a file. A note with a background of its own is drawn in the appearance that can be
/// read on it, whichever was asked for.
///
/// Each function gives the bytes of a file; none, with the reason in `error`, when the sizes are refused or
/// the library fails (DrawingError of DrawingErrorDomain). Time is in proportion to the note. The note is
/// only read, on the calling thread.

/// The height of images in a note that shows them small; higher ones are shrunk to it.
inline constexpr double kSmallImageHeight = 100;
/// What a sheet may be wide, and a thumbnail large.
inline constexpr double kNarrowestSheet = 100;
inline constexpr double kWidestSheet = 10000;
inline constexpr std::size_t kSmallestThumbnail = 16;
inline constexpr std::size_t kLargestThumbnail = 2048;

/// One sheet with the whole note.
struct NoteSheetOptions {
    /// In points, with the margins.
    double width = 600;
    NSAppearance appearance = NSAppearance::Light;
    /// Pixels to a point, for what has pixels.
    double scale = 1;
};

/// A note whose sheet would have more pixels than DrawingSurface allows is refused, not cut: the reason says
/// how high it is, and that a document has pages.
[[nodiscard]] std::optional<NSData> PNGWithNote(const CVLNoteFile& note, const NoteSheetOptions& options,
                                                NSError* error = nullptr);
[[nodiscard]] std::optional<NSData> SVGWithNote(const CVLNoteFile& note, const NoteSheetOptions& options,
                                                NSError* error = nullptr);

/// Pages of a size in points, A4 unless said otherwise.
struct NotePageOptions {
    NSSize paper{595, 842};
    NSAppearance appearance = NSAppearance::Light;
};

/// Paper that is so wide, of the proportions of A4.
[[nodiscard]] NSSize paperOfWidth(double width);

/// As many pages as the note needs, cut between lines.
[[nodiscard]] std::optional<NSData> PDFWithNote(const CVLNoteFile& note, const NotePageOptions& options = {},
                                                NSError* error = nullptr);

/// The note's beginning in a square with sides of so many pixels, at a scale at which it can be read.
[[nodiscard]] std::optional<NSData> thumbnailWithNote(const CVLNoteFile& note, std::size_t side,
                                                      NSAppearance appearance = NSAppearance::Light,
                                                      NSError* error = nullptr);
