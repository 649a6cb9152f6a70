#pragma once

#include "platform/foundation/AtomicFile.h"

#include <cerrno>
#include <functional>

/// The system's calls, but the n-th one goes wrong: `failure` is called in its place, and when it returns the
/// call fails with EIO.
class FailingOperations final : public FileOperations {
public:
    /// Counting from 1; 0 lets every call through.
    explicit FailingOperations(
        int failingCall, std::function<void()> failure = [] {})
        : m_failingCall(failingCall)
        , m_failure(std::move(failure))
    {
    }

    [[nodiscard]] int callCount() const { return m_callCount; }

    FileDescriptor create(const std::string& path) override
    {
        return isFailing() ? FileDescriptor() : system().create(path);
    }

    bool write(int descriptor, std::string_view bytes) override
    {
        if (!isFailing())
            return system().write(descriptor, bytes);
        // A disk that fills up takes a part first.
        (void)system().write(descriptor, bytes.substr(0, bytes.size() / 2));
        errno = EIO;
        return false;
    }

    bool sync(int descriptor) override { return !isFailing() && system().sync(descriptor); }

    bool rename(const std::string& from, const std::string& to) override
    {
        return !isFailing() && system().rename(from, to);
    }

    bool syncFolder(const std::string& path) override { return !isFailing() && system().syncFolder(path); }

private:
    bool isFailing()
    {
        if (++m_callCount != m_failingCall)
            return false;
        m_failure();
        errno = EIO;
        return true;
    }

    int m_failingCall;
    std::function<void()> m_failure;
    int m_callCount = 0;
};
