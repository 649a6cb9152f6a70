#include "platform/media/EPUBReader.h"
#include "platform/media/OfficeOpenXMLReader.h"
#include "platform/media/OfficeTextHandler.h"
#include "platform/media/OpenDocumentReader.h"

#include <array>
#include <cstddef>
#include <cstdint>

// The first byte chooses a reader of packages, or the XML that stands in one: mutations of packed bytes
// rarely get there.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static constexpr std::array<ContentReader, 3> kReaders{readOfficeOpenXML, readOpenDocument, readEPUB};
    if (size == 0)
        return 0;
    ContentSource source;
    source.bytes = {reinterpret_cast<const char*>(data) + 1, size - 1};
    ContentSink sink(ContentLimits{});
    if (data[0] < kReaders.size()) {
        (void)kReaders[data[0]](source, sink);
        return 0;
    }
    OfficeTextHandler handler(sink);
    (void)readXMLSource(source, handler, sink);
    return 0;
}
