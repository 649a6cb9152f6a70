#include "platform/media/WordFileInformation.h"

#include "platform/media/LittleEndian.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::uint16_t kWord2Mark = 0xA5DB;
constexpr std::uint16_t kWord6Mark = 0xA5DC;
constexpr std::uint16_t kWord97Mark = 0xA5EC;
/// Files with a lower version number have the layout of Word 6, whatever their mark.
constexpr std::uint16_t kFirstWord97Version = 106;

constexpr std::uint16_t kIsFastSaved = 0x0004;
constexpr std::uint16_t kIsEncrypted = 0x0100;
constexpr std::uint16_t kUsesTable1 = 0x0200;
constexpr std::uint16_t kMacintoshCharset = 0x0100;

struct LanguageCharset {
    std::uint16_t language;
    std::string_view charsetName;
};

/// Languages whose text is not in the western code page: the exact ones first, then by the low ten bits.
constexpr std::array<LanguageCharset, 3> kRegionCharsets{{
    {0x0404, "big5"},
    {0x0C04, "big5"},
    {0x0C1A, "windows-1251"},
}};
constexpr std::array<LanguageCharset, 26> kLanguageCharsets{{
    {0x01, "windows-1256"}, {0x02, "windows-1251"}, {0x04, "gb18030"},      {0x05, "windows-1250"},
    {0x08, "windows-1253"}, {0x0D, "windows-1255"}, {0x0E, "windows-1250"}, {0x11, "shift_jis"},
    {0x12, "euc-kr"},       {0x15, "windows-1250"}, {0x18, "windows-1250"}, {0x19, "windows-1251"},
    {0x1A, "windows-1250"}, {0x1B, "windows-1250"}, {0x1C, "windows-1250"}, {0x1E, "windows-874"},
    {0x1F, "windows-1254"}, {0x20, "windows-1256"}, {0x22, "windows-1251"}, {0x23, "windows-1251"},
    {0x24, "windows-1250"}, {0x25, "windows-1257"}, {0x26, "windows-1257"}, {0x27, "windows-1257"},
    {0x29, "windows-1256"}, {0x2F, "windows-1251"},
}};

template <std::size_t Length>
std::string_view charsetIn(const std::array<LanguageCharset, Length>& table, std::uint16_t language)
{
    const auto* const found = std::find_if(table.begin(), table.end(),
                                           [language](const auto& row) { return row.language == language; });
    return found == table.end() ? std::string_view() : found->charsetName;
}

std::string_view charsetOfLanguage(std::uint16_t language)
{
    constexpr std::uint16_t kPrimaryLanguage = 0x03FF;
    auto charset = charsetIn(kRegionCharsets, language);
    if (charset.empty())
        charset = charsetIn(kLanguageCharsets, language & kPrimaryLanguage);
    return charset.empty() ? "windows-1252" : charset;
}

std::optional<WordFileInformation::Generation> generationOf(std::string_view bytes)
{
    using Generation = WordFileInformation::Generation;
    const auto version = littleEndian16(bytes, 2);
    switch (littleEndian16(bytes, 0)) {
    case kWord2Mark:
        return Generation::Word2;
    case kWord6Mark:
    case kWord97Mark:
        return version < kFirstWord97Version ? Generation::Word6 : Generation::Word97;
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<WordFileInformation> WordFileInformation::parse(std::string_view bytes)
{
    const auto generation = generationOf(bytes);
    if (!generation)
        return std::nullopt;
    const auto flags = littleEndian16(bytes, 0x0A);
    WordFileInformation information;
    information.generation = *generation;
    information.isEncrypted = (flags & kIsEncrypted) != 0;
    information.textStart = littleEndian32(bytes, 0x18);
    information.textEnd = littleEndian32(bytes, 0x1C);
    if (*generation == Generation::Word97) {
        information.hasPieces = true;
        information.tableStream = (flags & kUsesTable1) != 0 ? "1Table" : "0Table";
        information.pieceTableOffset = littleEndian32(bytes, 0x1A2);
        information.pieceTableByteCount = littleEndian32(bytes, 0x1A6);
        information.charsetName = "windows-1252"; // In every language: what it lacks is written in UTF-16.
        return information;
    }
    information.hasPieces = *generation == Generation::Word6 && (flags & kIsFastSaved) != 0;
    information.tableStream = "WordDocument";
    information.pieceTableOffset = littleEndian32(bytes, 0x160);
    information.pieceTableByteCount = littleEndian32(bytes, 0x164);
    const bool isMacintosh = littleEndian16(bytes, 0x14) == kMacintoshCharset;
    information.charsetName = isMacintosh ? "macintosh" : charsetOfLanguage(littleEndian16(bytes, 6));
    return information;
}
