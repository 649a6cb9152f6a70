#pragma once

#include "platform/search/SKIndex.h"
#include "service/ItemSources.h"

#include <functional>
#include <memory>

/// What the requests stand on; tests put their own in its place.
struct IndexingEnvironment {
    /// Opens an index for writing; null with the reason in `error`.
    std::function<std::unique_ptr<SKIndex>(const NSURL& url, NSError* error)> openIndex
        = [](const NSURL& url, NSError* error) {
              return SKIndex::openWithURL(url, SKIndexAccess::Write, error);
          };
    ItemSources sources;

    /// Opens the index that a request names; null when it names none or the index cannot be opened, which is
    /// logged.
    [[nodiscard]] std::unique_ptr<SKIndex> openIndexForRequest(const std::optional<NSURL>& url) const;
};
