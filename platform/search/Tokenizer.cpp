#include "platform/search/Tokenizer.h"

#include "platform/foundation/Unicode.h"
#include "platform/search/CharacterTable.h"
#include "platform/search/DictionaryBreaker.h"

#include <unicode/normalizer2.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

namespace {

constexpr std::size_t kDictionaryRunByteCount = 6000;

std::optional<char32_t> composedPair(char32_t first, char32_t second)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto* normalizer = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status))
        return std::nullopt;
    const auto composed = normalizer->composePair(static_cast<UChar32>(first), static_cast<UChar32>(second));
    return composed < 0 ? std::nullopt : std::optional(static_cast<char32_t>(composed));
}

char32_t combiningKanaMark(char32_t mark)
{
    constexpr char32_t kHalfWidthVoiced = 0xFF9E;
    constexpr char32_t kHalfWidthSemiVoiced = 0xFF9F;
    if (mark == kHalfWidthVoiced)
        return 0x3099;
    return mark == kHalfWidthSemiVoiced ? 0x309A : mark;
}

} // namespace

/// One pass over one text.
class Tokenizer::Run {
public:
    Run(std::string_view text, TokenizeFor purpose, TokenSink& sink,
        std::unique_ptr<DictionaryBreaker>& breaker)
        : m_text(text)
        , m_purpose(purpose)
        , m_sink(sink)
        , m_breaker(breaker)
    {
    }

    bool tokenize()
    {
        while (m_offset < m_text.size()) {
            if (!step())
                return false;
        }
        return true;
    }

private:
    struct Decoded {
        char32_t codePoint;
        const CharacterTable::Character& character;
        std::size_t end;
    };

    [[nodiscard]] Decoded decode(std::size_t offset) const
    {
        std::size_t end = offset;
        const auto codePoint = nextCodePoint(m_text, end);
        return {codePoint, CharacterTable::character(codePoint), end};
    }

    [[nodiscard]] bool isASCII(std::size_t offset) const
    {
        return static_cast<unsigned char>(m_text[offset]) < 0x80;
    }

    bool step()
    {
        const auto byte = static_cast<unsigned char>(m_text[m_offset]);
        if (byte < 0x80) {
            if (CharacterTable::foldASCII(byte))
                return word();
            ++m_offset;
            return true;
        }
        const auto next = decode(m_offset);
        switch (next.character.kind) {
        case CharacterKind::Word:
            return word();
        case CharacterKind::Ideograph:
        case CharacterKind::Jamo:
        case CharacterKind::KanaMark:
            return ideograph(next);
        case CharacterKind::Dictionary:
            return dictionaryRun();
        case CharacterKind::Emoji:
            return emoji(next);
        case CharacterKind::Separator:
        case CharacterKind::Ignorable:
            m_offset = next.end;
            return true;
        }
        return true;
    }

    void append(std::string_view folded)
    {
        const auto room = std::min(folded.size(), kMaximumTokenByteCount - m_length);
        if (room < folded.size())
            m_cut = true; // Nothing is taken after the cut, so that the same prefix always gives the same
                          // token.
        if (m_cut)
            return;
        std::memcpy(m_word.data() + m_length, folded.data(), room);
        m_length += room;
    }

    void appendASCIIRun()
    {
        while (m_offset < m_text.size() && isASCII(m_offset)) {
            const char folded = CharacterTable::foldASCII(static_cast<unsigned char>(m_text[m_offset]));
            if (!folded)
                return;
            if (m_length < kMaximumTokenByteCount && !m_cut)
                m_word[m_length++] = folded;
            ++m_offset;
        }
    }

    // Leaves m_offset behind the word and gives the end of its last letter.
    std::size_t readWord()
    {
        m_length = 0;
        m_cut = false;
        std::size_t end = m_offset;
        while (m_offset < m_text.size()) {
            if (isASCII(m_offset)) {
                const auto before = m_offset;
                appendASCIIRun();
                if (m_offset == before)
                    break;
                end = m_offset;
                continue;
            }
            const auto next = decode(m_offset);
            if (next.character.kind != CharacterKind::Word && next.character.kind != CharacterKind::Ignorable)
                break;
            if (next.character.kind == CharacterKind::Word) {
                append(CharacterTable::fold(next.character));
                end = next.end;
            }
            m_offset = next.end;
        }
        return end;
    }

    [[nodiscard]] bool isWordAt(std::size_t offset) const
    {
        if (offset >= m_text.size())
            return false;
        if (isASCII(offset))
            return CharacterTable::foldASCII(static_cast<unsigned char>(m_text[offset])) != '\0';
        const auto kind = decode(offset).character.kind;
        return kind != CharacterKind::Separator && kind != CharacterKind::Ignorable;
    }

    // "C++" and "C#": the signs directly behind a word that belong to its name.
    [[nodiscard]] std::string_view signsBehind(std::size_t end) const
    {
        const auto rest = m_text.substr(end, 3);
        if (rest.starts_with("++") && !rest.ends_with("+++") && !isWordAt(end + 2))
            return rest.substr(0, 2);
        if (rest.starts_with("#") && !rest.starts_with("##") && !isWordAt(end + 1))
            return rest.substr(0, 1);
        return {};
    }

