#include "platform/media/ImageDescriptionReader.h"

#include "platform/foundation/NSError.h"
#include "platform/media/ImageMetadata.h"
#include "platform/media/PNGText.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <set>
#include <string>

namespace {

// Metadata stand before the picture in a JPEG, and may stand behind a large one in other formats.
constexpr std::size_t kJPEGByteCount = std::size_t{4} << 20;
constexpr std::size_t kImageByteCount = std::size_t{16} << 20;
constexpr std::string_view kJPEGSignature = "\xFF\xD8\xFF";

struct PNGKeyword {
    std::string_view keyword;
    std::string_view fieldName;
};

constexpr auto kPNGKeywords = std::to_array<PNGKeyword>({
    {"Title", "title"},
    {"Author", "author"},
    {"Description", "description"},
    {"Comment", "description"},
});

/// Puts each description into the sink once.
class DescriptionWriter {
public:
    explicit DescriptionWriter(ContentSink& sink)
        : m_sink(sink)
    {
    }

    void add(std::string_view fieldName, const std::string& text)
    {
        if (text.empty() || !m_seen.insert(text).second)
            return;
        m_sink.addField(fieldName, text);
        m_sink.breakLine();
        (void)m_sink.append(text); // A full sink takes no more, and there is little.
    }

private:
    ContentSink& m_sink;
    std::set<std::string> m_seen;
};

bool readImageBytes(const ContentSource& source, const ContentLimits& limits, std::string& bytes)
{
    if (!readSourceBytes(source, kJPEGSignature.size(), bytes))
        return false;
    const auto most = bytes == kJPEGSignature ? kJPEGByteCount : kImageByteCount;
    return readSourceBytes(source, std::min(most, limits.wholeFileBytes), bytes);
}

} // namespace

ReadResult readImageDescription(const ContentSource& source, ContentSink& sink)
{
    std::string bytes;
    if (!readImageBytes(source, sink.limits(), bytes))
        return {ContentStatus::Unreadable,
                NSError::errorWithErrno(errno, "read the image").localizedDescription()};
    DescriptionWriter writer(sink);
    for (const auto& entry : textsOfPNG(bytes)) {
        const auto* const known
            = std::find_if(kPNGKeywords.begin(), kPNGKeywords.end(),
                           [&entry](const PNGKeyword& row) { return row.keyword == entry.keyword; });
        if (known != kPNGKeywords.end())
            writer.add(known->fieldName, entry.text);
    }
    for (const auto& description : descriptionsInImageMetadata(bytes))
        writer.add(description.fieldName, description.text);
    return {};
}
