#include "platform/rtf/RTFReader.h"

#include "platform/foundation/Unicode.h"
#include "platform/rtf/RTFBodyReading.h"
#include "platform/rtf/RTFByteDecoder.h"
#include "platform/rtf/RTFDestinationReading.h"
#include "platform/rtf/RTFLimits.h"
#include "platform/rtf/RTFReaderState.h"
#include "platform/rtf/RTFReaderWords.h"
#include "platform/rtf/RTFTokenizer.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::string_view kParagraphStart = "pard";
constexpr char kAttachmentPlaceholder = '\xAC';

std::string_view withoutPreamble(std::string_view bytes)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kMark))
        bytes.remove_prefix(kMark.size());
    const auto start = bytes.find_first_not_of(" \t\r\n");
    return start == std::string_view::npos ? std::string_view() : bytes.substr(start);
}

bool isASCII(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

/// Whether the word is part of a text, be it a name or an instruction.
bool isCharacter(const RTFWord& word)
{
    return word.action == RTFAction::Character || word.action == RTFAction::UnicodeCharacter
        || word.action == RTFAction::UnicodeSkipCount;
}

/// Runs over the tokens of one document.
class DocumentReader {
public:
    DocumentReader(std::string_view bytes, bool keepsMarkers, const RTFMemberFinder& findMember)
        : m_tokenizer(bytes)
        , m_keepsMarkers(keepsMarkers)
        , m_destinations(m_body, findMember)
    {
    }

    RTFDocument read()
    {
        do {
            const auto token = m_tokenizer.next();
            if (token.kind == RTFToken::Kind::End)
                break;
            take(token);
        } while (!m_states.isOutside());
        flush();
        RTFDocument document{m_body.finish(m_lastState ? *m_lastState : state()),
                             m_destinations.takeInformation()};
        m_body.settings.addTo(document.attributes);
        return document;
    }

private:
    [[nodiscard]] RTFReaderState& state() { return m_states.current(); }

    [[nodiscard]] const RTFReaderState& state() const { return m_states.current(); }

    [[nodiscard]] bool isText() const { return state().destination == RTFDestination::Text; }

    void take(const RTFToken& token);
    void takeText(std::string_view bytes);
    void beginGroup();
    void endGroup();
    void takeWord(const RTFToken& token);
    void applyWord(std::string_view name, RTFParameter parameter, bool isOptional);
    void applyAction(RTFReaderAction action, RTFParameter parameter);
    void applyBreak(RTFReaderAction action);
    void applyTextWord(const RTFWord& word, RTFParameter parameter);

    void beginDestination(RTFDestination destination) { m_destinations.begin(state(), destination); }

    void takeSymbol(char symbol);
    void takeBytes(std::string_view bytes);
    void takeSymbolBytes(std::string_view bytes);
    void takeUnicode(std::int32_t parameter);
    void appendCharacter(char32_t character);
    void appendUnits(std::u16string_view units);
    void flush();
    [[nodiscard]] bool consumeStandIn();
    [[nodiscard]] std::uint16_t codePage() const;
    /// The depth that words about rows are about.
    [[nodiscard]] std::size_t rowDepth() const;

    RTFTokenizer m_tokenizer;
    bool m_keepsMarkers;
    RTFReaderStates m_states;
    RTFBodyReading m_body;
    RTFDestinationReading m_destinations;
    RTFByteDecoder m_decoder;
    std::string m_decoded;
    std::u16string m_units;
    /// Of the outermost group, when it has ended.
    std::optional<RTFReaderState> m_lastState;
    std::optional<std::int32_t> m_defaultFont;
    std::size_t m_standInsLeft = 0;
    bool m_isAtGroupStart = false;
    bool m_isOptional = false;
    bool m_isBehindAttachment = false;
};

void DocumentReader::take(const RTFToken& token)
{
    switch (token.kind) {
    case RTFToken::Kind::GroupStart:
        return beginGroup();
    case RTFToken::Kind::GroupEnd:
        return endGroup();
    case RTFToken::Kind::Word:
        return takeWord(token);
    case RTFToken::Kind::Symbol:
        if (!consumeStandIn())
            takeSymbol(token.byte);
        return;
    case RTFToken::Kind::Byte:
        if (!consumeStandIn())
            takeBytes({&token.byte, 1});
        return;
    case RTFToken::Kind::Text:
        return takeText(token.bytes);
    case RTFToken::Kind::Binary:
        if (!consumeStandIn())
            m_destinations.takeBinary(state(), token.bytes);
        return;
    case RTFToken::Kind::End:
        return;
    }
}

/// The stand-ins of a Unicode character: each byte, control word or symbol counts one.
bool DocumentReader::consumeStandIn()
{
    if (m_standInsLeft == 0)
        return false;
    --m_standInsLeft;
    return true;
}

void DocumentReader::takeText(std::string_view bytes)
{
    const auto skipped = std::min(m_standInsLeft, bytes.size());
    m_standInsLeft -= skipped;
    takeBytes(bytes.substr(skipped));
}

void DocumentReader::beginGroup()
{
    flush();
    m_standInsLeft = 0;
    m_isBehindAttachment = false;
    m_states.begin();
    m_isAtGroupStart = true;
    m_isOptional = false;
}

void DocumentReader::endGroup()
{
    flush();
    m_standInsLeft = 0;
    m_isAtGroupStart = false;
    auto ended = m_states.end();
    if (!ended)
        return;
    m_destinations.endGroup(*ended, state());
    m_isBehindAttachment = ended->endsDestination && ended->destination == RTFDestination::Attachment;
    if (m_states.isOutside())
        m_lastState = std::move(ended);
}

void DocumentReader::takeWord(const RTFToken& token)
{
    if (consumeStandIn())
        return;
    const bool isOptional = std::exchange(m_isOptional, false);
    m_isAtGroupStart = false;
    m_isBehindAttachment = false;
    if (state().destination == RTFDestination::Nothing)
        return;
    flush();
    applyWord(token.bytes, {token.parameter}, isOptional);
}

void DocumentReader::applyWord(std::string_view name, RTFParameter parameter, bool isOptional)
{
    const auto& word = readerWordNamed(name);
    if (!isText()) {
        const auto before = state().destination;
        const auto* const* textWord = std::get_if<const RTFWord*>(&word);
        if (textWord)
            applyTextWord(**textWord, parameter);
        const bool isTaken = textWord && (isCharacter(**textWord) || state().destination != before);
        if (!isTaken)
            m_destinations.takeWord(state(), name, parameter, isOptional);
        return;
    }
    if (const auto* const change = std::get_if<RTFCharacterChange>(&word)) {
        (*change)(state().run.character, parameter);
    } else if (const auto* const action = std::get_if<RTFReaderAction>(&word)) {
        applyAction(*action, parameter);
    } else if (const auto* const paragraphChange = std::get_if<RTFParagraphChange>(&word)) {
        (*paragraphChange)(state().changedParagraph(), parameter);
        if (name == kParagraphStart)
            m_body.beginParagraph();
    } else if (const auto* const rowChange = std::get_if<RTFRowChange>(&word)) {
        if (auto* const row = m_body.tables.definitionAt(rowDepth()))
            (*rowChange)(*row, parameter);
    } else if (const auto* const documentChange = std::get_if<RTFDocumentChange>(&word)) {
        (*documentChange)(m_body.settings, parameter);
    } else if (const auto* const* textWord = std::get_if<const RTFWord*>(&word)) {
        applyTextWord(**textWord, parameter);
    } else if (isOptional) {
        state().destination = RTFDestination::Nothing;
    }
}

void DocumentReader::applyAction(RTFReaderAction action, RTFParameter parameter)
{
    switch (action) {
    case RTFReaderAction::FontTable:
        return beginDestination(RTFDestination::FontTable);
    case RTFReaderAction::ColorTable:
        return beginDestination(RTFDestination::ColorTable);
    case RTFReaderAction::ExpandedColorTable:
        return beginDestination(RTFDestination::ExpandedColorTable);
    case RTFReaderAction::ListTable:
        return beginDestination(RTFDestination::ListTable);
    case RTFReaderAction::ListNumberTable:
        return beginDestination(RTFDestination::ListNumberTable);
    case RTFReaderAction::Information:
        return beginDestination(RTFDestination::Information);
    case RTFReaderAction::FieldInstruction:
        return beginDestination(RTFDestination::FieldInstruction);
    case RTFReaderAction::Attachment:
        return beginDestination(RTFDestination::Attachment);
    case RTFReaderAction::Picture:
        return beginDestination(RTFDestination::Picture);
    case RTFReaderAction::SkipGroup:
        return beginDestination(RTFDestination::Nothing);
    case RTFReaderAction::ListMarker:
        if (!m_keepsMarkers)
            beginDestination(RTFDestination::Nothing);
        return;
    case RTFReaderAction::OpenGroup:
        return;
    case RTFReaderAction::Field:
        return m_destinations.beginField(state());
    case RTFReaderAction::FieldResult:
        return m_destinations.beginFieldResult(state());
    case RTFReaderAction::Font:
        state().run.character.font = parameter.valueOr(0);
        return;
    case RTFReaderAction::Plain:
        state().run.character = {};
        state().run.character.font = m_defaultFont.value_or(0);
        state().isHidden = false;
        state().usesAssociatedFont = false;
        state().associatedFont.reset();
        return;
    case RTFReaderAction::Hidden:
        state().isHidden = parameter.isOn();
        return;
    case RTFReaderAction::KernSwitch:
        // What the platform means by it; other writers switch pairs of letters with it.
        if (m_body.settings.isCocoa() && !parameter.isOn() && !state().run.character.kern)
            state().run.character.kern = 0;
        return;
    default:
        return applyBreak(action);
    }
}

void DocumentReader::applyBreak(RTFReaderAction action)
{
    const auto depth = state().tableDepth();
    switch (action) {
    case RTFReaderAction::RowStart:
        return m_body.tables.beginRow(rowDepth());
    case RTFReaderAction::ParagraphEnd:
        return m_body.endParagraph(state());
    case RTFReaderAction::CellEnd:
        return m_body.endCell(state(), 1);
    case RTFReaderAction::NestedCellEnd:
        return m_body.endCell(state(), std::clamp<std::size_t>(depth, 2, kMostRTFTableDepth));
    case RTFReaderAction::RowEnd:
        return m_body.endRow(1);
    case RTFReaderAction::NestedRowEnd:
        return m_body.endRow(std::clamp<std::size_t>(depth, 2, kMostRTFTableDepth));
    default:
        return;
    }
}

std::size_t DocumentReader::rowDepth() const
{
    const auto& paragraph = state().paragraph;
    return static_cast<std::size_t>(std::clamp<std::int32_t>(paragraph ? paragraph->tableDepth : 1, 1,
                                                             static_cast<std::int32_t>(kMostRTFTableDepth)));
}

void DocumentReader::applyTextWord(const RTFWord& word, RTFParameter parameter)
{
    auto& codePages = m_body.fonts.codePages();
    switch (word.action) {
    case RTFAction::Character:
        return appendCharacter(word.character);
    case RTFAction::SkipGroup:
        state().destination = RTFDestination::Nothing;
        return;
    case RTFAction::AlternativesGroup:
        state().alternative = state().destination;
        state().destination = RTFDestination::Alternatives;
        return;
    case RTFAction::UnicodeAlternative:
        if (state().destination == RTFDestination::Alternatives)
            state().destination = state().alternative;
        return;
    case RTFAction::UnicodeCharacter:
        if (parameter.value)
            takeUnicode(*parameter.value);
        return;
    case RTFAction::UnicodeSkipCount:
        state().standIns = std::clamp(parameter.valueOr(1), 0, kMostRTFStandIns);
        return;
    case RTFAction::DefaultFont:
        m_defaultFont = parameter.valueOr(0);
        codePages.setDefaultFont(*m_defaultFont);
        state().run.character.font = m_defaultFont;
        return;
    case RTFAction::AssociatedFont:
        if (state().usesAssociatedFont)
            state().associatedFont = parameter.valueOr(0);
        return;
    case RTFAction::MainFontRun:
    case RTFAction::AssociatedFontRun:
        state().usesAssociatedFont = word.action == RTFAction::AssociatedFontRun;
        return;
    case RTFAction::AnsiCodePage:
        return codePages.setDocumentCodePage(parameter.valueOr(0));
    case RTFAction::MacintoshCharacters:
        return codePages.setDocumentCodePage(10000);
    case RTFAction::PCCharacters:
        return codePages.setDocumentCodePage(437);
    case RTFAction::PCInternationalCharacters:
        return codePages.setDocumentCodePage(850);
    default:
        return;
    }
}

void DocumentReader::takeSymbol(char symbol)
{
    if (symbol == '*') {
        m_isOptional = m_isAtGroupStart;
        return;
    }
    m_isAtGroupStart = false;
    m_isBehindAttachment = false;
    switch (symbol) {
    case '\r':
    case '\n':
        flush();
        if (isText())
            m_body.endParagraph(state());
        return;
    case '\t':
        return appendCharacter(U'\t');
    case '~':
        return appendCharacter(U'\u00A0');
    case '_':
        return appendCharacter(U'\u2011');
    default:
        return;
    }
}

std::uint16_t DocumentReader::codePage() const
{
    const auto& current = state();
    const bool isAssociated = current.usesAssociatedFont && current.associatedFont;
    return m_body.fonts.codePages().codePageForFont(isAssociated ? current.associatedFont
                                                                 : current.run.character.font);
}

void DocumentReader::takeBytes(std::string_view bytes)
{
    if (bytes.empty())
        return;
    m_isAtGroupStart = false;
    if (std::exchange(m_isBehindAttachment, false) && bytes.front() == kAttachmentPlaceholder)
        bytes.remove_prefix(1);
    switch (state().destination) {
    case RTFDestination::Nothing:
        return;
    case RTFDestination::Attachment:
    case RTFDestination::Picture:
        return m_destinations.takeText(state(), bytes);
    case RTFDestination::Text:
        if (state().isHidden)
            return;
        if (m_decoder.isEmpty() && m_decoded.empty() && isASCII(bytes)) {
            m_units.assign(bytes.begin(), bytes.end());
            return m_body.append(m_units, state());
        }
        if (m_body.fonts.isSymbolFont(state().run.character.font))
            return takeSymbolBytes(bytes);
        break;
    default:
        break;
    }
    m_decoder.append(bytes, codePage(), m_decoded);
}

/// Fonts of symbols have their characters in the private area that other programs use for them.
void DocumentReader::takeSymbolBytes(std::string_view bytes)
{
    constexpr char16_t kSymbolArea = 0xF000;
    m_units.clear();
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        m_units += static_cast<char16_t>(value < 0x80 ? value : kSymbolArea + value);
    }
    m_body.append(m_units, state());
}

