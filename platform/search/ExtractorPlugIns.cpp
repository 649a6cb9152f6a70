#include "platform/search/ExtractorPlugIns.h"

#include "platform/media/ContentReader.h"
#include "platform/search/SKIndex.h"

#include <atomic>

namespace {

std::atomic<std::size_t>& loadCount()
{
    static std::atomic<std::size_t> count{0};
    return count;
}

} // namespace

void SKLoadDefaultExtractorPlugIns()
{
    ++loadCount();
}

std::size_t SKDefaultExtractorPlugInLoadCount()
{
    return loadCount();
}

bool isReadByLoadedExtractors(const UTType& type)
{
    const bool loaded = loadCount() > 0 || type.conformsToType(kUTTypePlainText);
    return loaded && contentReaderForType(type.identifier()) != nullptr;
}
