#include "platform/foundation/UserLocale.h"

#include <unicode/locid.h>

#include <string_view>

const std::string& userLocaleIdentifier()
{
    // What the library makes of "C"; its rules sort capitals before all small letters.
    static constexpr std::string_view kProgrammersLocale = "en_US_POSIX";
    static const std::string identifier = [] {
        const std::string name = icu::Locale::getDefault().getName();
        return name == kProgrammersLocale ? std::string() : name;
    }();
    return identifier;
}
