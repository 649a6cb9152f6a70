#include "platform/search/SKIndex.h"

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>

namespace {

// A package larger than this is looked at in part; its stamp then tells most changes, not all.
constexpr int kMaximumMembers = 10'000;

std::int64_t nanoseconds(const timespec& time)
{
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

void addMember(const std::string& path, SKFileStamp& stamp)
{
    struct stat status { };

    if (::lstat(path.c_str(), &status) != 0)
        return; // It went away between listing and looking: the folder's own time tells.
    stamp.modificationTime = std::max(stamp.modificationTime, nanoseconds(status.st_mtim));
    if (S_ISREG(status.st_mode))
        stamp.size += status.st_size;
}

} // namespace

std::optional<SKFileStamp> SKFileStamp::stampOfFile(const NSURL& url)
{
    const auto path = url.isFileURL() ? url.path() : std::string();

    struct stat status { };

    if (path.empty() || ::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    if (!S_ISDIR(status.st_mode))
        return SKFileStamp{nanoseconds(status.st_mtim), status.st_size};
    SKFileStamp stamp{nanoseconds(status.st_mtim), 0};
    std::error_code failure;
    int count = 0;
    for (std::filesystem::recursive_directory_iterator member(path, failure), end;
         !failure && member != end && count < kMaximumMembers; member.increment(failure), ++count)
        addMember(member->path().native(), stamp);
    return stamp;
}