    // "#tag": a number sign directly before a word, and nothing before that which it could belong to.
    [[nodiscard]] bool isTag(std::size_t start) const
    {
        if (start == 0 || m_text[start - 1] != '#')
            return false;
        if (start == 1)
            return true;
        const auto before = static_cast<unsigned char>(m_text[start - 2]);
        return before < 0x80 && before != '#' && before != '&' && !CharacterTable::foldASCII(before);
    }

    bool word()
    {
        const auto start = m_offset;
        const auto end = readWord();
        const auto signs = signsBehind(end);
        const bool tag = isTag(start) && signs.empty();
        if (signs.empty() && !tag)
            return m_sink.token({m_word.data(), m_length}, start, end, false);
        return wordWithSigns(start, end, tag, signs);
    }

    bool wordWithSigns(std::size_t start, std::size_t end, bool tag, std::string_view signs)
    {
        const std::string_view plain(m_word.data(), m_length);
        std::string special;
        if (tag)
            special = "#";
        special.append(plain).append(signs);
        const auto from = tag ? start - 1 : start;
        const auto to = end + signs.size();
        m_offset = std::max(m_offset, to);
        if (m_purpose == TokenizeFor::Query)
            return m_sink.token(special, from, to, false);
        return m_sink.token(plain, from, to, false) && m_sink.token(special, from, to, true);
    }

    bool ideograph(const Decoded& first)
    {
        const auto start = m_offset;
        m_offset = first.end;
        if (first.character.kind == CharacterKind::KanaMark)
            return true; // A mark on nothing.
        char32_t composed = first.codePoint;
        while (m_offset < m_text.size()) {
            const auto next = decode(m_offset);
            if (next.character.kind != CharacterKind::KanaMark && next.character.kind != CharacterKind::Jamo)
                break;
            const auto pair = composedPair(foldedSingle(composed), combiningKanaMark(next.codePoint));
            if (!pair)
                break;
            composed = *pair;
            m_offset = next.end;
        }
        return ideographs(CharacterTable::fold(CharacterTable::character(composed)), start);
    }

    // Half-width kana compose in their full-width form.
    static char32_t foldedSingle(char32_t codePoint)
    {
        const auto folded = CharacterTable::fold(CharacterTable::character(codePoint));
        std::size_t offset = 0;
        const auto single = folded.empty() ? codePoint : nextCodePoint(folded, offset);
        return offset == folded.size() ? single : codePoint;
    }

    // A squared sign such as ㍿ folds to several characters, each a token of its own.
    bool ideographs(std::string_view folded, std::size_t start)
    {
        for (std::size_t offset = 0; offset < folded.size();) {
            const auto begin = offset;
            const auto codePoint = nextCodePoint(folded, offset);
            if (CharacterTable::character(codePoint).kind == CharacterKind::Separator)
                continue;
            if (!m_sink.token(folded.substr(begin, offset - begin), start, m_offset, false))
                return false;
        }
        return true;
    }

    bool emoji(const Decoded& next)
    {
        const auto start = m_offset;
        m_offset = next.end;
        return m_sink.token(m_text.substr(start, next.end - start), start, next.end, false);
    }

    bool dictionaryRun()
    {
        const auto start = m_offset;
        while (m_offset < m_text.size() && m_offset - start < kDictionaryRunByteCount && !isASCII(m_offset)) {
            const auto next = decode(m_offset);
            const auto kind = next.character.kind;
            if (kind != CharacterKind::Dictionary && kind != CharacterKind::Ignorable)
                break;
            m_offset = next.end;
        }
        if (!m_breaker)
            m_breaker = std::make_unique<DictionaryBreaker>();
        const auto run = m_text.substr(start, m_offset - start);
        return m_breaker->forEachWord(run, [&](std::size_t begin, std::size_t end) {
            return dictionaryWord(run.substr(begin, end - begin), start + begin);
        });
    }

    bool dictionaryWord(std::string_view text, std::size_t start)
    {
        m_length = 0;
        m_cut = false;
        for (std::size_t offset = 0; offset < text.size();)
            append(CharacterTable::fold(CharacterTable::character(nextCodePoint(text, offset))));
        return m_length == 0 || m_sink.token({m_word.data(), m_length}, start, start + text.size(), false);
    }

    std::string_view m_text;
    TokenizeFor m_purpose;
    TokenSink& m_sink;
    std::unique_ptr<DictionaryBreaker>& m_breaker;
    std::size_t m_offset = 0;
    std::size_t m_length = 0;
    bool m_cut = false;
    std::array<char, kMaximumTokenByteCount> m_word{};
};

Tokenizer::Tokenizer() = default;
Tokenizer::~Tokenizer() = default;

bool Tokenizer::tokenize(std::string_view text, TokenizeFor purpose, TokenSink& sink)
{
    return Run(text, purpose, sink, m_breaker).tokenize();
}
