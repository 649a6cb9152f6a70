#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSURL.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class MessageCatalogue;

/// What belongs to a program beside its code: localised texts and resource files. They lie in a folder
/// `share` beside the folder of the executable, or one higher up, in a build tree as where it is installed:
///
///     share/locale/LANGUAGE/LC_MESSAGES/corvel.mo    localised texts, as msgfmt writes them
///     share/corvel/NAME.EXTENSION                    resource files
///
/// The environment variable CORVEL_SHARE_DIR names a folder to use in place of that one.
///
/// May be used from any thread. The languages are those that the environment names (`userLanguages`) when the
/// bundle is made; the program's locale plays no part, so no locale need be installed or set.
class NSBundle {
public:
    /// The running program's bundle, made on first use.
    [[nodiscard]] static const NSBundle& mainBundle();

    /// The bundle with this `share` folder, in the first of `languages` for each text that has it.
    NSBundle(std::string sharePath, const std::vector<std::string>& languages);
    NSBundle(NSBundle&&) noexcept;
    NSBundle(const NSBundle&) = delete;
    NSBundle& operator=(NSBundle&&) = delete;
    NSBundle& operator=(const NSBundle&) = delete;
    ~NSBundle();

    /// The text in the user's language. The key is the English text, and the answer when there is no
    /// translation.
    [[nodiscard]] std::u16string localizedStringForKey(std::u16string_view key) const;

    /// The resource file of this name and extension (without a dot; empty for none). None when there is no
    /// such file.
    [[nodiscard]] std::optional<NSURL> URLForResource(std::string_view name,
                                                      std::string_view withExtension) const;

    /// "CFBundleIdentifier" and "CFBundleShortVersionString" give texts; nil for every other key.
    [[nodiscard]] NSAny objectForInfoDictionaryKey(std::u16string_view key) const;

private:
    std::string m_sharePath;
    std::vector<MessageCatalogue> m_catalogues;
};
