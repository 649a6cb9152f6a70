// Any bytes are asked how large an image they are, and decoded: an image is as large as was said, and has no
// more pixels than were asked for.

#include "platform/images/ImageFile.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t kSide = 50;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto claimed = sizeOfImage(bytes);
    const auto image = imageWithData(bytes, {kSide, kSide});
    if (!image)
        return 0;
    require(claimed && *claimed == image->size());
    require(image->pixelsWide() <= kSide && image->pixelsHigh() <= kSide);
    require(image->pixels().size() == image->pixelsWide() * image->pixelsHigh());
    return 0;
}
