#pragma once

#include "platform/foundation/NSError.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

/// The translations of one language, read whole from a binary message catalogue (.mo) as gettext's msgfmt
/// writes it. Read here and not through the C library's gettext, which finds no catalogue unless the system
/// has a locale of the language, and which belongs to the whole process.
///
/// The text must be UTF-8. Plural forms and contexts are not used: a message is found by its key alone.
class MessageCatalogue {
public:
    /// None with the reason in `error`: NSPOSIXErrorDomain when the file cannot be read, FileReadCorruptFile
    /// of NSCocoaErrorDomain when it is no catalogue.
    [[nodiscard]] static std::optional<MessageCatalogue> readFile(const std::string& path,
                                                                  NSError* error = nullptr);

    /// None when the bytes are no catalogue: numbers that do not fit, texts that are no UTF-8 or are said to
    /// be of another encoding.
    [[nodiscard]] static std::optional<MessageCatalogue> readBytes(std::string_view bytes);

    /// Null when there is none.
    [[nodiscard]] const std::u16string* translationOf(std::u16string_view key) const;

    [[nodiscard]] const std::map<std::u16string, std::u16string, std::less<>>& translations() const
    {
        return m_translations;
    }

private:
    std::map<std::u16string, std::u16string, std::less<>> m_translations;
};
