#include "platform/search/SKIndex.h"

#include "platform/search/EmbeddedIndex.h"

namespace {

constexpr std::string_view kFileScheme = "file";

// The one place that knows which engine serves which scheme.
bool isServed(const NSURL& url, NSError* error)
{
    if (url.scheme() == kFileScheme && url.isFileURL() && !url.path().empty())
        return true;
    setError(
        error,
        IndexFile::error(IndexFile::Error::CannotOpen, url.absoluteString() + ": no index has such a URL"));
    return false;
}

} // namespace

std::unique_ptr<SKIndex> SKIndex::createWithURL(const NSURL& url, NSError* error)
{
    if (!isServed(url, error) || !IndexFile::create(url.path(), error))
        return nullptr;
    return openWithURL(url, SKIndexAccess::Write, error);
}

std::unique_ptr<SKIndex> SKIndex::openWithURL(const NSURL& url, SKIndexAccess access, NSError* error)
{
    if (!isServed(url, error))
        return nullptr;
    return EmbeddedIndex::open(url, access, IndexFile::kDefaultBusyTimeout, error);
}
