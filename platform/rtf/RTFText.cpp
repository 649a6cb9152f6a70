#include "platform/rtf/RTFText.h"

#include "platform/foundation/Unicode.h"
#include "platform/rtf/RTFByteDecoder.h"
#include "platform/rtf/RTFFonts.h"
#include "platform/rtf/RTFTokenizer.h"
#include "platform/rtf/RTFWords.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

namespace {

// Deeper groups are counted but share the state of the deepest that has one.
constexpr std::size_t kDeepestState = 10'000;
constexpr std::size_t kPieceByteCount = 16384;
constexpr std::size_t kFieldByteCount = 4096;
constexpr std::size_t kMostFields = 100;
constexpr std::int32_t kLongestSkip = 1000;
constexpr char32_t kObjectReplacementCharacter = 0xFFFC;
constexpr char kAttachmentPlaceholder = '\xAC';

enum class Destination : std::uint8_t { Text, Nothing, FontTable, Information, Field, Alternatives };

/// What a group inherits and gives back at its end.
struct State {
    Destination destination = Destination::Text;
    bool isHidden = false;
    bool usesAssociatedFont = false;
    bool endsLine = false;
    bool isAttachment = false;
    std::int32_t skipCount = 1;
    std::optional<std::int32_t> font;
    std::optional<std::int32_t> associatedFont;
};

/// Runs over the tokens of one document.
class RTFTextMaker {
public:
    RTFTextMaker(std::string_view bytes, const RTFTextReceiver& receiver)
        : m_tokenizer(bytes)
        , m_receiver(receiver)
    {
    }

    RTFTextResult run()
    {
        m_result.isRTF = true;
        while (!m_isStopped && !m_result.isComplete) {
            const auto token = m_tokenizer.next();
            if (token.kind == RTFToken::Kind::End)
                break;
            take(token);
        }
        flush();
        return std::move(m_result);
    }

private:
    void take(const RTFToken& token);
    void beginGroup();
    void endGroup();
    void takeWord(const RTFToken& token);
    void takeSymbol(char symbol);
    void takeBytes(std::string_view bytes);
    void apply(const RTFWord& word, std::int32_t parameter, bool hasParameter);
    void applyDestination(const RTFWord& word);
    void applyFont(RTFAction action, std::int32_t parameter);
    void takeUnicode(std::int32_t parameter);
    void appendCharacter(char32_t character);
    void appendLineEnd();
    void finishSurrogate();
    [[nodiscard]] bool consumeSkip();
    [[nodiscard]] bool isShown() const;

    [[nodiscard]] std::string& target()
    {
        return m_state.destination == Destination::Field ? m_fieldValue : m_text;
    }

    void flush();

