#include "platform/search/CharacterTable.h"

#include "platform/foundation/Unicode.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <deque>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

using Character = CharacterTable::Character;

constexpr std::size_t kBlockSize = 256;
constexpr std::size_t kBlockCount = 0x110000 / kBlockSize;
using Block = std::array<Character, kBlockSize>;

struct Letter {
    char32_t codePoint;
    std::string_view spelling;
};

// Letters that stand for a plain one but do not decompose to it, in their case-folded form.
constexpr std::array kSpeltOut = std::to_array<Letter>({
    {U'ł', "l"}, {U'ø', "o"}, {U'æ', "ae"}, {U'œ', "oe"}, {U'đ', "d"}, {U'ð', "d"}, {U'þ', "th"}, {U'ħ', "h"},
    {U'ı', "i"}, {U'ŧ', "t"}, {U'ŋ', "n"},  {U'ĸ', "k"},  {U'ƀ', "b"}, {U'ɨ', "i"}, {U'ƶ', "z"},  {U'ǥ', "g"},
    {U'ɉ', "j"}, {U'ɍ', "r"}, {U'ɏ', "y"},  {U'ȼ', "c"},  {U'ⱥ', "a"}, {U'ɇ', "e"}, {U'ⱦ', "t"},  {U'ƚ', "l"},
});

const icu::Normalizer2& normalizer(const char* name, UNormalization2Mode mode)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto* instance = icu::Normalizer2::getInstance(nullptr, name, mode, status);
    if (U_FAILURE(status))
        throw std::runtime_error("ICU has no normalisation data");
    return *instance;
}

UScriptCode scriptOf(char32_t codePoint)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto script = uscript_getScript(static_cast<UChar32>(codePoint), &status);
    return U_FAILURE(status) ? USCRIPT_UNKNOWN : script;
}

bool isIdeographScript(UScriptCode script)
{
    return script == USCRIPT_HAN || script == USCRIPT_HIRAGANA || script == USCRIPT_KATAKANA
        || script == USCRIPT_HANGUL || script == USCRIPT_BOPOMOFO || script == USCRIPT_KATAKANA_OR_HIRAGANA;
}

bool isDictionaryScript(UScriptCode script)
{
    return script == USCRIPT_THAI || script == USCRIPT_LAO || script == USCRIPT_KHMER
        || script == USCRIPT_MYANMAR;
}

bool isConjoiningJamo(char32_t codePoint)
{
    return codePoint >= 0x1100 && codePoint <= 0x11FF;
}

bool isKanaMark(char32_t codePoint)
{
    return codePoint == 0x3099 || codePoint == 0x309A || codePoint == 0xFF9E || codePoint == 0xFF9F;
}

bool isProlongedSoundMark(char32_t codePoint)
{
    return codePoint == 0x30FC || codePoint == 0xFF70;
}

// Accents are dropped only where they are accents: vowel signs of Indian scripts are marks too, and carry the
// word.
bool isDroppedMark(char32_t codePoint, UScriptCode script)
{
    const auto category = u_charType(static_cast<UChar32>(codePoint));
    if (category != U_NON_SPACING_MARK && category != U_ENCLOSING_MARK)
        return false;
    return script == USCRIPT_INHERITED || script == USCRIPT_COMMON || script == USCRIPT_ARABIC
        || script == USCRIPT_HEBREW || script == USCRIPT_SYRIAC || script == USCRIPT_CYRILLIC
        || script == USCRIPT_GREEK || script == USCRIPT_LATIN;
}

