#include "platform/media/ImageMetadata.h"

#include "platform/foundation/TextEncoding.h"

#include <exiv2/exiv2.hpp>

#include <algorithm>
#include <array>
#include <exception>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace {

constexpr long kLongestValue = 65536;
constexpr long kMostElements = 1000;
constexpr int kUpright = 1;
constexpr int kLastOrientation = 8;

struct MetadataKey {
    const char* key;
    std::string_view fieldName;
};

constexpr auto kEXIFKeys = std::to_array<MetadataKey>({
    {"Exif.Image.DocumentName", "title"},
    {"Exif.Image.XPTitle", "title"},
    {"Exif.Image.Artist", "author"},
    {"Exif.Image.XPAuthor", "author"},
    {"Exif.Image.XPSubject", "subject"},
    {"Exif.Image.XPKeywords", "keywords"},
    {"Exif.Image.ImageDescription", "description"},
    {"Exif.Image.XPComment", "description"},
    {"Exif.Photo.UserComment", "description"},
});

constexpr auto kIPTCKeys = std::to_array<MetadataKey>({
    {"Iptc.Application2.ObjectName", "title"},
    {"Iptc.Application2.Headline", "title"},
    {"Iptc.Application2.Byline", "author"},
    {"Iptc.Application2.Keywords", "keywords"},
    {"Iptc.Application2.Caption", "description"},
});

constexpr auto kXMPKeys = std::to_array<MetadataKey>({
    {"Xmp.dc.title", "title"},
    {"Xmp.photoshop.Headline", "title"},
    {"Xmp.dc.creator", "author"},
    {"Xmp.dc.subject", "keywords"},
    {"Xmp.dc.description", "description"},
});

void lockToolkit(void* mutex, bool isLocking)
{
    if (isLocking)
        static_cast<std::mutex*>(mutex)->lock();
    else
        static_cast<std::mutex*>(mutex)->unlock();
}

void startLibrary()
{
    static std::once_flag once;
    static std::mutex toolkitMutex;
    std::call_once(once, [] {
        Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
        (void)Exiv2::enableBMFF(true); // Without it HEIF images have no description.
        (void)Exiv2::XmpParser::initialize(lockToolkit, &toolkitMutex); // Without it XMP stays unread.
    });
}

std::string trimmed(const std::string& text)
{
    constexpr std::string_view kBlanks(" \t\r\n\0", 5);
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Collects what is not empty and was not there before.
class Descriptions {
public:
    void add(std::string_view fieldName, const std::string& bytes)
    {
        auto text = trimmed(decodedText(bytes));
        if (!text.empty())
            m_descriptions.push_back({fieldName, std::move(text)});
    }

    [[nodiscard]] std::vector<ImageDescription> take() { return std::move(m_descriptions); }

private:
    std::vector<ImageDescription> m_descriptions;
};

std::string bytesOf(const Exiv2::Value& value)
{
    std::vector<Exiv2::byte> bytes(static_cast<std::size_t>(value.size()));
    (void)value.copy(bytes.data(), Exiv2::littleEndian); // The size is known.
    return {bytes.begin(), bytes.end()};
}

std::string textOfEXIFValue(const Exiv2::Exifdatum& datum)
{
    const auto& value = datum.value();
    if (value.size() <= 0 || value.size() > kLongestValue)
        return {};
    if (const auto* const comment = dynamic_cast<const Exiv2::CommentValue*>(&value))
        return comment->comment();
    // The tags that begin with XP are UTF-16 in bytes.
    if (value.typeId() == Exiv2::unsignedByte)
        return decodedText(bytesOf(value), "utf-16le").value_or(std::string());
    return value.typeId() == Exiv2::asciiString ? value.toString() : std::string();
}

void addEXIF(const Exiv2::ExifData& data, Descriptions& descriptions)
{
    for (const auto& key : kEXIFKeys) {
        const auto found = data.findKey(Exiv2::ExifKey(key.key));
        if (found != data.end())
            descriptions.add(key.fieldName, textOfEXIFValue(*found));
    }
}

void addIPTC(const Exiv2::IptcData& data, Descriptions& descriptions)
{
    long count = 0;
    for (const auto& datum : data) {
        for (const auto& key : kIPTCKeys) {
            if (datum.key() == key.key && datum.size() <= kLongestValue && ++count <= kMostElements)
                descriptions.add(key.fieldName, datum.toString());
        }
    }
}

void addXMPValue(const Exiv2::Value& value, std::string_view fieldName, Descriptions& descriptions)
{
    if (const auto* const alternatives = dynamic_cast<const Exiv2::LangAltValue*>(&value)) {
        for (const auto& [language, text] : alternatives->value_)
            descriptions.add(fieldName, text);
        return;
    }
    for (long index = 0; index < std::min(value.count(), kMostElements); ++index)
        descriptions.add(fieldName, value.toString(index));
}

void addXMP(const Exiv2::XmpData& data, Descriptions& descriptions)
{
    for (const auto& key : kXMPKeys) {
        const auto found = data.findKey(Exiv2::XmpKey(key.key));
        if (found != data.end())
            addXMPValue(found->value(), key.fieldName, descriptions);
    }
}

/// Runs `step`; what it cannot read is no fault of the caller's.
template <typename Step> void attempt(const Step& step)
{
    try {
        step();
    } catch (const std::exception&) {
        // Broken metadata describe nothing; what was read before stays.
    }
}

/// Null for what is too large for the library. Raises what the library does.
std::unique_ptr<Exiv2::Image> imageWithMetadata(std::string_view bytes)
{
    startLibrary();
    if (bytes.empty() || bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return nullptr;
    std::unique_ptr<Exiv2::Image> image(
        Exiv2::ImageFactory::open(reinterpret_cast<const Exiv2::byte*>(bytes.data()),
                                  static_cast<long>(bytes.size()))
            .release());
    attempt([&] { image->readMetadata(); });
    return image;
}

} // namespace

std::vector<ImageDescription> descriptionsInImageMetadata(std::string_view bytes)
{
    Descriptions descriptions;
    attempt([&] {
        const auto image = imageWithMetadata(bytes);
        if (!image)
            return;
        attempt([&] { addXMP(image->xmpData(), descriptions); });
        attempt([&] { addIPTC(image->iptcData(), descriptions); });
        attempt([&] { addEXIF(image->exifData(), descriptions); });
        attempt([&] { descriptions.add("description", image->comment()); });
    });
    return descriptions.take();
}

int orientationInImageMetadata(std::string_view bytes)
{
    long orientation = kUpright;
    attempt([&] {
        const auto image = imageWithMetadata(bytes);
        if (!image)
            return;
        const auto found = image->exifData().findKey(Exiv2::ExifKey("Exif.Image.Orientation"));
        if (found != image->exifData().end() && found->count() > 0)
            orientation = found->toLong();
    });
    return orientation >= kUpright && orientation <= kLastOrientation ? static_cast<int>(orientation)
                                                                      : kUpright;
}