/// Gives on what is decoded of the bytes since the last word or group.
void DocumentReader::flush()
{
    if (m_decoder.isEmpty() && m_decoded.empty())
        return;
    m_decoder.flush(m_decoded);
    if (isText())
        m_body.append(UTF16FromUTF8(m_decoded), state());
    else
        m_destinations.takeText(state(), m_decoded);
    m_decoded.clear();
}

void DocumentReader::takeUnicode(std::int32_t parameter)
{
    m_standInsLeft = static_cast<std::size_t>(state().standIns);
    if (parameter < -0x8000 || parameter > 0xFFFF)
        return appendCharacter(kReplacementCharacter);
    // Pairs come as two words. What stays alone becomes a replacement character in the end.
    const auto unit = static_cast<char16_t>(static_cast<std::uint32_t>(parameter) & 0xFFFFU);
    appendUnits({&unit, 1});
}

void DocumentReader::appendCharacter(char32_t character)
{
    const auto unit = static_cast<char16_t>(character);
    appendUnits({&unit, 1});
}

void DocumentReader::appendUnits(std::u16string_view units)
{
    flush();
    if (isText() && !state().isHidden)
        m_body.append(units, state());
    else if (!isText())
        m_destinations.takeUnits(state(), units);
}

} // namespace

bool isRTF(std::string_view bytes)
{
    return withoutPreamble(bytes).starts_with("{\\rtf");
}

std::optional<RTFDocument> readRTFDocument(std::string_view bytes, bool keepsMarkers,
                                           const RTFMemberFinder& findMember)
{
    const auto document = withoutPreamble(bytes);
    if (!isRTF(document))
        return std::nullopt;
    return DocumentReader(document, keepsMarkers, findMember).read();
}
