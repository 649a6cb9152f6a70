#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

class NSError;

/// A value of an error's user info: a text or another error.
using NSErrorValue = std::variant<std::string, std::shared_ptr<const NSError>>;

inline constexpr std::string_view NSUnderlyingErrorKey = "NSUnderlyingError";
inline constexpr std::string_view NSLocalizedDescriptionKey = "NSLocalizedDescription";
inline constexpr std::string_view NSPOSIXErrorDomain = "NSPOSIXErrorDomain";
inline constexpr std::string_view NSCocoaErrorDomain = "NSCocoaErrorDomain";

/// Codes of NSCocoaErrorDomain that this library raises.
enum class NSCocoaError : int {
    FileReadUnknown = 256,
    FileReadNoSuchFile = 260,
    FileReadCorruptFile = 259,
    FileReadTooLarge = 263,
    FileReadUnknownStringEncoding = 264,
    FileWriteInapplicableStringEncoding = 517,
    PropertyListReadCorrupt = 3840,
    PropertyListWriteInvalid = 3851,
    CoderReadCorrupt = 4864,
    CoderValueNotFound = 4865,
};

/// An error as a value: a domain, a code within it, and optional user info. All texts are UTF-8.
class NSError {
public:
    NSError() = default;
    NSError(std::string_view domain, int code, std::map<std::string, NSErrorValue> userInfo = {});

    /// The error for an errno value; its description names `what` failed and the system's reason.
    [[nodiscard]] static NSError errorWithErrno(int errnoValue, std::string_view what);
    [[nodiscard]] static NSError errorWithCode(NSCocoaError code, std::string_view description);

    [[nodiscard]] const std::string& domain() const { return m_domain; }

    [[nodiscard]] int code() const { return m_code; }

    [[nodiscard]] const std::map<std::string, NSErrorValue>& userInfo() const { return m_userInfo; }

    /// The text under NSLocalizedDescriptionKey, else the domain and the code.
    [[nodiscard]] std::string localizedDescription() const;

private:
    std::string m_domain;
    int m_code = 0;
    std::map<std::string, NSErrorValue> m_userInfo;
};

/// Stores `value` in an error slot that may be absent.
inline void setError(NSError* error, NSError value)
{
    if (error)
        *error = std::move(value);
}
