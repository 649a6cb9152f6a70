#include "service/IndexingEnvironment.h"

#include "platform/foundation/NSLog.h"

std::unique_ptr<SKIndex> IndexingEnvironment::openIndexForRequest(const std::optional<NSURL>& url) const
{
    if (!url)
        return nullptr;
    NSError error;
    auto index = openIndex(*url, &error);
    if (!index)
        NSLog("Couldn't open index {}: {}", url->absoluteString(), error.localizedDescription());
    return index;
}