    RTFTokenizer m_tokenizer;
    const RTFTextReceiver& m_receiver;
    RTFTextResult m_result;
    RTFFonts m_fonts;
    RTFByteDecoder m_decoder;
    State m_state;
    std::vector<State> m_outerStates;
    std::size_t m_deeperGroups = 0;
    std::int32_t m_toSkip = 0;
    char16_t m_leadSurrogate = 0;
    bool m_isAtGroupStart = false;
    bool m_isOptional = false;
    bool m_isAfterAttachment = false;
    bool m_isStopped = false;
    std::string_view m_fieldName;
    std::string m_fieldValue;
    std::string m_text;
};

void RTFTextMaker::take(const RTFToken& token)
{
    switch (token.kind) {
    case RTFToken::Kind::GroupStart:
        beginGroup();
        break;
    case RTFToken::Kind::GroupEnd:
        endGroup();
        break;
    case RTFToken::Kind::Word:
        takeWord(token);
        break;
    case RTFToken::Kind::Symbol:
        if (!consumeSkip())
            takeSymbol(token.byte);
        break;
    case RTFToken::Kind::Byte:
        if (!consumeSkip())
            takeBytes({&token.byte, 1});
        break;
    case RTFToken::Kind::Text: {
        const auto skipped = std::min(static_cast<std::size_t>(m_toSkip), token.bytes.size());
        m_toSkip -= static_cast<std::int32_t>(skipped);
        takeBytes(token.bytes.substr(skipped));
        break;
    }
    case RTFToken::Kind::Binary:
        (void)consumeSkip();
        m_isAtGroupStart = false;
        break;
    case RTFToken::Kind::End:
        break;
    }
    if (m_text.size() >= kPieceByteCount)
        flush();
}

// The stand-ins of a Unicode character: each byte, control word or symbol counts one.
bool RTFTextMaker::consumeSkip()
{
    if (m_toSkip == 0)
        return false;
    --m_toSkip;
    return true;
}

bool RTFTextMaker::isShown() const
{
    return m_state.destination == Destination::Field
        || (m_state.destination == Destination::Text && !m_state.isHidden);
}

void RTFTextMaker::beginGroup()
{
    m_toSkip = 0;
    if (m_outerStates.size() < kDeepestState) {
        m_outerStates.push_back(m_state);
        m_state.endsLine = false;
        m_state.isAttachment = false;
    } else {
        ++m_deeperGroups;
    }
    m_isAtGroupStart = true;
    m_isOptional = false;
}

void RTFTextMaker::endGroup()
{
    m_toSkip = 0;
    m_isAtGroupStart = false;
    if (m_deeperGroups > 0) {
        --m_deeperGroups;
        return;
    }
    finishSurrogate();
    m_decoder.flush(target());
    if (m_state.endsLine)
        appendLineEnd();
    m_isAfterAttachment = m_state.isAttachment;
    const auto ended = m_state.destination;
    if (!m_outerStates.empty()) {
        m_state = m_outerStates.back();
        m_outerStates.pop_back();
    }
    if (ended == Destination::Field && m_state.destination != Destination::Field
        && m_result.fields.size() < kMostFields)
        m_result.fields.push_back({std::string(m_fieldName), std::move(m_fieldValue)});
    if (m_isAfterAttachment)
        appendCharacter(kObjectReplacementCharacter);
    m_result.isComplete = m_outerStates.empty();
}

void RTFTextMaker::takeWord(const RTFToken& token)
{
    if (consumeSkip())
        return;
    const auto& word = meaningOfRTFWord(token.bytes);
    const bool isUnknownOption = m_isOptional && word.action == RTFAction::None;
    m_isAtGroupStart = false;
    m_isOptional = false;
    if (isUnknownOption)
        m_state.destination = Destination::Nothing;
    else
        apply(word, token.parameter.value_or(0), token.parameter.has_value());
}

void RTFTextMaker::takeSymbol(char symbol)
{
    if (symbol == '*') {
        m_isOptional = m_isAtGroupStart;
        return;
    }
    m_isAtGroupStart = false;
    switch (symbol) {
    case '\r':
    case '\n':
        appendLineEnd();
        break;
    case '\t':
        appendCharacter(U'\t');
        break;
    case '~':
        appendCharacter(U'\u00A0');
        break;
    case '_':
        appendCharacter(U'\u2011');
        break;
    default:
        break;
    }
}

void RTFTextMaker::takeBytes(std::string_view bytes)
{
    if (bytes.empty())
        return;
    m_isAtGroupStart = false;
    if (m_isAfterAttachment && bytes.front() == kAttachmentPlaceholder)
        bytes.remove_prefix(1);
    m_isAfterAttachment = false;
    if (!isShown())
        return;
    finishSurrogate();
    const auto& font
        = m_state.usesAssociatedFont && m_state.associatedFont ? m_state.associatedFont : m_state.font;
    if (m_state.destination != Destination::Field || m_fieldValue.size() < kFieldByteCount)
        m_decoder.append(bytes, m_fonts.codePageForFont(font), target());
}

void RTFTextMaker::apply(const RTFWord& word, std::int32_t parameter, bool hasParameter)
{
    switch (word.action) {
    case RTFAction::None:
        break;
    case RTFAction::Character:
        appendCharacter(word.character);
        break;
    case RTFAction::LineEnd:
        appendLineEnd();
        break;
    case RTFAction::UnicodeCharacter:
        if (hasParameter)
            takeUnicode(parameter);
        break;
    case RTFAction::UnicodeSkipCount:
        m_state.skipCount = std::clamp(hasParameter ? parameter : 1, 0, kLongestSkip);
        break;
    case RTFAction::Hidden:
        m_state.isHidden = !hasParameter || parameter != 0;
        break;
    case RTFAction::Plain:
        m_state.isHidden = false;
        m_state.usesAssociatedFont = false;
        m_state.font.reset();
        m_state.associatedFont.reset();
        break;
    case RTFAction::MainFontRun:
    case RTFAction::AssociatedFontRun:
        m_state.usesAssociatedFont = word.action == RTFAction::AssociatedFontRun;
        break;
    case RTFAction::MacintoshCharacters:
        m_fonts.setDocumentCodePage(10000);
        break;
    case RTFAction::PCCharacters:
        m_fonts.setDocumentCodePage(437);
        break;
    case RTFAction::PCInternationalCharacters:
        m_fonts.setDocumentCodePage(850);
        break;
    case RTFAction::AnsiCodePage:
    case RTFAction::Font:
    case RTFAction::AssociatedFont:
    case RTFAction::FontCharset:
    case RTFAction::FontCodePage:
    case RTFAction::DefaultFont:
        applyFont(word.action, parameter);
        break;
    default:
        applyDestination(word);
        break;
    }
}

void RTFTextMaker::applyFont(RTFAction action, std::int32_t parameter)
{
    const bool isInTable = m_state.destination == Destination::FontTable;
    if (action == RTFAction::AnsiCodePage)
        m_fonts.setDocumentCodePage(parameter);
    else if (action == RTFAction::DefaultFont)
        m_fonts.setDefaultFont(parameter);
    else if (action == RTFAction::Font && isInTable)
        m_fonts.beginFont(parameter);
    else if (action == RTFAction::Font)
        m_state.font = parameter;
    else if (action == RTFAction::AssociatedFont && m_state.usesAssociatedFont)
        m_state.associatedFont = parameter;
    else if (action == RTFAction::FontCharset && isInTable)
        m_fonts.setCharset(parameter);
    else if (action == RTFAction::FontCodePage && isInTable)
        m_fonts.setCodePage(parameter);
}

void RTFTextMaker::applyDestination(const RTFWord& word)
{
    const auto current = m_state.destination;
    if (current == Destination::Alternatives && word.action == RTFAction::UnicodeAlternative) {
        m_state.destination = Destination::Text;
        return;
    }
    if (current == Destination::Information && word.action == RTFAction::InformationEntry) {
        m_state.destination = Destination::Field;
        m_fieldName = word.fieldName;
        m_fieldValue.clear();
        return;
    }
    if (current != Destination::Text)
        return;
    switch (word.action) {
    case RTFAction::SkipGroup:
    case RTFAction::AttachmentGroup:
        m_state.destination = Destination::Nothing;
        m_state.isAttachment = word.action == RTFAction::AttachmentGroup;
        break;
    case RTFAction::TextGroup:
        appendLineEnd();
        m_state.endsLine = true;
        break;
    case RTFAction::FontTable:
        m_state.destination = Destination::FontTable;
        break;
    case RTFAction::InformationGroup:
        m_state.destination = Destination::Information;
        break;
    case RTFAction::AlternativesGroup:
        m_state.destination = Destination::Alternatives;
        break;
    default:
        break;
    }
}

void RTFTextMaker::takeUnicode(std::int32_t parameter)
{
    m_toSkip = m_state.skipCount;
    if (parameter < -0x8000 || parameter > 0xFFFF)
        return appendCharacter(kReplacementCharacter);
    const auto unit = static_cast<char16_t>(static_cast<std::uint32_t>(parameter) & 0xFFFFU);
    const bool isLead = (unit & 0xFC00U) == 0xD800;
    const bool isTrail = (unit & 0xFC00U) == 0xDC00;
    if (isTrail && m_leadSurrogate != 0) {
        const auto upper = static_cast<char32_t>(m_leadSurrogate & 0x3FFU);
        m_leadSurrogate = 0;
        return appendCharacter(0x10000 + (upper << 10U) + (unit & 0x3FFU));
    }
    finishSurrogate();
    if (isLead)
        m_leadSurrogate = unit;
    else
        appendCharacter(unit); // A trail surrogate alone becomes a replacement character.
}

void RTFTextMaker::finishSurrogate()
{
    if (m_leadSurrogate == 0)
        return;
    m_leadSurrogate = 0;
    appendCharacter(kReplacementCharacter);
}

void RTFTextMaker::appendCharacter(char32_t character)
{
    finishSurrogate();
    if (!isShown())
        return;
    m_decoder.flush(target());
    appendUTF8(target(), character);
}

void RTFTextMaker::appendLineEnd()
{
    appendCharacter(U'\n');
}

void RTFTextMaker::flush()
{
    m_decoder.flush(target());
    if (!m_text.empty() && !m_receiver(m_text))
        m_isStopped = true;
    m_text.clear();
}

std::string_view withoutPreamble(std::string_view bytes)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kMark))
        bytes.remove_prefix(kMark.size());
    const auto start = bytes.find_first_not_of(" \t\r\n");
    return start == std::string_view::npos ? std::string_view() : bytes.substr(start);
}

} // namespace

RTFTextResult readRTFText(std::string_view bytes, const RTFTextReceiver& receiver)
{
    const auto document = withoutPreamble(bytes);
    if (!document.starts_with("{\\rtf"))
        return {};
    return RTFTextMaker(document, receiver).run();
}
