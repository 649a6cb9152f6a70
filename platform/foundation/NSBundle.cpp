#include "platform/foundation/NSBundle.h"

#include "platform/foundation/MessageCatalogue.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/Unicode.h"
#include "platform/foundation/UserLanguages.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace {

constexpr std::u16string_view kIdentifier = u"com.tessel.corvel";
constexpr std::string_view kVersion = CORVEL_VERSION;
constexpr const char* kShareVariable = "CORVEL_SHARE_DIR";

// A program lies in bin/, or in a folder of its own below lib/ or libexec/.
constexpr std::array kShareFolders = {"../share", "../../share"};

bool isShareFolder(const std::filesystem::path& path)
{
    std::error_code error;
    return std::filesystem::is_directory(path / "corvel", error)
        || std::filesystem::is_directory(path / "locale", error);
}

std::string sharePath()
{
    if (const char* named
        = std::getenv(kShareVariable)) // NOLINT(concurrency-mt-unsafe): nobody sets variables
        return named;
    std::error_code error;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) {
        NSLog("The program's resources cannot be found: /proc/self/exe: {}", error.message());
        return {};
    }
    const auto folder = executable.parent_path();
    for (const auto* share : kShareFolders) {
        const auto path = (folder / share).lexically_normal();
        if (isShareFolder(path))
            return path.native();
    }
    return (folder / kShareFolders.front()).lexically_normal().native();
}

std::string cataloguePath(const std::string& sharePath, const std::string& language)
{
    return sharePath + "/locale/" + language + "/LC_MESSAGES/corvel.mo";
}

} // namespace

const NSBundle& NSBundle::mainBundle()
{
    static const NSBundle bundle(sharePath(), userLanguages());
    return bundle;
}

NSBundle::NSBundle(std::string sharePath, const std::vector<std::string>& languages)
    : m_sharePath(std::move(sharePath))
{
    for (const auto& language : languages) {
        NSError error;
        const auto path = cataloguePath(m_sharePath, language);
        if (auto catalogue = MessageCatalogue::readFile(path, &error))
            m_catalogues.push_back(std::move(*catalogue));
        else if (error.domain() == NSCocoaErrorDomain)
            NSLog("No texts in the language {}: {}", language, error.localizedDescription());
    }
}

NSBundle::NSBundle(NSBundle&&) noexcept = default;

NSBundle::~NSBundle() = default;

std::u16string NSBundle::localizedStringForKey(std::u16string_view key) const
{
    for (const auto& catalogue : m_catalogues) {
        if (const auto* text = catalogue.translationOf(key))
            return *text;
    }
    return std::u16string(key);
}

std::optional<NSURL> NSBundle::URLForResource(std::string_view name, std::string_view withExtension) const
{
    auto path = m_sharePath + "/corvel/" + std::string(name);
    if (!withExtension.empty())
        path += "." + std::string(withExtension);
    std::error_code error;
    if (!std::filesystem::exists(path, error))
        return std::nullopt;
    return NSURL::fileURLWithPath(path);
}

NSAny NSBundle::objectForInfoDictionaryKey(std::u16string_view key) const
{
    if (key == u"CFBundleIdentifier")
        return kIdentifier;
    if (key == u"CFBundleShortVersionString")
        return UTF16FromUTF8(kVersion);
    return nullptr;
}
