#pragma once

#include "platform/xpc/NSXPCDictionary.h"

#include <string>
#include <string_view>
#include <vector>

struct sd_bus_message;

/// Appends values to a message, in the order of its signature. The first failure sticks and makes the rest do
/// nothing. Texts are written as valid UTF-8 without NULs: what cannot be sent as it is gets replaced by
/// U+FFFD.
class NSXPCEncoder {
public:
    /// `message` is borrowed.
    explicit NSXPCEncoder(sd_bus_message* message)
        : m_message(message)
    {
    }

    void encodeString(std::string_view text);
    void encodeData(std::string_view bytes);
    void encodeStrings(const std::vector<std::string>& texts);
    void encodeStringDictionaries(const NSXPCStringDictionaries& dictionaries);
    /// Errors within errors are written to a depth of 8; what lies deeper is left out.
    void encodeDictionary(const NSXPCDictionary& dictionary);

    /// 0, or the negative errno of what went wrong.
    [[nodiscard]] int result() const { return m_result; }

private:
    void encodeDictionary(const NSXPCDictionary& dictionary, unsigned depth);
    void encodeValue(const NSErrorValue& value, unsigned depth);
    void encodeError(const NSError& error, unsigned depth);
    void encodeTextEntry(std::string_view key, std::string_view text);
    void open(char type, const char* contents);
    void close();
    void note(int result);

    sd_bus_message* m_message;
    int m_result = 0;
};
