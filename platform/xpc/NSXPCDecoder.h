#pragma once

#include "platform/xpc/NSXPCDictionary.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

struct sd_bus_message;

/// Takes the values out of a message, in the order of its signature. The first failure sticks; what is read
/// after it is empty. Views point into the message and live as long as it does.
class NSXPCDecoder {
public:
    /// The most entries that all dictionaries of a message, and all its lists, may have together; a message
    /// with more is refused with E2BIG, as its values would take many times the space of its bytes.
    static constexpr std::size_t kMaximumDictionaryEntryCount = 250'000;
    static constexpr std::size_t kMaximumListEntryCount = 4'000'000;

    /// `message` is borrowed.
    explicit NSXPCDecoder(sd_bus_message* message)
        : m_message(message)
    {
    }

    [[nodiscard]] std::string_view decodeString();
    [[nodiscard]] std::string_view decodeData();
    [[nodiscard]] std::vector<std::string_view> decodeStrings();
    /// Values that are no texts are left out; their dictionary stays, if need be empty.
    [[nodiscard]] NSXPCStringDictionaries decodeStringDictionaries();
    /// Values of other types than texts and errors are left out, and so are errors deeper than 8.
    [[nodiscard]] NSXPCDictionary decodeDictionary();

    /// 0, or the negative errno of what went wrong.
    [[nodiscard]] int result() const { return m_result; }

    [[nodiscard]] bool isGood() const { return m_result == 0; }

private:
    [[nodiscard]] NSXPCDictionary decodeDictionary(unsigned depth);
    [[nodiscard]] std::map<std::string, std::string> decodeTexts();
    void decodeValue(NSXPCDictionary& dictionary, std::string key, unsigned depth);
    [[nodiscard]] NSError decodeError(unsigned depth);
    [[nodiscard]] int decodeInteger();
    /// The type of the variant that is next; empty after a failure.
    [[nodiscard]] std::string_view variantType();
    void skipValue();
    /// Whether there was another container of this kind to enter; false at the end and after a failure.
    [[nodiscard]] bool enter(char type, const char* contents);
    void exit();
    void countEntry(std::size_t& count, std::size_t maximum);
    void note(int result);

    sd_bus_message* m_message;
    std::size_t m_dictionaryEntryCount = 0;
    std::size_t m_listEntryCount = 0;
    int m_result = 0;
};
