#include "note/UnreadableMembers.h"

#include "platform/foundation/FileNameText.h"
#include "platform/foundation/NSFileWrapper.h"

#include <filesystem>
#include <optional>
#include <system_error>

namespace fs = std::filesystem;

namespace {

using Kind = NoteFinding::Kind;

std::optional<Kind> kindOf(const fs::directory_entry& entry)
{
    std::error_code failure; // What cannot be looked at says so when it is read.
    const auto type = entry.symlink_status(failure).type();
    if (failure || type == fs::file_type::directory || type == fs::file_type::symlink)
        return std::nullopt;
    if (type != fs::file_type::regular)
        return Kind::SpecialMember;
    const auto size = entry.file_size(failure);
    return !failure && size > NSFileWrapper::kMostBytes ? std::optional(Kind::HugeMember) : std::nullopt;
}

} // namespace

std::vector<NoteFinding> unreadableMembers(const NSURL& url)
{
    std::vector<NoteFinding> findings;
    const fs::path package(url.path());
    std::error_code failure;
    auto members = fs::recursive_directory_iterator(package, failure);
    for (std::size_t count = 0; !failure && members != fs::end(members); members.increment(failure)) {
        if (const auto kind = kindOf(*members))
            findings.push_back(
                {*kind, textFromFileName(members->path().lexically_relative(package).native())});
        if (++count == NSFileWrapper::kMostMembers)
            break;
    }
    return findings;
}