bool isIgnorable(char32_t codePoint, UScriptCode script)
{
    constexpr char32_t kTatweel = 0x0640;
    constexpr char32_t kZeroWidthSpace = 0x200B;
    if (codePoint == kZeroWidthSpace)
        return false;
    return codePoint == kTatweel || isDroppedMark(codePoint, script)
        || u_hasBinaryProperty(static_cast<UChar32>(codePoint), UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
}

CharacterKind kindOf(char32_t codePoint)
{
    const auto character = static_cast<UChar32>(codePoint);
    const auto script = scriptOf(codePoint);
    if (isKanaMark(codePoint))
        return CharacterKind::KanaMark;
    if (isConjoiningJamo(codePoint))
        return CharacterKind::Jamo;
    if (isProlongedSoundMark(codePoint))
        return CharacterKind::Ideograph;
    if (isIgnorable(codePoint, script))
        return CharacterKind::Ignorable;
    if (u_hasBinaryProperty(character, UCHAR_EMOJI_PRESENTATION))
        return CharacterKind::Emoji;
    const auto mask = U_GET_GC_MASK(character);
    const bool word = (mask & (U_GC_L_MASK | U_GC_N_MASK | U_GC_M_MASK)) != 0;
    if (word && isDictionaryScript(script))
        return CharacterKind::Dictionary;
    if (isIdeographScript(script))
        return word || u_hasBinaryProperty(character, UCHAR_IDEOGRAPHIC) ? CharacterKind::Ideograph
                                                                         : CharacterKind::Separator;
    return word ? CharacterKind::Word : CharacterKind::Separator;
}

std::string withoutMarks(const icu::UnicodeString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto decomposed = normalizer("nfc", UNORM2_DECOMPOSE).normalize(text, status);
    if (U_FAILURE(status))
        throw std::runtime_error("ICU cannot decompose a character");
    std::string folded;
    for (std::int32_t index = 0; index < decomposed.length();) {
        const auto codePoint = static_cast<char32_t>(decomposed.char32At(index));
        index += U16_LENGTH(codePoint);
        const auto* letter = std::find_if(kSpeltOut.begin(), kSpeltOut.end(), [codePoint](const Letter& row) {
            return row.codePoint == codePoint;
        });
        if (letter != kSpeltOut.end())
            folded += letter->spelling;
        else if (kindOf(codePoint) == CharacterKind::Word)
            appendUTF8(folded, codePoint);
    }
    return folded;
}

std::string foldOf(char32_t codePoint, CharacterKind kind)
{
    if (kind == CharacterKind::Separator || kind == CharacterKind::Ignorable)
        return {};
    UErrorCode status = U_ZERO_ERROR;
    const auto caseFolded = normalizer("nfkc_cf", UNORM2_COMPOSE)
                                .normalize(icu::UnicodeString(static_cast<UChar32>(codePoint)), status);
    if (U_FAILURE(status))
        throw std::runtime_error("ICU cannot fold a character");
    if (kind == CharacterKind::Word)
        return withoutMarks(caseFolded);
    std::string folded;
    return caseFolded.toUTF8String(folded);
}

// Signs that stand for letters (™, №, ㍿) are read as those letters.
CharacterKind kindWithSymbols(char32_t codePoint)
{
    const auto kind = kindOf(codePoint);
    if (kind != CharacterKind::Separator || u_charType(static_cast<UChar32>(codePoint)) != U_OTHER_SYMBOL)
        return kind;
    const auto folded = foldOf(codePoint, CharacterKind::Ideograph);
    for (std::size_t offset = 0; offset < folded.size();) {
        const auto part = kindOf(nextCodePoint(folded, offset));
        if (part == CharacterKind::Word || part == CharacterKind::Ideograph)
            return part;
    }
    return kind;
}

class BlockStore {
public:
    const Block& block(std::size_t number)
    {
        const auto* block = m_blocks.at(number).load(std::memory_order_acquire);
        return block ? *block : fill(number);
    }

    [[nodiscard]] std::string_view longFold(std::size_t number)
    {
        const std::lock_guard lock(m_mutex);
        return m_longFolds.at(number);
    }

private:
    const Block& fill(std::size_t number)
    {
        const std::lock_guard lock(m_mutex);
        if (const auto* block = m_blocks[number].load(std::memory_order_acquire))
            return *block;
        auto block = std::make_unique<Block>();
        for (std::size_t index = 0; index < kBlockSize; ++index)
            (*block)[index] = makeCharacter(static_cast<char32_t>(number * kBlockSize + index));
        m_storage.push_back(std::move(block));
        m_blocks[number].store(m_storage.back().get(), std::memory_order_release);
        return *m_storage.back();
    }

    Character makeCharacter(char32_t codePoint)
    {
        Character character;
        character.kind = kindWithSymbols(codePoint);
        const std::string folded = foldOf(codePoint, character.kind);
        if (folded.empty() && character.kind == CharacterKind::Word)
            character.kind = CharacterKind::Ignorable;
        if (folded.size() <= character.folded.size()) {
            character.length = static_cast<std::uint8_t>(folded.size());
            std::copy(folded.begin(), folded.end(), character.folded.begin());
            return character;
        }
        const auto place = static_cast<std::uint16_t>(m_longFolds.size());
        m_longFolds.push_back(folded);
        character.length = CharacterTable::kLong;
        std::memcpy(character.folded.data(), &place, sizeof(place));
        return character;
    }

    std::mutex m_mutex;
    std::array<std::atomic<const Block*>, kBlockCount> m_blocks{};
    std::deque<std::unique_ptr<Block>> m_storage;
    std::deque<std::string> m_longFolds; // Views of them stay valid: a deque does not move what it holds.
};

BlockStore& store()
{
    static BlockStore instance;
    return instance;
}

} // namespace

const Character& CharacterTable::character(char32_t codePoint)
{
    return store().block(codePoint / kBlockSize)[codePoint % kBlockSize];
}

std::string_view CharacterTable::fold(const Character& character)
{
    if (character.length != kLong)
        return {character.folded.data(), character.length};
    std::uint16_t place = 0;
    std::memcpy(&place, character.folded.data(), sizeof(place));
    return store().longFold(place);
}
