#include "platform/xpc/NSXPCEncoder.h"

#include "platform/foundation/Unicode.h"

#include <systemd/sd-bus.h>

#include <algorithm>

namespace {

// The wire's strings end at a NUL.
std::string wireText(std::string_view text)
{
    std::string clean = validUTF8(text);
    for (auto nul = clean.find('\0'); nul != std::string::npos; nul = clean.find('\0', nul))
        clean.replace(nul, 1, "\xEF\xBF\xBD");
    return clean;
}

} // namespace

void NSXPCEncoder::note(int result)
{
    if (m_result == 0)
        m_result = std::min(result, 0);
}

void NSXPCEncoder::open(char type, const char* contents)
{
    if (m_result == 0)
        note(sd_bus_message_open_container(m_message, type, contents));
}

void NSXPCEncoder::close()
{
    if (m_result == 0)
        note(sd_bus_message_close_container(m_message));
}

void NSXPCEncoder::encodeString(std::string_view text)
{
    if (m_result == 0)
        note(sd_bus_message_append_basic(m_message, SD_BUS_TYPE_STRING, wireText(text).c_str()));
}

void NSXPCEncoder::encodeData(std::string_view bytes)
{
    if (m_result == 0)
        note(sd_bus_message_append_array(m_message, SD_BUS_TYPE_BYTE, bytes.data(), bytes.size()));
}

void NSXPCEncoder::encodeStrings(const std::vector<std::string>& texts)
{
    open(SD_BUS_TYPE_ARRAY, "s");
    for (const auto& text : texts)
        encodeString(text);
    close();
}

void NSXPCEncoder::encodeStringDictionaries(const NSXPCStringDictionaries& dictionaries)
{
    open(SD_BUS_TYPE_ARRAY, "{sa{sv}}");
    for (const auto& [name, texts] : dictionaries) {
        open(SD_BUS_TYPE_DICT_ENTRY, "sa{sv}");
        encodeString(name);
        open(SD_BUS_TYPE_ARRAY, "{sv}");
        for (const auto& [key, text] : texts)
            encodeTextEntry(key, text);
        close();
        close();
    }
    close();
}

void NSXPCEncoder::encodeTextEntry(std::string_view key, std::string_view text)
{
    open(SD_BUS_TYPE_DICT_ENTRY, "sv");
    encodeString(key);
    open(SD_BUS_TYPE_VARIANT, "s");
    encodeString(text);
    close();
    close();
}

void NSXPCEncoder::encodeDictionary(const NSXPCDictionary& dictionary)
{
    encodeDictionary(dictionary, 0);
}

void NSXPCEncoder::encodeDictionary(const NSXPCDictionary& dictionary, unsigned depth)
{
    open(SD_BUS_TYPE_ARRAY, "{sv}");
    for (const auto& [key, value] : dictionary) {
        const auto* error = std::get_if<std::shared_ptr<const NSError>>(&value);
        if (error && (!*error || depth >= kMaximumErrorDepth))
            continue;
        open(SD_BUS_TYPE_DICT_ENTRY, "sv");
        encodeString(key);
        encodeValue(value, depth);
        close();
    }
    close();
}

void NSXPCEncoder::encodeValue(const NSErrorValue& value, unsigned depth)
{
    if (const auto* error = std::get_if<std::shared_ptr<const NSError>>(&value)) {
        open(SD_BUS_TYPE_VARIANT, "a{sv}");
        encodeError(**error, depth + 1);
    } else {
        open(SD_BUS_TYPE_VARIANT, "s");
        encodeString(std::get<std::string>(value));
    }
    close();
}

void NSXPCEncoder::encodeError(const NSError& error, unsigned depth)
{
    open(SD_BUS_TYPE_ARRAY, "{sv}");
    encodeTextEntry("domain", error.domain());
    open(SD_BUS_TYPE_DICT_ENTRY, "sv");
    encodeString("code");
    if (m_result == 0)
        note(sd_bus_message_append(m_message, "v", "i", error.code()));
    close();
    open(SD_BUS_TYPE_DICT_ENTRY, "sv");
    encodeString("userInfo");
    open(SD_BUS_TYPE_VARIANT, "a{sv}");
    encodeDictionary(error.userInfo(), depth);
    close();
    close();
    close();
}
