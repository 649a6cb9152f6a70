#pragma once

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSError.h"

#include <memory>
#include <string>
#include <sys/types.h>

/// A socket that listens, from systemd or at a path. One at a path is made together with its folder (0700) if
/// that is missing, is open to its owner only (0600), and is removed again at the end.
class ListeningSocket {
public:
    /// The socket that systemd passed to this process; null when it passed none, and with the reason in
    /// `error` when what it passed is of no use.
    [[nodiscard]] static std::unique_ptr<ListeningSocket> passedBySystemd(NSError* error = nullptr);

    /// Listens at `path`. A socket that a process left behind is replaced; null with the reason in `error`
    /// when another process listens there, something else is there, or the system refuses.
    [[nodiscard]] static std::unique_ptr<ListeningSocket> listenAt(const std::string& path,
                                                                   NSError* error = nullptr);

    ListeningSocket(const ListeningSocket&) = delete;
    ListeningSocket& operator=(const ListeningSocket&) = delete;
    ~ListeningSocket();

    [[nodiscard]] int descriptor() const { return m_descriptor.get(); }

    /// The next connection that waits; invalid with errno set when none does.
    [[nodiscard]] FileDescriptor accept() const;
    /// Takes the socket out of the file system, unless another process has put its own there since. Who
    /// connected before can still be accepted.
    void removeFromFileSystem();

private:
    ListeningSocket(FileDescriptor descriptor, std::string path);

    FileDescriptor m_descriptor;
    std::string m_path;
    dev_t m_device = 0;
    ino_t m_inode = 0;
};
