#include "fuzz/Seeds.h"

#include <unicode/unistr.h>

#include <array>
#include <stdexcept>

namespace {

struct EncodedText {
    const char* charset;
    std::string_view text;
};

// Long enough each for its encoding to be told from its bytes.
constexpr std::string_view kGerman
    = "Über den Wäldern schläft schon längst die müde Straße, größer als zuvor.\n";
constexpr std::string_view kRussian = "Съешь ещё этих мягких французских булок, да выпей же чаю.\n";
constexpr std::string_view kJapanese = "図書館で静かに本を読む。カタカナもあります。\n";
constexpr std::string_view kChinese = "图书馆里很安静，我们在那里看书。\n";
constexpr std::string_view kTraditionalChinese = "圖書館裡很安靜，我們在那裡看書。\n";
constexpr std::string_view kKorean = "도서관에서 조용히 책을 읽습니다.\n";

constexpr std::array kTexts{
    EncodedText{"UTF-8", kJapanese},      EncodedText{"UTF-16LE", kRussian},
    EncodedText{"UTF-16BE", kRussian},    EncodedText{"UTF-32LE", kGerman},
    EncodedText{"windows-1252", kGerman}, EncodedText{"windows-1251", kRussian},
    EncodedText{"KOI8-R", kRussian},      EncodedText{"Shift_JIS", kJapanese},
    EncodedText{"EUC-JP", kJapanese},     EncodedText{"ISO-2022-JP", kJapanese},
    EncodedText{"GB18030", kChinese},     EncodedText{"Big5", kTraditionalChinese},
    EncodedText{"EUC-KR", kKorean},
};

std::string encoded(const EncodedText& text)
{
    const auto unicode = icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.text.data(), static_cast<int32_t>(text.text.size())));
    const auto length = unicode.extract(0, unicode.length(), nullptr, 0, text.charset);
    if (length <= 0)
        throw std::runtime_error(std::string(text.charset) + " is not known");
    std::string bytes(static_cast<std::size_t>(length), '\0');
    (void)unicode.extract(0, unicode.length(), bytes.data(), static_cast<uint32_t>(length), text.charset);
    return bytes;
}

} // namespace

std::vector<Seed> textEncodingSeeds()
{
    std::vector<Seed> seeds{
        {"declared-in-xml", "<?xml version='1.0' encoding='iso-8859-1'?><a>caf\xE9</a>"},
        {"declared-in-html", "<html><head><meta charset=\"windows-1251\"></head>\xCF\xF0\xE8</html>"},
        {"marked-utf-8", "\xEF\xBB\xBFmarked"},
        {"marked-utf-16", std::string("\xFF\xFEm\0a\0r\0k\0", 10)},
    };
    for (const auto& text : kTexts)
        seeds.push_back({text.charset, encoded(text)});
    return seeds;
}
