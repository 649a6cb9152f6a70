#include "platform/foundation/EncodingGuess.h"

#include "platform/foundation/LanguageLetters.h"
#include "platform/foundation/TextDecoder.h"
#include "platform/foundation/Unicode.h"

#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <string>
#include <vector>

// An encoding's score is the logarithm of how likely its reading of the sample is. A character beyond ASCII
// counts by its frequency in the language that explains the whole reading best; characters that no text holds
// and letters that do not fit their neighbours cost a fixed amount. All readings stand for the same bytes, so
// that the sums compare.

namespace {

constexpr std::size_t kSampleSegments = 8;
constexpr std::size_t kSegmentByteCount = 2048;
constexpr std::size_t kWindowByteCount = 512;
constexpr std::size_t kUsefulWindowByteCount = 128;
constexpr std::size_t kWordReach = 24;

constexpr double kNoCharacter = -18;
constexpr double kControl = -16;
constexpr double kStrangeCharacter = -10;
constexpr double kHalfwidthLetter = -9;
constexpr double kOtherScript = -11;
constexpr double kPunctuation = -4.6;
constexpr double kSymbolInWord = -4;
constexpr double kScriptsMixed = -4;
constexpr double kCapital = -1.5;
constexpr double kCapitalInWord = -4;
constexpr double kAccentsInARow = -1.5;

struct Candidate {
    std::string_view charsetName;
    /// What its rarity costs; small, for texts too short to decide by themselves.
    double rarity;
};

// Of two that read alike the first wins.
constexpr auto kCandidates = std::to_array<Candidate>({
    {"windows-1252", 0},  {"utf-8", -1},        {"windows-1250", -3}, {"iso-8859-2", -4},
    {"windows-1251", -2}, {"koi8-u", -3},       {"iso-8859-5", -4},   {"ibm866", -5},
    {"windows-1253", -3}, {"iso-8859-7", -4},   {"windows-1254", -3}, {"windows-1255", -3},
    {"iso-8859-8", -4},   {"windows-1256", -3}, {"iso-8859-6", -4},   {"windows-1257", -3},
    {"windows-1258", -4}, {"windows-874", -3},  {"windows-31j", -3},  {"euc-jp", -2},
    {"gb18030", -3},      {"windows-950", -3},  {"windows-949", -3},  {"x-mac-cyrillic", -5},
    {"macintosh", -4},    {"iso-8859-3", -6},   {"ibm-855", -8},      {"ibm-852", -6},
    {"ibm-850", -6},
});

/// What one reading of the sample holds.
struct Reading {
    /// Letters and their punctuation, in lower case, by count.
    std::map<char32_t, unsigned> letters;
    double penalty = 0;
};

bool isWordBorder(char byte)
{
    return static_cast<unsigned char>(byte) < 0x30;
}

bool isBeyondASCII(char byte)
{
    return static_cast<unsigned char>(byte) >= 0x80;
}

// A stretch around the next byte beyond ASCII, from one word border to another: no encoding uses such bytes
// within a character, so that every reading of it starts in step.
std::string_view nextWindow(std::string_view bytes, std::size_t from)
{
    const auto* const high = std::find_if(bytes.begin() + from, bytes.end(), isBeyondASCII);
    if (high == bytes.end())
        return {};
    auto start = static_cast<std::size_t>(high - bytes.begin());
    const std::size_t earliest = std::max(from, start > kWordReach ? start - kWordReach : 0);
    while (start > earliest && !isWordBorder(bytes[start - 1]))
        --start;
    const std::size_t latest = std::min(bytes.size(), start + kWindowByteCount);
    auto end = static_cast<std::size_t>(high - bytes.begin());
    while (end < latest
           && (end < start + kUsefulWindowByteCount || static_cast<unsigned char>(bytes[end]) > 0x20))
        ++end;
    return bytes.substr(start, end - start);
}

std::vector<std::string_view> sampleOf(std::string_view bytes)
{
    std::vector<std::string_view> windows;
    const std::size_t segmentLength = std::max(bytes.size() / kSampleSegments, kSegmentByteCount);
    for (std::size_t start = 0; start < bytes.size(); start += segmentLength) {
        auto offset = start;
        while (start > 0 && offset < bytes.size() && !isWordBorder(bytes[offset]))
            ++offset;
        const auto segment = bytes.substr(0, std::min(start + segmentLength, bytes.size()));
        std::size_t taken = 0;
        while (taken < kSegmentByteCount && offset < segment.size()) {
            const auto window = nextWindow(segment, offset);
            if (window.empty())
                break;
            windows.push_back(window);
            taken += window.size();
            offset = static_cast<std::size_t>(window.data() - bytes.data()) + window.size();
        }
    }
    return windows;
}

bool isTypographic(char32_t character)
{
    static constexpr std::u32string_view kMarks = U"’‘“”„‚«»–—…•·°§€£©®™¿¡\u00A0º‐―‹›×";
    return kMarks.find(character) != std::u32string_view::npos;
}

bool isEastAsianMark(char32_t character)
{
    return (character >= 0x3000 && character <= 0x301F) || (character >= 0xFF01 && character <= 0xFF5E);
}

/// A script, with those that mix in one word taken together.
UScriptCode scriptFamily(char32_t character)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto script = uscript_getScript(static_cast<UChar32>(character), &status);
    if (script == USCRIPT_HIRAGANA || script == USCRIPT_KATAKANA)
        return USCRIPT_HAN;
    return script;
}

bool isLetter(char32_t character)
{
    constexpr auto kLetterMask = U_GC_L_MASK | U_GC_M_MASK;
    return (U_MASK(u_charType(static_cast<UChar32>(character))) & kLetterMask) != 0;
}

