#include "platform/xpc/NSXPCDecoder.h"

#include <systemd/sd-bus.h>

#include <cerrno>
#include <memory>
#include <utility>

void NSXPCDecoder::note(int result)
{
    if (m_result == 0 && result < 0)
        m_result = result;
}

bool NSXPCDecoder::enter(char type, const char* contents)
{
    if (m_result != 0)
        return false;
    const int result = sd_bus_message_enter_container(m_message, type, contents);
    note(result);
    return result > 0;
}

void NSXPCDecoder::exit()
{
    if (m_result == 0)
        note(sd_bus_message_exit_container(m_message));
}

void NSXPCDecoder::countEntry(std::size_t& count, std::size_t maximum)
{
    if (++count > maximum)
        note(-E2BIG);
}

std::string_view NSXPCDecoder::decodeString()
{
    const char* text = nullptr;
    if (m_result == 0) {
        const int result = sd_bus_message_read_basic(m_message, SD_BUS_TYPE_STRING, &text);
        note(result == 0 ? -ENXIO : result);
    }
    return m_result == 0 && text ? std::string_view(text) : std::string_view();
}

int NSXPCDecoder::decodeInteger()
{
    std::int32_t value = 0;
    if (m_result == 0)
        note(sd_bus_message_read_basic(m_message, SD_BUS_TYPE_INT32, &value));
    return m_result == 0 ? value : 0;
}

std::string_view NSXPCDecoder::decodeData()
{
    const void* bytes = nullptr;
    std::size_t byteCount = 0;
    if (m_result == 0)
        note(sd_bus_message_read_array(m_message, SD_BUS_TYPE_BYTE, &bytes, &byteCount));
    if (m_result != 0 || byteCount == 0)
        return {};
    return {static_cast<const char*>(bytes), byteCount};
}

std::vector<std::string_view> NSXPCDecoder::decodeStrings()
{
    std::vector<std::string_view> texts;
    if (!enter(SD_BUS_TYPE_ARRAY, "s"))
        return texts;
    while (m_result == 0 && sd_bus_message_at_end(m_message, 0) == 0) {
        countEntry(m_listEntryCount, kMaximumListEntryCount);
        texts.push_back(decodeString());
    }
    exit();
    return texts;
}

std::string_view NSXPCDecoder::variantType()
{
    char type = 0;
    const char* contents = nullptr;
    if (m_result == 0)
        note(sd_bus_message_peek_type(m_message, &type, &contents));
    return m_result == 0 && type == SD_BUS_TYPE_VARIANT && contents ? std::string_view(contents)
                                                                    : std::string_view();
}

void NSXPCDecoder::skipValue()
{
    if (m_result == 0)
        note(sd_bus_message_skip(m_message, "v"));
}

std::map<std::string, std::string> NSXPCDecoder::decodeTexts()
{
    std::map<std::string, std::string> texts;
    if (!enter(SD_BUS_TYPE_ARRAY, "{sv}"))
        return texts;
    while (enter(SD_BUS_TYPE_DICT_ENTRY, "sv")) {
        countEntry(m_dictionaryEntryCount, kMaximumDictionaryEntryCount);
        std::string key(decodeString());
        if (variantType() == "s" && enter(SD_BUS_TYPE_VARIANT, "s")) {
            texts.insert_or_assign(std::move(key), std::string(decodeString()));
            exit();
        } else {
            skipValue();
        }
        exit();
    }
    exit();
    return texts;
}

NSXPCStringDictionaries NSXPCDecoder::decodeStringDictionaries()
{
    NSXPCStringDictionaries dictionaries;
    if (!enter(SD_BUS_TYPE_ARRAY, "{sa{sv}}"))
        return dictionaries;
    while (enter(SD_BUS_TYPE_DICT_ENTRY, "sa{sv}")) {
        countEntry(m_dictionaryEntryCount, kMaximumDictionaryEntryCount);
        std::string name(decodeString());
        dictionaries.insert_or_assign(std::move(name), decodeTexts());
        exit();
    }
    exit();
    return dictionaries;
}

NSXPCDictionary NSXPCDecoder::decodeDictionary()
{
    return decodeDictionary(0);
}

NSXPCDictionary NSXPCDecoder::decodeDictionary(unsigned depth)
{
    NSXPCDictionary dictionary;
    if (!enter(SD_BUS_TYPE_ARRAY, "{sv}"))
        return dictionary;
    while (enter(SD_BUS_TYPE_DICT_ENTRY, "sv")) {
        countEntry(m_dictionaryEntryCount, kMaximumDictionaryEntryCount);
        std::string key(decodeString());
        decodeValue(dictionary, std::move(key), depth);
        exit();
    }
    exit();
    return dictionary;
}

void NSXPCDecoder::decodeValue(NSXPCDictionary& dictionary, std::string key, unsigned depth)
{
    const auto type = variantType();
    if (type == "s" && enter(SD_BUS_TYPE_VARIANT, "s")) {
        dictionary.insert_or_assign(std::move(key), std::string(decodeString()));
        exit();
    } else if (type == "a{sv}" && depth < kMaximumErrorDepth && enter(SD_BUS_TYPE_VARIANT, "a{sv}")) {
        dictionary.insert_or_assign(std::move(key), std::make_shared<const NSError>(decodeError(depth + 1)));
        exit();
    } else {
        skipValue();
    }
}

NSError NSXPCDecoder::decodeError(unsigned depth)
{
    std::string domain;
    int code = 0;
    NSXPCDictionary userInfo;
    if (!enter(SD_BUS_TYPE_ARRAY, "{sv}"))
        return {};
    while (enter(SD_BUS_TYPE_DICT_ENTRY, "sv")) {
        const std::string key(decodeString());
        const std::string type(variantType());
        const bool isKnown = (key == "domain" && type == "s") || (key == "code" && type == "i")
            || (key == "userInfo" && type == "a{sv}");
        if (!isKnown || !enter(SD_BUS_TYPE_VARIANT, type.c_str())) {
            skipValue();
        } else {
            if (key == "domain")
                domain = decodeString();
            else if (key == "code")
                code = decodeInteger();
            else
                userInfo = decodeDictionary(depth);
            exit();
        }
        exit();
    }
    exit();
    return {domain, code, std::move(userInfo)};
}
