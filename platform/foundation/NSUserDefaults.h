#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"
#include "platform/foundation/NSRange.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

class DefaultsFile;
class FileOperations;

/// The user's settings: values under keys, kept in one property-list file that all programs of the user
/// share. Values are those of property lists: booleans, numbers, texts, data, dates, arrays and dictionaries.
///
/// A read sees what any process has written: the file is looked at each time and read again when it changed,
/// which costs a system call. A value that is set is written before the call returns, together with what
/// other processes set meanwhile; no key of theirs is lost. A write that fails is logged, the value is kept
/// in memory and read from there, and the next write or `synchronize` tries again.
///
/// A damaged file is logged and taken for empty; the first write keeps it beside the new one, under its name
/// with ".damaged-" and an identifier.
///
/// May be used from any thread.
class NSUserDefaults {
public:
    /// $XDG_CONFIG_HOME/corvel/defaults.plist, where an unset, empty or relative XDG_CONFIG_HOME stands for
    /// ~/.config.
    [[nodiscard]] static NSUserDefaults& standardUserDefaults();

    /// The defaults in a file of one's own. The file and its folders are made when something is set.
    explicit NSUserDefaults(const std::string& path);
    /// The same with file-system calls that outlive the object.
    NSUserDefaults(const std::string& path, FileOperations& operations);
    NSUserDefaults(const NSUserDefaults&) = delete;
    NSUserDefaults& operator=(const NSUserDefaults&) = delete;
    ~NSUserDefaults();

    /// The value that was set, else the registered one, else nil.
    [[nodiscard]] NSAny objectForKey(std::u16string_view key) const;
    /// A text; a number as a text. None for other kinds and for no value.
    [[nodiscard]] std::optional<std::u16string> stringForKey(std::u16string_view key) const;
    [[nodiscard]] std::optional<NSData> dataForKey(std::u16string_view key) const;
    [[nodiscard]] std::optional<NSAny::Array> arrayForKey(std::u16string_view key) const;
    [[nodiscard]] std::optional<NSAny::Dictionary> dictionaryForKey(std::u16string_view key) const;
    /// As NSAny reads values: false, 0 and 0.0 when there is none.
    [[nodiscard]] bool boolForKey(std::u16string_view key) const;
    [[nodiscard]] NSInteger integerForKey(std::u16string_view key) const;
    [[nodiscard]] double doubleForKey(std::u16string_view key) const;

    /// Nil removes the key. What is no property-list value is logged and not set.
    void setObject(const NSAny& value, std::u16string_view key);
    void removeObjectForKey(std::u16string_view key);

    /// Values for keys that are not set. They are kept in this object only; a key registered again has the
    /// later value.
    void registerDefaults(const NSAny::Dictionary& defaults);

    /// Whether everything that was set is in the file; tries to write what is not. The reason in `error`
    /// when not.
    [[nodiscard]] bool synchronize(NSError* error = nullptr);

private:
    void change(std::u16string_view key, const NSAny& value);
    [[nodiscard]] bool writeChanges(NSError* error);

    mutable std::mutex m_mutex;
    std::unique_ptr<DefaultsFile> m_file;
    /// What was set and could not be written yet; nil stands for a removal.
    NSAny::Dictionary m_changes;
    NSAny::Dictionary m_registered;
};

/// While it lives, `standardUserDefaults` is the given one, which must live longer. For tests and for
/// programs that are told to use another file. One at a time; not for use while other threads read or write
/// defaults.
class NSUserDefaultsReplacement {
public:
    explicit NSUserDefaultsReplacement(NSUserDefaults& defaults);
    NSUserDefaultsReplacement(const NSUserDefaultsReplacement&) = delete;
    NSUserDefaultsReplacement& operator=(const NSUserDefaultsReplacement&) = delete;
    ~NSUserDefaultsReplacement();
};