double symbolPenalty(char32_t character)
{
    if (character == kReplacementCharacter)
        return kNoCharacter;
    const auto type = u_charType(static_cast<UChar32>(character));
    if (type == U_CONTROL_CHAR || type == U_PRIVATE_USE_CHAR || type == U_UNASSIGNED)
        return kControl;
    return isTypographic(character) ? kPunctuation : kStrangeCharacter;
}

/// Walks over the characters of one reading.
class ReadingMaker {
public:
    explicit ReadingMaker(Reading& reading)
        : m_reading(reading)
    {
    }

    void take(char32_t character)
    {
        if (isLetter(character))
            takeLetter(character);
        else
            takeOther(character);
    }

private:
    void takeLetter(char32_t character)
    {
        const auto family = character < 0x80 ? USCRIPT_LATIN : scriptFamily(character);
        const bool isAttached = family == USCRIPT_INHERITED || family == USCRIPT_COMMON;
        if (m_isInWord && !isAttached && m_family != family)
            m_reading.penalty += kScriptsMixed;
        if (m_symbolAfterWord)
            m_reading.penalty += kSymbolInWord;
        const auto lower = static_cast<char32_t>(u_tolower(static_cast<UChar32>(character)));
        if (character >= 0x80)
            countLetter(character, lower, family);
        m_isLower = lower == character;
        m_isAccented = character >= 0x80 && family == USCRIPT_LATIN;
        m_isInWord = true;
        m_symbolAfterWord = false;
        m_family = isAttached ? m_family : family;
    }

    void countLetter(char32_t character, char32_t lower, UScriptCode family)
    {
        if (lower != character)
            m_reading.penalty += m_isInWord && m_isLower ? kCapitalInWord : kCapital;
        if (m_isInWord && m_isAccented && family == USCRIPT_LATIN)
            m_reading.penalty += kAccentsInARow;
        const bool isHalfwidth = character >= 0xFF61 && character <= 0xFFDC;
        if (isHalfwidth)
            m_reading.penalty += kHalfwidthLetter;
        else
            ++m_reading.letters[lower];
    }

    void takeOther(char32_t character)
    {
        const bool isBeyond = character >= 0x80;
        if (isBeyond && isEastAsianMark(character))
            ++m_reading.letters[character];
        else if (isBeyond)
            m_reading.penalty += symbolPenalty(character);
        m_symbolAfterWord = m_isInWord && isBeyond && !isEastAsianMark(character) && character != U'’'
            && character != U'·' && character != U'—' && character != U'–';
        m_isInWord = false;
    }

    Reading& m_reading;
    UScriptCode m_family = USCRIPT_COMMON;
    bool m_isInWord = false;
    bool m_isLower = false;
    bool m_isAccented = false;
    bool m_symbolAfterWord = false;
};

Reading readingOf(const std::vector<std::string_view>& windows, TextDecoder& decoder)
{
    Reading reading;
    std::string text;
    std::string rest;
    for (const auto window : windows) {
        text.clear();
        decoder.append(window, text);
        // A window that was cut for its length may end within a character, which proves nothing.
        decoder.finish(window.size() < kWindowByteCount ? text : rest);
        ReadingMaker maker(reading);
        for (std::size_t offset = 0; offset < text.size();)
            maker.take(nextCodePoint(text, offset));
    }
    return reading;
}

/// The logarithms of the letter frequencies of one language.
class LanguageModel {
public:
    explicit LanguageModel(const LanguageLetters& language)
        : m_family(scriptFamily(language.letters.front()))
        , m_further(std::log((1 - language.coverage) / static_cast<double>(language.furtherLetterCount)))
    {
        double total = 0;
        for (std::size_t rank = 0; rank < language.letters.size(); ++rank)
            total += weight(rank);
        for (std::size_t rank = 0; rank < language.letters.size(); ++rank)
            m_logarithms.emplace(language.letters[rank], std::log(language.coverage * weight(rank) / total));
    }

    [[nodiscard]] double score(const Reading& reading) const
    {
        double sum = reading.penalty;
        for (const auto& [letter, count] : reading.letters)
            sum += count * logarithm(letter);
        return sum;
    }

private:
    static double weight(std::size_t rank) { return 1.0 / (static_cast<double>(rank) + 3); }

    [[nodiscard]] double logarithm(char32_t letter) const
    {
        const auto found = m_logarithms.find(letter);
        if (found != m_logarithms.end())
            return found->second;
        return scriptFamily(letter) == m_family ? m_further : kOtherScript;
    }

    UScriptCode m_family;
    double m_further;
    std::map<char32_t, double> m_logarithms;
};

const std::vector<LanguageModel>& languageModels()
{
    static const std::vector<LanguageModel> models(knownLanguageLetters().begin(),
                                                   knownLanguageLetters().end());
    return models;
}

double bestScore(const Reading& reading)
{
    double best = -std::numeric_limits<double>::infinity();
    for (const auto& model : languageModels())
        best = std::max(best, model.score(reading));
    return best;
}

} // namespace

std::string_view guessedEncoding(std::string_view bytes)
{
    const auto windows = sampleOf(bytes);
    std::string_view best = kCandidates.front().charsetName;
    double bestSoFar = -std::numeric_limits<double>::infinity();
    for (const auto& candidate : kCandidates) {
        auto decoder = TextDecoder::createWithCharset(candidate.charsetName);
        if (windows.empty() || !decoder)
            continue;
        const double score = bestScore(readingOf(windows, *decoder)) + candidate.rarity;
        if (score > bestSoFar) {
            bestSoFar = score;
            best = candidate.charsetName;
        }
    }
    return best;
}
