#include "platform/foundation/NSURLResourceValues.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/FileWrapperReader.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace {

constexpr const char* kCreationDateAttribute = "user.corvel.creation-date";
constexpr const char* kPackageAttribute = "user.corvel.package";
/// Seconds from 1970 to 2001.
constexpr double kReferenceDate = 978307200;

/// None when there is no such attribute, or one that is longer than any of ours.
std::optional<std::string> attributeOf(int descriptor, const char* name)
{
    std::array<char, 64> value{};
    const auto length = ::fgetxattr(descriptor, name, value.data(), value.size());
    if (length < 0)
        return std::nullopt;
    return std::string(value.data(), static_cast<std::size_t>(length));
}

std::optional<bool> flagOf(int descriptor, const char* name)
{
    const auto value = attributeOf(descriptor, name);
    return value ? std::optional(*value == "1") : std::nullopt;
}

std::optional<NSDate> storedCreationDate(int descriptor)
{
    const auto value = attributeOf(descriptor, kCreationDateAttribute);
    if (!value)
        return std::nullopt;
    double seconds = 0;
    const auto* end = value->data() + value->size();
    const auto [stop, status] = std::from_chars(value->data(), end, seconds);
    if (status != std::errc() || stop != end || !std::isfinite(seconds))
        return std::nullopt;
    return NSDate{seconds};
}

std::optional<NSDate> birthDate(int descriptor)
{
    struct statx status { };

    if (::statx(descriptor, "", AT_EMPTY_PATH | AT_SYMLINK_NOFOLLOW, STATX_BTIME, &status) != 0
        || (status.stx_mask & STATX_BTIME) == 0)
        return std::nullopt;
    return NSDate{static_cast<double>(status.stx_btime.tv_sec) - kReferenceDate
                  + static_cast<double>(status.stx_btime.tv_nsec) / 1e9};
}

bool setAttribute(int descriptor, const char* name, std::string_view value)
{
    return ::fsetxattr(descriptor, name, value.data(), value.size(), 0) == 0;
}

FileDescriptor openedURL(const NSURL& url)
{
    return FileDescriptor(::open(url.path().c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
}

} // namespace

std::optional<NSURLResourceValues> NSURLResourceValues::resourceValuesOfURL(const NSURL& url, NSError* error)
{
    const auto file = openedURL(url);
    if (file.isValid())
        return resourceValuesOfFile(file.get());
    setError(error, NSError::errorWithErrno(errno, url.path()));
    return std::nullopt;
}

NSURLResourceValues NSURLResourceValues::resourceValuesOfFile(int descriptor)
{
    auto created = storedCreationDate(descriptor);
    if (!created)
        created = birthDate(descriptor);
    return {flagOf(descriptor, kExtensionHiddenAttribute).value_or(false), created,
            flagOf(descriptor, kPackageAttribute)};
}

bool NSURLResourceValues::setForURL(const NSURL& url, NSError* error) const
{
    const auto file = openedURL(url);
    const int failure = file.isValid() ? setForFile(file.get()) : errno;
    if (failure != 0)
        setError(error, NSError::errorWithErrno(failure, url.path()));
    return failure == 0;
}

int NSURLResourceValues::setForFile(int descriptor) const
{
    int failure = 0;
    const auto set = [&](const char* name, std::string_view value) {
        if (!setAttribute(descriptor, name, value))
            failure = errno;
    };
    if (hasHiddenExtension)
        set(kExtensionHiddenAttribute, *hasHiddenExtension ? "1" : "0");
    if (creationDate)
        set(kCreationDateAttribute, fmt::format("{}", creationDate->timeIntervalSinceReferenceDate));
    if (isPackage)
        set(kPackageAttribute, *isPackage ? "1" : "0");
    return failure;
}
