#include "platform/foundation/DefaultsFile.h"

#include "platform/foundation/FileLock.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/foundation/NSURL.h"
#include "platform/foundation/NSUUID.h"

#include <cerrno>
#include <chrono>
#include <sys/stat.h>
#include <utility>

namespace {

constexpr std::size_t kMaximumByteCount = std::size_t{64} << 20;
constexpr std::chrono::seconds kLockPatience{5};
constexpr std::int64_t kNanoseconds = 1'000'000'000;

} // namespace

DefaultsFile::DefaultsFile(std::string path, FileOperations& operations)
    : m_path(std::move(path))
    , m_operations(operations)
{
}

const NSAny::Dictionary& DefaultsFile::values()
{
    refresh();
    return m_values;
}

std::optional<DefaultsFile::Stamp> DefaultsFile::stampOf(const std::string& path)
{
    struct stat status { };

    if (::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return Stamp{status.st_dev, status.st_ino, status.st_size,
                 status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec,
                 status.st_ctim.tv_sec * kNanoseconds + status.st_ctim.tv_nsec};
}

void DefaultsFile::refresh()
{
    const auto stamp = stampOf(m_path);
    if (!stamp && (m_path.empty() || errno == ENOENT)) {
        m_state = State::Absent;
        m_stamp.reset();
        m_values.clear();
        return;
    }
    const bool isKnown = m_state != State::Absent && stamp == m_stamp;
    if (isKnown)
        return;
    // The stamp is older than what is read below, so that a change between the two is seen the next time.
    m_stamp = stamp;
    read();
}

void DefaultsFile::read()
{
    const auto file = FileDescriptor::openForReading(m_path);
    const auto bytes = file.isValid() ? ::readFile(file.get(), kMaximumByteCount) : std::nullopt;
    if (!bytes) {
        setUnusable(State::Unreadable, NSError::errorWithErrno(errno, m_path));
        return;
    }
    if (bytes->size() == kMaximumByteCount) {
        setUnusable(State::Unreadable, NSError::errorWithErrno(EFBIG, m_path));
        return;
    }
    take(*bytes);
}

void DefaultsFile::take(const std::string& bytes)
{
    NSError error;
    const auto list = NSPropertyListSerialization::propertyListWithData(bytes, &error);
    if (const auto* dictionary = list.dictionary()) {
        m_values = *dictionary;
        m_state = State::Sound;
        return;
    }
    const auto reason = list.isNil() ? error.localizedDescription() : "the property list is no dictionary";
    setUnusable(State::Damaged,
                NSError::errorWithCode(NSCocoaError::PropertyListReadCorrupt, m_path + ": " + reason));
}

void DefaultsFile::setUnusable(State state, NSError error)
{
    m_state = state;
    m_error = std::move(error);
    m_values.clear();
    NSLog("The user defaults are {} and taken for empty: {}",
          state == State::Damaged ? "damaged" : "unreadable", m_error.localizedDescription());
}

bool DefaultsFile::apply(const NSAny::Dictionary& changes, NSError* error)
{
    if (m_path.empty()) {
        setError(error,
                 NSError::errorWithErrno(ENOENT,
                                         "the configuration folder (neither XDG_CONFIG_HOME nor HOME is "
                                         "an absolute path)"));
        return false;
    }
    const auto folder = NSURL::fileURLWithPath(m_path).URLByDeletingLastPathComponent();
    if (!NSFileManager::createDirectoryAtURL(folder, true, error))
        return false;
    const auto lock = lockFile(m_path + ".lock", kLockPatience, error);
    return lock.isValid() && writeLocked(changes, error);
}

bool DefaultsFile::writeLocked(const NSAny::Dictionary& changes, NSError* error)
{
    refresh();
    if (m_state == State::Unreadable) {
        setError(error, m_error);
        return false;
    }
    auto values = m_values;
    bool isChanged = false;
    for (const auto& [key, value] : changes) {
        isChanged = !value.isNil() || values.contains(key) || isChanged;
        if (value.isNil())
            values.erase(key);
        else
            values.insert_or_assign(key, value);
    }
    if (!isChanged)
        return true;
    const auto data
        = NSPropertyListSerialization::dataWithPropertyList(values, NSPropertyListFormat::Binary, error);
    if (!data || (m_state == State::Damaged && !keepDamagedFile(error))
        || !writeFileAtomically(data->bytes, m_path, m_operations, error))
        return false;
    m_stamp = stampOf(m_path);
    m_state = State::Sound;
    m_values = std::move(values);
    return true;
}

bool DefaultsFile::keepDamagedFile(NSError* error)
{
    const auto kept = m_path + ".damaged-" + NSUUID::UUIDString();
    if (!m_operations.rename(m_path, kept)) {
        setError(error, NSError::errorWithErrno(errno, kept));
        return false;
    }
    NSLog("The damaged user defaults are kept as {}", kept);
    return true;
}
