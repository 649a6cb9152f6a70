#include "platform/foundation/TextDecoder.h"

#include "platform/foundation/Unicode.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace {

constexpr std::size_t kLongestCharsetName = 60;
constexpr std::size_t kPivotLength = 4096;
constexpr std::size_t kOutputLength = 16384;

struct CharsetAlias {
    std::string_view name;
    std::string_view meaning;
};

// Keys hold letters and digits only. Narrow names stand for the wider encoding that is really used under
// them; an empty meaning is a name that says nothing.
constexpr auto kCharsetAliases = std::to_array<CharsetAlias>({
    {"8bit", ""},
    {"ansix341968", "windows-1252"},
    {"ascii", "windows-1252"},
    {"big5", "windows-950"},
    {"binary", ""},
    {"cp874", "windows-874"},
    {"cp932", "windows-31j"},
    {"cp936", "gb18030"},
    {"cp949", "windows-949"},
    {"cp950", "windows-950"},
    {"default", ""},
    {"euccn", "gb18030"},
    {"euckr", "windows-949"},
    {"gb2312", "gb18030"},
    {"gb231280", "gb18030"},
    {"gbk", "gb18030"},
    {"isoir149", "windows-949"},
    {"iso88591", "windows-1252"},
    {"iso885911", "windows-874"},
    {"iso88598e", "iso-8859-8"},
    {"iso88598i", "iso-8859-8"},
    {"iso88599", "windows-1254"},
    {"koi8", "koi8-r"},
    {"korean", "windows-949"},
    {"ksc5601", "windows-949"},
    {"ksc56011987", "windows-949"},
    {"ksc56011989", "windows-949"},
    {"latin1", "windows-1252"},
    {"latin5", "windows-1254"},
    {"macroman", "macintosh"},
    {"mskanji", "windows-31j"},
    {"none", ""},
    {"shiftjis", "windows-31j"},
    {"sjis", "windows-31j"},
    {"tis620", "windows-874"},
    {"uhc", "windows-949"},
    {"unicode", "utf-16"},
    {"unicode11utf7", "utf-7"},
    {"unicode11utf8", "utf-8"},
    {"unknown", ""},
    {"unknown8bit", ""},
    {"usascii", "windows-1252"},
    {"utf8mb4", "utf-8"},
    {"win1250", "windows-1250"},
    {"win1251", "windows-1251"},
    {"win1252", "windows-1252"},
    {"xbig5", "windows-950"},
    {"xeuckr", "windows-949"},
    {"xgbk", "gb18030"},
    {"xmaccyrillic", "x-mac-cyrillic"},
    {"xmacroman", "macintosh"},
    {"xsjis", "windows-31j"},
    {"xunknown", ""},
    {"xuserdefined", ""},
    {"xwindows949", "windows-949"},
});

// A name goes to the library as a key to look up and, unchecked, as an option string or a file's name.
bool isHarmlessCharsetName(std::string_view name)
{
    return !name.empty() && name.size() <= kLongestCharsetName
        && std::all_of(name.begin(), name.end(), [](char byte) {
               return std::isalnum(static_cast<unsigned char>(byte)) != 0 || byte == '-' || byte == '_'
                   || byte == ':' || byte == '.';
           });
}

std::string_view trimmed(std::string_view name)
{
    constexpr std::string_view kDecoration = " \t\r\n\"';";
    const auto first = name.find_first_not_of(kDecoration);
    if (first == std::string_view::npos)
        return {};
    return name.substr(first, name.find_last_not_of(kDecoration) - first + 1);
}

std::string lettersAndDigits(std::string_view name)
{
    std::string key;
    for (const char byte : name) {
        if (std::isalnum(static_cast<unsigned char>(byte)) != 0)
            key += static_cast<char>(std::tolower(static_cast<unsigned char>(byte)));
    }
    return key;
}

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};

