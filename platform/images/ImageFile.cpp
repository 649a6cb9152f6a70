#include "platform/images/ImageFile.h"

#include "platform/images/BitmapHeader.h"
#include "platform/images/ImageFormats.h"
#include "platform/images/ImageLoader.h"
#include "platform/images/PixelOrientation.h"
#include "platform/media/ContentLimits.h"
#include "platform/media/ImageMetadata.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr std::string_view kBitmapType = "com.microsoft.bmp";

void tell(NSError* error, ImageError code, std::string description)
{
    setError(error,
             NSError(ImageErrorDomain, static_cast<int>(code),
                     {{std::string(NSLocalizedDescriptionKey), std::move(description)}}));
}

/// An image that may be decoded.
struct ImageHeader {
    const ImageFormat* format = nullptr;
    /// As it lies in the file.
    PixelSize size;
    int orientation = 1;

    [[nodiscard]] NSSize shownSize() const
    {
        const NSSize stored{static_cast<double>(size.wide), static_cast<double>(size.high)};
        return isTurnedOnSide(orientation) ? NSSize{stored.height, stored.width} : stored;
    }
};

/// None, and told, when the bytes are no image, too many, or would cost their decoder too much.
const ImageFormat* knownFormat(std::string_view bytes, NSError* error)
{
    const auto* format = imageFormatOfBytes(bytes);
    if (!format || !hasImageDecoder(format->mimeType)) {
        tell(error, ImageError::UnknownFormat, "The data are no image of a kind that can be read.");
        return nullptr;
    }
    const ContentLimits limits;
    if (bytes.size() > (format->isVector ? limits.vectorImageBytes : limits.imageBytes)) {
        tell(error, ImageError::TooLarge, fmt::format("The image has {} bytes, too many.", bytes.size()));
        return nullptr;
    }
    if (format->typeIdentifier == kBitmapType && overstatesBitmapHeader(bytes)) {
        tell(error, ImageError::Broken, "The image cannot be read: its header claims too much.");
        return nullptr;
    }
    return format;
}

std::optional<ImageHeader> readHeader(std::string_view bytes, NSError* error)
{
    ImageHeader header;
    header.format = knownFormat(bytes, error);
    if (!header.format)
        return std::nullopt;
    std::string reason;
    (void)decodeImage(
        bytes, header.format->mimeType,
        [&](PixelSize size) {
            header.size = size;
            return std::nullopt;
        },
        reason); // It ends as soon as the size is known, which is all that is wanted.
    if (header.size.wide == 0) {
        tell(error, ImageError::Broken, fmt::format("The image cannot be read: {}.", reason));
        return std::nullopt;
    }
    if (header.size.wide > ContentLimits().imagePixels / header.size.high) {
        tell(error, ImageError::TooLarge,
             fmt::format("The image has {} x {} pixels, too many.", header.size.wide, header.size.high));
        return std::nullopt;
    }
    header.orientation = header.format->isVector ? 1 : orientationInImageMetadata(bytes);
    return header;
}

/// At most 1.
double shareToDecode(NSSize shown, NSSize largest)
{
    double share = 1;
    if (largest.width > 0)
        share = std::min(share, largest.width / shown.width);
    if (largest.height > 0)
        share = std::min(share, largest.height / shown.height);
    return share;
}

/// Rounded up, but for what the division that gave the share left over: 769 times 50/769 is 50.
std::size_t shareOf(std::size_t count, double share)
{
    constexpr double kLeftOver = 1e-6;
    const auto exact = static_cast<double>(count) * share - kLeftOver;
    return std::max<std::size_t>(1, static_cast<std::size_t>(std::ceil(exact)));
}

} // namespace

std::optional<NSSize> sizeOfImage(std::string_view bytes, NSError* error)
{
    const auto header = readHeader(bytes, error);
    return header ? std::optional(header->shownSize()) : std::nullopt;
}

NSImage::Ref imageWithData(std::string_view bytes, NSSize largestShown, NSError* error)
{
    const auto header = readHeader(bytes, error);
    if (!header)
        return nullptr;
    const auto share = shareToDecode(header->shownSize(), largestShown);
    std::string reason;
    auto pixels = decodeImage(
        bytes, header->format->mimeType,
        [&](PixelSize size) -> std::optional<PixelSize> {
            // A file that says something else the second time is not to be trusted.
            if (size != header->size)
                return std::nullopt;
            return PixelSize{shareOf(size.wide, share), shareOf(size.high, share)};
        },
        reason);
    if (!pixels) {
        tell(error, ImageError::Broken, fmt::format("The image cannot be read: {}.", reason));
        return nullptr;
    }
    return NSImage::imageWithPixels(uprightPixels(std::move(*pixels), header->orientation),
                                    header->shownSize());
}

std::vector<std::string> readableImageTypeIdentifiers()
{
    std::vector<std::string> identifiers;
    for (const auto& format : imageFormats()) {
        const auto isNew = identifiers.empty() || identifiers.back() != format.typeIdentifier;
        if (isNew && hasImageDecoder(format.mimeType))
            identifiers.emplace_back(format.typeIdentifier);
    }
    return identifiers;
}
