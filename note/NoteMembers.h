#pragma once

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/NSURL.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

/// The members of a note package on disk, each read by itself and only when it is asked for. Nothing outside
/// of the folder is reached: links are not followed, at the URL neither.
class NoteMembers {
public:
    /// None when there is no folder that can be looked into at the URL.
    [[nodiscard]] static std::optional<NoteMembers> createWithURL(const NSURL& url);

    enum class State {
        Absent,
        /// Something is there that has no contents: a folder, a link.
        NoFile,
        Read,
        /// Logged.
        Unreadable,
        /// Logged.
        TooLarge
    };

    struct Member {
        State state = State::Absent;
        std::string bytes{};
    };

    [[nodiscard]] Member read(std::u16string_view name, std::size_t mostBytes) const;

    /// The package as a folder in memory in which `member` has its contents and everything else is empty.
    /// Null when the names cannot be read, which is logged.
    [[nodiscard]] NSFileWrapper::Ref packageWithContents(std::u16string_view name, Member member) const;

private:
    NoteMembers(NSURL url, FileDescriptor folder)
        : m_url(std::move(url))
        , m_folder(std::move(folder))
    {
    }

    [[nodiscard]] std::optional<NSFileWrapper::FileWrappers> emptyMembers() const;

    NSURL m_url;
    FileDescriptor m_folder;
};
