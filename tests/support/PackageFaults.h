#pragma once

#include "platform/foundation/PackageOperations.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <limits>
#include <string>
#include <utility>
#include <vector>

/// The system's file operations, of which the n-th does something else.
class PackageFaults final : public PackageOperations {
public:
    enum class Fault {
        /// It fails, and with it each that comes after.
        FailFromThereOn,
        FailOnce,
        /// The process is killed before it.
        Kill
    };

    static constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

    explicit PackageFaults(std::size_t faultyCall = kNever, Fault fault = Fault::FailOnce, int reason = EIO)
        : m_faultyCall(faultyCall)
        , m_fault(fault)
        , m_reason(reason)
    {
    }

    /// Answers every rename that is not plain as a file system that knows no other.
    void withoutRenameKinds() { m_knowsRenameKinds = false; }

    [[nodiscard]] std::size_t callCount() const { return m_callCount; }

    /// The files and folders synced before the first rename, and after it.
    [[nodiscard]] std::size_t syncCountBeforeRename() const { return m_syncCountBeforeRename; }

    [[nodiscard]] std::size_t syncCountAfterRename() const { return m_syncCount - m_syncCountBeforeRename; }

    FileDescriptor openFolderAtPath(const std::string& path) override
    {
        return isFaulty() ? FileDescriptor() : system().openFolderAtPath(path);
    }

    FileDescriptor openFolder(int folder, const std::string& name) override
    {
        return isFaulty() ? FileDescriptor() : system().openFolder(folder, name);
    }

    FileDescriptor createFile(int folder, const std::string& name) override
    {
        return isFaulty() ? FileDescriptor() : system().createFile(folder, name);
    }

    bool createFolder(int folder, const std::string& name) override
    {
        return !isFaulty() && system().createFolder(folder, name);
    }

    bool createLink(const std::string& destination, int folder, const std::string& name) override
    {
        return !isFaulty() && system().createLink(destination, folder, name);
    }

    bool write(int file, std::string_view bytes) override
    {
        // What fails has written a part.
        if (!isFaulty())
            return system().write(file, bytes);
        (void)system().write(file, bytes.substr(0, bytes.size() / 2));
        errno = m_reason;
        return false;
    }

    bool setPermissions(int file, unsigned permissions) override
    {
        return !isFaulty() && system().setPermissions(file, permissions);
    }

    bool setModificationDate(int file, NSDate date) override
    {
        return !isFaulty() && system().setModificationDate(file, date);
    }

    bool sync(int file) override
    {
        ++m_syncCount;
        m_syncCountBeforeRename += m_hasRenamed ? 0 : 1;
        return !isFaulty() && system().sync(file);
    }

    bool rename(int folder, const std::string& from, const std::string& to, RenameKind kind) override
    {
        m_hasRenamed = true;
        if (!m_knowsRenameKinds && kind != RenameKind::Replace) {
            errno = EINVAL;
            return false;
        }
        return !isFaulty() && system().rename(folder, from, to, kind);
    }

    bool remove(int folder, const std::string& name) override
    {
        return !isFaulty() && system().remove(folder, name);
    }

    void setExtensionHidden(int file) override { system().setExtensionHidden(file); }

    void inherit(int folder, const std::string& name, int file) override
    {
        system().inherit(folder, name, file);
    }

private:
    bool isFaulty()
    {
        const auto call = m_callCount++;
        if (call < m_faultyCall || (call > m_faultyCall && m_fault == Fault::FailOnce))
            return false;
        if (m_fault == Fault::Kill)
            (void)std::raise(SIGKILL);
        errno = m_reason;
        return true;
    }

    std::size_t m_faultyCall;
    Fault m_fault;
    int m_reason;
    std::size_t m_callCount = 0;
    std::size_t m_syncCount = 0;
    std::size_t m_syncCountBeforeRename = 0;
    bool m_hasRenamed = false;
    bool m_knowsRenameKinds = true;
};
