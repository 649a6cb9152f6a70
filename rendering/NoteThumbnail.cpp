#include "note/CVLNoteFile.h"
#include "platform/layout/TextSheet.h"
#include "rendering/NoteLook.h"
#include "rendering/NoteRendering.h"
#include "rendering/ShownNoteText.h"

#include <fmt/format.h>

#include <algorithm>

namespace {

/// Pixels to a point below which letters are specks, and the widest sheet that is shrunk into a thumbnail.
constexpr double kReadableScale = 0.6;
constexpr double kWidestColumn = 420;
constexpr double kMarginShare = 0.06;
/// No thumbnail shows more of a text.
constexpr NSUInteger kLongestBeginning = 8000;

NSAttributedString beginningOf(const NSAttributedString& text)
{
    return text.length() <= kLongestBeginning ? text
                                              : text.attributedSubstringFromRange({0, kLongestBeginning});
}

} // namespace

std::optional<NSData> thumbnailWithNote(const CVLNoteFile& note, std::size_t side, NSAppearance appearance,
                                        NSError* error)
{
    if (side < kSmallestThumbnail || side > kLargestThumbnail) {
        setError(error,
                 NSError(DrawingErrorDomain, static_cast<int>(DrawingError::SizeRefused),
                         {{std::string(NSLocalizedDescriptionKey),
                           fmt::format("Thumbnails are from {} to {} pixels large, not {}.",
                                       kSmallestThumbnail, kLargestThumbnail, side)}}));
        return std::nullopt;
    }
    const auto pixels = static_cast<double>(side);
    const auto width = std::min(pixels / kReadableScale, kWidestColumn);
    const auto scale = pixels / width;
    const auto look = lookOfNote(note, appearance);
    const auto margin = width * kMarginShare;
    const auto highest = note.showSmallImages() ? std::min(kSmallImageHeight, width) : width;
    const TextSheet sheet(shownNoteText(beginningOf(note.noteText()), {highest, scale}),
                          {.width = width,
                           .margins = {margin, margin, margin, margin},
                           .backgroundColor = nullptr,
                           .appearance = look.appearance});
    const auto drawing = [&](NSGraphicsContext& context) {
        context.fillRect({{}, {width, width}}, *look.backgroundColor);
        sheet.drawing()(context);
    };
    // Rounding must not make it a pixel larger than was asked for.
    constexpr double kSliver = 1e-6;
    const DrawingSurface surface{{width - kSliver, width - kSliver}, look.appearance, Flipped::Yes};
    return surface.PNGRepresentation(drawing, scale, error);
}
