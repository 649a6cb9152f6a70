#include "platform/foundation/StringFolding.h"

#include "platform/foundation/Unicode.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>

namespace {

// Text in the stream-safe format has 30 marks on a letter at most. A longer run is cut, so that putting the
// marks in order stays cheap whatever arrives.
constexpr int kMostCodePoints = 32;
constexpr char16_t kFirstMark = 0x300;
constexpr char16_t kFirstBeyondASCII = 0x80;

UChar32 codePointAt(std::u16string_view text, std::size_t& position)
{
    return static_cast<UChar32>(nextCodePoint(text, position));
}

int hangulType(UChar32 codePoint)
{
    return u_getIntPropertyValue(codePoint, UCHAR_HANGUL_SYLLABLE_TYPE);
}

bool combinesWith(UChar32 previous, UChar32 codePoint)
{
    if (u_getCombiningClass(codePoint) != 0)
        return true;
    const auto type = hangulType(codePoint);
    return (type == U_HST_VOWEL_JAMO || type == U_HST_TRAILING_JAMO)
        && hangulType(previous) != U_HST_NOT_APPLICABLE;
}

// By combining class: overlays, the points of Hebrew, Arabic and Syriac, and what stands above or below.
// Between them lie the nukta, the voicing marks of kana, viramas and vowels, which make other letters.
bool isDiacritic(UChar32 codePoint)
{
    constexpr int kOverlay = 1;
    constexpr int kFirstPoint = 10;
    constexpr int kLastPoint = 36;
    constexpr int kFirstAttached = 200;
    const int combiningClass = u_getCombiningClass(codePoint);
    return combiningClass == kOverlay || (combiningClass >= kFirstPoint && combiningClass <= kLastPoint)
        || combiningClass >= kFirstAttached;
}

icu::UnicodeString decomposed(const icu::UnicodeString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto* normalizer = icu::Normalizer2::getNFDInstance(status);
    if (U_FAILURE(status))
        return text;
    auto result = normalizer->normalize(text, status);
    return U_SUCCESS(status) ? result : text;
}

icu::UnicodeString withOrdinaryWidth(const icu::UnicodeString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto* normalizer = icu::Normalizer2::getNFKCInstance(status);
    icu::UnicodeString result;
    for (int32_t position = 0; position < text.length(); position = text.moveIndex32(position, 1)) {
        const auto codePoint = text.char32At(position);
        const auto type = u_getIntPropertyValue(codePoint, UCHAR_DECOMPOSITION_TYPE);
        icu::UnicodeString ordinary;
        if (U_SUCCESS(status) && (type == U_DT_WIDE || type == U_DT_NARROW)
            && normalizer->getRawDecomposition(codePoint, ordinary))
            result += ordinary;
        else
            result += codePoint;
    }
    return result;
}

icu::UnicodeString withoutDiacritics(const icu::UnicodeString& text)
{
    icu::UnicodeString result;
    for (int32_t position = 0; position < text.length(); position = text.moveIndex32(position, 1)) {
        if (!isDiacritic(text.char32At(position)))
            result += text.char32At(position);
    }
    return result;
}

bool isTurkicLocale(std::string_view identifier)
{
    const auto language = identifier.substr(0, identifier.find_first_of("_-@."));
    return language == "tr" || language == "az";
}

} // namespace

StringFolder::StringFolder(NSStringCompareOptions options, std::string_view localeIdentifier)
    : m_options(options)
    , m_isTurkic(isTurkicLocale(localeIdentifier))
{
}

std::size_t StringFolder::endOfCharacter(std::u16string_view text, std::size_t position) const
{
    auto end = position;
    auto previous = codePointAt(text, end);
    for (int count = 1; !has(NSLiteralSearch) && end < text.size() && count < kMostCodePoints; ++count) {
        auto next = end;
        const auto codePoint = codePointAt(text, next);
        if (!combinesWith(previous, codePoint))
            break;
        end = next;
        previous = codePoint;
    }
    return end;
}

void StringFolder::foldCharacter(std::u16string_view character, std::u16string& folded) const
{
    icu::UnicodeString piece(character.data(), static_cast<int32_t>(character.size()));
    const bool isCanonical = !has(NSLiteralSearch) || has(NSDiacriticInsensitiveSearch);
    if (has(NSWidthInsensitiveSearch))
        piece = withOrdinaryWidth(piece);
    if (isCanonical)
        piece = decomposed(piece);
    if (has(NSCaseInsensitiveSearch)) {
        piece.foldCase(m_isTurkic ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT);
        if (isCanonical)
            piece = decomposed(piece);
    }
    if (has(NSDiacriticInsensitiveSearch))
        piece = withoutDiacritics(piece);
    folded.append(piece.getBuffer(), static_cast<std::size_t>(piece.length()));
}

void StringFolder::foldNext(std::u16string_view text, std::size_t& position, std::u16string& folded) const
{
    const char16_t unit = text[position];
    const bool isAlone = position + 1 == text.size() || text[position + 1] < kFirstMark;
    if (unit < kFirstBeyondASCII && isAlone && !m_isTurkic) {
        const bool isCapital = unit >= u'A' && unit <= u'Z';
        folded += isCapital && has(NSCaseInsensitiveSearch) ? static_cast<char16_t>(unit + 32) : unit;
        ++position;
        return;
    }
    const auto end = endOfCharacter(text, position);
    foldCharacter(text.substr(position, end - position), folded);
    position = end;
}

std::u16string StringFolder::folded(std::u16string_view text) const
{
    std::u16string folded;
    folded.reserve(text.size());
    for (std::size_t position = 0; position < text.size();)
        foldNext(text, position, folded);
    return folded;
}

FoldedText::FoldedText(std::u16string_view text, const StringFolder& folder)
{
    m_units.reserve(text.size());
    m_starts.reserve(text.size() + 1);
    for (std::size_t position = 0; position < text.size();) {
        const auto start = position;
        folder.foldNext(text, position, m_units);
        m_starts.resize(m_units.size(), start);
    }
    m_starts.push_back(text.size());
}

bool FoldedText::isCharacterBorder(std::size_t position) const
{
    return position == 0 || m_starts[position] != m_starts[position - 1];
}

NSRange FoldedText::sourceRange(std::size_t start, std::size_t end) const
{
    return {m_starts[start], m_starts[end] - m_starts[start]};
}

std::size_t FoldedText::positionOf(NSUInteger location) const
{
    const auto found = std::lower_bound(m_starts.begin(), m_starts.end(), location);
    return std::min(static_cast<std::size_t>(found - m_starts.begin()), m_units.size());
}
