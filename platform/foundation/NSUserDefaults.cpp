#include "platform/foundation/NSUserDefaults.h"

#include "platform/foundation/DefaultsFile.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/foundation/Unicode.h"

#include <fmt/format.h>

#include <atomic>
#include <cstdlib>

namespace {

std::string folderNamedBy(const char* variable)
{
    const char* value = std::getenv(variable); // NOLINT(concurrency-mt-unsafe): nobody sets variables
    return value && *value == '/' ? value : "";
}

std::string standardPath()
{
    auto folder = folderNamedBy("XDG_CONFIG_HOME");
    if (folder.empty()) {
        const auto home = folderNamedBy("HOME");
        if (home.empty())
            return {};
        folder = home + "/.config";
    }
    return folder + "/corvel/defaults.plist";
}

std::atomic<NSUserDefaults*>& replacement()
{
    static std::atomic<NSUserDefaults*> defaults = nullptr;
    return defaults;
}

std::u16string numberText(const NSAny& number)
{
    return UTF16FromUTF8(number.isReal() ? fmt::format("{}", number.doubleValue())
                                         : fmt::format("{}", number.integerValue()));
}

} // namespace

NSUserDefaults& NSUserDefaults::standardUserDefaults()
{
    if (auto* defaults = replacement().load())
        return *defaults;
    static NSUserDefaults defaults(standardPath());
    return defaults;
}

NSUserDefaults::NSUserDefaults(const std::string& path)
    : NSUserDefaults(path, FileOperations::system())
{
}

NSUserDefaults::NSUserDefaults(const std::string& path, FileOperations& operations)
    : m_file(std::make_unique<DefaultsFile>(path, operations))
{
}

NSUserDefaults::~NSUserDefaults() = default;

NSAny NSUserDefaults::objectForKey(std::u16string_view key) const
{
    const std::scoped_lock lock(m_mutex);
    const auto& stored = m_file->values();
    const auto changed = m_changes.find(key);
    if (changed != m_changes.end() && !changed->second.isNil())
        return changed->second;
    if (const auto found = stored.find(key); changed == m_changes.end() && found != stored.end())
        return found->second;
    const auto registered = m_registered.find(key);
    return registered == m_registered.end() ? NSAny() : registered->second;
}

std::optional<std::u16string> NSUserDefaults::stringForKey(std::u16string_view key) const
{
    const auto value = objectForKey(key);
    if (const auto* text = value.string())
        return *text;
    return value.isNumber() ? std::optional(numberText(value)) : std::nullopt;
}

std::optional<NSData> NSUserDefaults::dataForKey(std::u16string_view key) const
{
    const auto value = objectForKey(key);
    const auto* data = value.data();
    return data ? std::optional(*data) : std::nullopt;
}

std::optional<NSAny::Array> NSUserDefaults::arrayForKey(std::u16string_view key) const
{
    const auto value = objectForKey(key);
    const auto* array = value.array();
    return array ? std::optional(*array) : std::nullopt;
}

std::optional<NSAny::Dictionary> NSUserDefaults::dictionaryForKey(std::u16string_view key) const
{
    const auto value = objectForKey(key);
    const auto* dictionary = value.dictionary();
    return dictionary ? std::optional(*dictionary) : std::nullopt;
}

bool NSUserDefaults::boolForKey(std::u16string_view key) const
{
    return objectForKey(key).boolValue();
}

NSInteger NSUserDefaults::integerForKey(std::u16string_view key) const
{
    return objectForKey(key).integerValue();
}

double NSUserDefaults::doubleForKey(std::u16string_view key) const
{
    return objectForKey(key).doubleValue();
}

void NSUserDefaults::setObject(const NSAny& value, std::u16string_view key)
{
    // Found out by itself: a value that cannot be written would keep all others from being written.
    NSError error;
    if (!value.isNil()
        && !NSPropertyListSerialization::dataWithPropertyList(value, NSPropertyListFormat::Binary, &error)) {
        NSLog("The user default {} was not set: {}", UTF8FromUTF16(key), error.localizedDescription());
        return;
    }
    change(key, value);
}

void NSUserDefaults::removeObjectForKey(std::u16string_view key)
{
    change(key, nullptr);
}

void NSUserDefaults::change(std::u16string_view key, const NSAny& value)
{
    const std::scoped_lock lock(m_mutex);
    m_changes.insert_or_assign(std::u16string(key), value);
    NSError error;
    if (!writeChanges(&error))
        NSLog("The user default {} was not written: {}", UTF8FromUTF16(key), error.localizedDescription());
}

void NSUserDefaults::registerDefaults(const NSAny::Dictionary& defaults)
{
    const std::scoped_lock lock(m_mutex);
    for (const auto& [key, value] : defaults)
        m_registered.insert_or_assign(key, value);
}

bool NSUserDefaults::synchronize(NSError* error)
{
    const std::scoped_lock lock(m_mutex);
    return m_changes.empty() || writeChanges(error);
}

bool NSUserDefaults::writeChanges(NSError* error)
{
    if (!m_file->apply(m_changes, error))
        return false;
    m_changes.clear();
    return true;
}

NSUserDefaultsReplacement::NSUserDefaultsReplacement(NSUserDefaults& defaults)
{
    replacement() = &defaults;
}

NSUserDefaultsReplacement::~NSUserDefaultsReplacement()
{
    replacement() = nullptr;
}
