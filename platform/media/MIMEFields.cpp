#include "platform/media/MIMEFields.h"

#include "platform/foundation/TextEncoding.h"
#include "platform/foundation/Unicode.h"
#include "platform/media/EncodedWords.h"

#include <gmime/gmime.h>

#include <algorithm>
#include <array>
#include <memory>

namespace {

constexpr std::size_t kFieldByteCount = std::size_t{64} << 10;
constexpr std::size_t kChunkByteCount = std::size_t{64} << 10;

struct GFree {
    void operator()(char* text) const { g_free(text); }
};

struct GObjectUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};

using GLibText = std::unique_ptr<char, GFree>;
template <typename Object> using GLibObject = std::unique_ptr<Object, GObjectUnref>;

/// The library has tables to fill before it is used.
void ensureLibraryIsReady()
{
    static const bool isReady = [] {
        g_mime_init();
        return true;
    }();
    (void)isReady; // Only its making counts.
}

std::string textOf(const char* text)
{
    return text ? validUTF8(text) : std::string();
}

/// The value on one line, as UTF-8, for a library that takes C strings.
std::string preparedValue(std::string_view value)
{
    ensureLibraryIsReady();
    auto text = decodedText(value.substr(0, kFieldByteCount));
    std::erase_if(text, [](char byte) { return byte == '\r' || byte == '\n'; });
    std::replace(text.begin(), text.end(), '\0', ' ');
    return text;
}

/// The value with every backslash doubled that escapes neither a quote nor itself: it stands in a path.
std::string preparedParameters(std::string_view value)
{
    const auto text = unifiedEncodedWords(preparedValue(value));
    std::string prepared;
    for (std::size_t index = 0; index < text.size(); ++index) {
        prepared += text[index];
        if (text[index] != '\\')
            continue;
        const bool isEscape = index + 1 < text.size() && (text[index + 1] == '"' || text[index + 1] == '\\');
        prepared += isEscape ? text[++index] : '\\';
    }
    return prepared;
}

std::string inLowerCase(std::string text)
{
    for (char& byte : text) {
        if (byte >= 'A' && byte <= 'Z')
            byte = static_cast<char>(byte - 'A' + 'a');
    }
    return text;
}

std::string trimmed(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    const auto start = text.find_first_not_of(kBlanks);
    if (start == std::string_view::npos)
        return {};
    return std::string(text.substr(start, text.find_last_not_of(kBlanks) - start + 1));
}

void addMailbox(InternetAddress* address, std::vector<MIMEMailbox>& mailboxes)
{
    if (!INTERNET_ADDRESS_IS_MAILBOX(address))
        return;
    const auto* const text = internet_address_mailbox_get_addr(INTERNET_ADDRESS_MAILBOX(address));
    mailboxes.push_back({trimmed(textOf(internet_address_get_name(address))), trimmed(textOf(text))});
}

// Groups hold mailboxes; the library lets them hold groups as well, to any depth.
void addMailboxes(InternetAddressList* list, std::vector<MIMEMailbox>& mailboxes, std::size_t depth = 0)
{
    constexpr std::size_t kGroupDepth = 4;
    for (int index = 0; list && index < internet_address_list_length(list); ++index) {
        auto* const address = internet_address_list_get_address(list, index);
        addMailbox(address, mailboxes);
        if (INTERNET_ADDRESS_IS_GROUP(address) && depth < kGroupDepth)
            addMailboxes(internet_address_group_get_members(INTERNET_ADDRESS_GROUP(address)), mailboxes,
                         depth + 1);
    }
}

/// Takes whole addresses off the start of a list, about a kilobyte of them: the library's time grows with the
/// square of their number, its stack with what is nested.
std::string takeAddresses(std::string_view& list)
{
    constexpr std::size_t kEnoughByteCount = 1024;
    constexpr std::size_t kMaximumByteCount = 4096;
    bool isQuoted = false;
    std::size_t length = 0;
    while (length < std::min(list.size(), kMaximumByteCount)) {
        const char byte = list[length++];
        if (byte == '\\')
            ++length;
        else if (byte == '"')
            isQuoted = !isQuoted;
        else if (length >= kEnoughByteCount && !isQuoted && (byte == ',' || byte == ';'))
            break;
    }
    std::string taken(list.substr(0, length));
    list.remove_prefix(taken.size());
    return taken;
}

