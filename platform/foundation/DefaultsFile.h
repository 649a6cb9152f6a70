#pragma once

#include "platform/foundation/AtomicFile.h"
#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

/// The property-list file of user defaults, which several processes read and change at a time. An object
/// belongs to one thread at a time.
class DefaultsFile {
public:
    /// An empty path is one that could not be found out; it reads as an empty file and refuses writes.
    DefaultsFile(std::string path, FileOperations& operations);

    /// What the file holds now. Empty when there is no file, and, with a log line, when it is damaged or
    /// cannot be read.
    [[nodiscard]] const NSAny::Dictionary& values();

    /// Makes changes to what the file holds now: nil removes a key. Takes the lock file beside the file
    /// meanwhile, waiting for others for a few seconds. False with the reason in `error` when the file stays
    /// as it is; a file that cannot be read is never written over.
    [[nodiscard]] bool apply(const NSAny::Dictionary& changes, NSError* error = nullptr);

private:
    enum class State { Absent, Sound, Damaged, Unreadable };

    /// What changes whenever the file is replaced or written to.
    struct Stamp {
        std::uint64_t device = 0;
        std::uint64_t inode = 0;
        std::int64_t byteCount = 0;
        std::int64_t modified = 0;
        std::int64_t changed = 0;

        friend bool operator==(const Stamp&, const Stamp&) = default;
    };

    [[nodiscard]] static std::optional<Stamp> stampOf(const std::string& path);
    void refresh();
    void read();
    void take(const std::string& bytes);
    void setUnusable(State state, NSError error);
    [[nodiscard]] bool writeLocked(const NSAny::Dictionary& changes, NSError* error);
    [[nodiscard]] bool keepDamagedFile(NSError* error);

    std::string m_path;
    FileOperations& m_operations;
    State m_state = State::Absent;
    std::optional<Stamp> m_stamp;
    NSAny::Dictionary m_values;
    /// Why the file is damaged or unreadable.
    NSError m_error;
};
