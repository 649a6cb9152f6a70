#include "platform/foundation/NSStringEncoding.h"

#include "platform/foundation/Unicode.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>

namespace {

struct NamedEncoding {
    NSStringEncoding encoding;
    const char* name;
};

// The converters' own names: unlike on the web, ISO Latin 1 is not Windows-1252 here.
constexpr std::array<NamedEncoding, 12> kEncodings = {{
    {NSASCIIStringEncoding, "US-ASCII"},
    {NSJapaneseEUCStringEncoding, "EUC-JP"},
    {NSISOLatin1StringEncoding, "ISO-8859-1"},
    {NSShiftJISStringEncoding, "windows-31j"},
    {NSISOLatin2StringEncoding, "ISO-8859-2"},
    {NSWindowsCP1251StringEncoding, "windows-1251"},
    {NSWindowsCP1252StringEncoding, "windows-1252"},
    {NSWindowsCP1253StringEncoding, "windows-1253"},
    {NSWindowsCP1254StringEncoding, "windows-1254"},
    {NSWindowsCP1250StringEncoding, "windows-1250"},
    {NSISO2022JPStringEncoding, "ISO-2022-JP"},
    {NSMacOSRomanStringEncoding, "macintosh"},
}};

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};

std::optional<std::u16string> convert(std::string_view bytes, const char* name)
{
    if (bytes.size() > INT32_MAX)
        return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, ConverterCloser> converter(ucnv_open(name, &status));
    if (U_SUCCESS(status))
        ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    if (U_FAILURE(status))
        return std::nullopt;
    // A byte gives one unit in all of these encodings, but for sequences that give a pair from two or more.
    std::u16string text(bytes.size() + 1, u'\0');
    const auto length = ucnv_toUChars(converter.get(), text.data(), static_cast<int32_t>(text.size()),
                                      bytes.data(), static_cast<int32_t>(bytes.size()), &status);
    if (U_FAILURE(status))
        return std::nullopt;
    text.resize(static_cast<std::size_t>(length));
    return text;
}

} // namespace

std::optional<std::u16string> stringWithBytes(std::string_view bytes, NSStringEncoding encoding)
{
    if (encoding == NSUTF8StringEncoding)
        return isValidUTF8(bytes) ? std::optional(UTF16FromUTF8(bytes)) : std::nullopt;
    const auto* const found
        = std::find_if(kEncodings.begin(), kEncodings.end(),
                       [encoding](const auto& named) { return named.encoding == encoding; });
    return found == kEncodings.end() ? std::nullopt : convert(bytes, found->name);
}