GMimeContentEncoding encodingNamed(std::string_view name)
{
    return g_mime_content_encoding_from_string(inLowerCase(trimmed(name.substr(0, kFieldByteCount))).c_str());
}

bool isEncoded(GMimeContentEncoding encoding)
{
    return encoding == GMIME_CONTENT_ENCODING_BASE64 || encoding == GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE
        || encoding == GMIME_CONTENT_ENCODING_UUENCODE;
}

} // namespace

std::string decodedFieldText(std::string_view value)
{
    return trimmed(validUTF8(decodedEncodedWords(preparedValue(value))));
}

std::vector<MIMEMailbox> mailboxesInField(std::string_view value)
{
    const auto prepared = unifiedEncodedWords(preparedValue(value));
    std::vector<MIMEMailbox> mailboxes;
    for (std::string_view rest = prepared; !rest.empty();) {
        const auto addresses = takeAddresses(rest);
        const GLibObject<InternetAddressList> list(internet_address_list_parse(nullptr, addresses.c_str()));
        addMailboxes(list.get(), mailboxes);
    }
    return mailboxes;
}

std::optional<MIMEContentType> contentTypeInField(std::string_view value)
{
    const auto prepared = preparedParameters(value);
    // The library makes "application/octet-stream" of a value that names no type.
    if (prepared.substr(0, prepared.find(';')).find('/') == std::string::npos)
        return std::nullopt;
    const GLibObject<GMimeContentType> type(g_mime_content_type_parse(nullptr, prepared.c_str()));
    const GLibText mimeType(type ? g_mime_content_type_get_mime_type(type.get()) : nullptr);
    if (!mimeType)
        return std::nullopt;
    const auto parameter = [&type](const char* name) {
        return trimmed(textOf(g_mime_content_type_get_parameter(type.get(), name)));
    };
    return MIMEContentType{.mimeType = inLowerCase(textOf(mimeType.get())),
                           .boundary = parameter("boundary"),
                           .charset = parameter("charset"),
                           .name = parameter("name"),
                           .isFlowed = inLowerCase(parameter("format")) == "flowed",
                           .deletesSpace = inLowerCase(parameter("delsp")) == "yes"};
}

MIMEDisposition dispositionInField(std::string_view value)
{
    const auto prepared = preparedParameters(value);
    const GLibObject<GMimeContentDisposition> disposition(
        g_mime_content_disposition_parse(nullptr, prepared.c_str()));
    if (!disposition)
        return {};
    return {g_mime_content_disposition_is_attachment(disposition.get()) != FALSE,
            trimmed(textOf(g_mime_content_disposition_get_parameter(disposition.get(), "filename")))};
}

bool isEncodedForTransfer(std::string_view encoding)
{
    return isEncoded(encodingNamed(encoding));
}

std::string decodedTransferBytes(std::string_view bytes, std::string_view encoding,
                                 std::size_t maximumByteCount)
{
    const auto known = encodingNamed(encoding);
    if (!isEncoded(known))
        return std::string(bytes.substr(0, maximumByteCount));
    GMimeEncoding state{};
    g_mime_encoding_init_decode(&state, known);
    std::string decoded;
    std::string buffer;
    while (!bytes.empty() && decoded.size() < maximumByteCount) {
        const auto chunk = bytes.substr(0, kChunkByteCount);
        bytes.remove_prefix(chunk.size());
        buffer.resize(g_mime_encoding_outlen(&state, chunk.size()));
        const auto byteCount = bytes.empty()
            ? g_mime_encoding_flush(&state, chunk.data(), chunk.size(), buffer.data())
            : g_mime_encoding_step(&state, chunk.data(), chunk.size(), buffer.data());
        decoded.append(buffer, 0, byteCount);
    }
    decoded.resize(std::min(decoded.size(), maximumByteCount));
    return decoded;
}
