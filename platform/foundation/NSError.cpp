#include "platform/foundation/NSError.h"

#include <fmt/format.h>

#include <system_error>
#include <utility>

NSError::NSError(std::string_view domain, int code, std::map<std::string, NSErrorValue> userInfo)
    : m_domain(domain)
    , m_code(code)
    , m_userInfo(std::move(userInfo))
{
}

NSError NSError::errorWithErrno(int errnoValue, std::string_view what)
{
    auto description = fmt::format("{}: {}", what, std::generic_category().message(errnoValue));
    return {
        NSPOSIXErrorDomain, errnoValue, {{std::string(NSLocalizedDescriptionKey), std::move(description)}}};
}

NSError NSError::errorWithCode(NSCocoaError code, std::string_view description)
{
    return {NSCocoaErrorDomain,
            static_cast<int>(code),
            {{std::string(NSLocalizedDescriptionKey), std::string(description)}}};
}

std::string NSError::localizedDescription() const
{
    const auto found = m_userInfo.find(std::string(NSLocalizedDescriptionKey));
    if (found != m_userInfo.end()) {
        if (const auto* text = std::get_if<std::string>(&found->second))
            return *text;
    }
    return fmt::format("{} error {}", m_domain, m_code);
}