// The library's own substitute for a single byte is a control character in some encodings.
void U_CALLCONV writeReplacement(const void*, UConverterToUnicodeArgs* arguments, const char*, int32_t,
                                 UConverterCallbackReason reason, UErrorCode* status)
{
    if (reason > UCNV_IRREGULAR)
        return;
    *status = U_ZERO_ERROR;
    const UChar replacement = kReplacementCharacter;
    ucnv_cbToUWriteUChars(arguments, &replacement, 1, 0, status);
}

using ConverterHandle = std::unique_ptr<UConverter, ConverterCloser>;

ConverterHandle openConverter(const std::string& name)
{
    UErrorCode status = U_ZERO_ERROR;
    ConverterHandle converter(ucnv_open(name.c_str(), &status));
    if (U_SUCCESS(status))
        ucnv_setToUCallBack(converter.get(), writeReplacement, nullptr, nullptr, nullptr, &status);
    if (U_FAILURE(status))
        converter.reset();
    return converter;
}

} // namespace

std::string canonicalCharsetName(std::string_view charsetName)
{
    const auto name = trimmed(charsetName);
    if (!isHarmlessCharsetName(name))
        return {};
    const auto key = lettersAndDigits(name);
    const auto* const alias
        = std::find_if(kCharsetAliases.begin(), kCharsetAliases.end(),
                       [&key](const CharsetAlias& candidate) { return candidate.name == key; });
    return std::string(alias == kCharsetAliases.end() ? name : alias->meaning);
}

/// Bytes to UTF-8 through a pivot of UTF-16 that lives across calls.
class TextDecoder::Converter {
public:
    Converter(ConverterHandle source, ConverterHandle target)
        : m_source(std::move(source))
        , m_target(std::move(target))
    {
    }

    void convert(std::string_view bytes, std::string& text, bool isLast)
    {
        const char* source = bytes.data();
        const char* const sourceEnd = bytes.data() + bytes.size();
        UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
        while (status == U_BUFFER_OVERFLOW_ERROR) {
            status = U_ZERO_ERROR;
            char* target = m_output.data();
            ucnv_convertEx(m_target.get(), m_source.get(), &target, m_output.data() + m_output.size(),
                           &source, sourceEnd, m_pivot.data(), &m_pivotSource, &m_pivotTarget,
                           m_pivot.data() + m_pivot.size(), m_isFresh ? 1 : 0, isLast ? 1 : 0, &status);
            m_isFresh = false;
            text.append(m_output.data(), static_cast<std::size_t>(target - m_output.data()));
        }
        // The callbacks substitute what has no meaning, so that what is left are faults of the data at the
        // very end.
        if (isLast || U_FAILURE(status))
            start();
    }

private:
    void start()
    {
        m_isFresh = true;
        m_pivotSource = m_pivot.data();
        m_pivotTarget = m_pivot.data();
    }

    ConverterHandle m_source;
    ConverterHandle m_target;
    std::array<UChar, kPivotLength> m_pivot{};
    std::array<char, kOutputLength> m_output{};
    UChar* m_pivotSource = m_pivot.data();
    UChar* m_pivotTarget = m_pivot.data();
    bool m_isFresh = true;
};

TextDecoder::TextDecoder(std::unique_ptr<Converter> converter)
    : m_converter(std::move(converter))
{
}

TextDecoder::TextDecoder(TextDecoder&& other) noexcept = default;
TextDecoder& TextDecoder::operator=(TextDecoder&& other) noexcept = default;
TextDecoder::~TextDecoder() = default;

std::optional<TextDecoder> TextDecoder::createWithCharset(std::string_view charsetName)
{
    const auto name = canonicalCharsetName(charsetName);
    if (name.empty())
        return std::nullopt;
    auto source = openConverter(name);
    auto target = openConverter("UTF-8");
    if (!source || !target)
        return std::nullopt;
    return TextDecoder(std::make_unique<Converter>(std::move(source), std::move(target)));
}

void TextDecoder::append(std::string_view bytes, std::string& text)
{
    if (!bytes.empty())
        m_converter->convert(bytes, text, false);
}

void TextDecoder::finish(std::string& text)
{
    m_converter->convert("", text, true); // The library takes no null pointer for nothing.
}
