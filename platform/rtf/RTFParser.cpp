#include "platform/rtf/RTFParser.h"

#include "platform/foundation/Unicode.h"
#include "platform/rtf/RTFCodePages.h"
#include "platform/rtf/RTFLimits.h"

#include <algorithm>
#include <utility>

namespace {

constexpr char kAttachmentPlaceholder = '\xAC';
constexpr std::int32_t kSymbolCharset = 2;

} // namespace

std::optional<std::string_view> rtfDocumentIn(std::string_view bytes)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kMark))
        bytes.remove_prefix(kMark.size());
    bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size()));
    if (!bytes.starts_with("{\\rtf"))
        return std::nullopt;
    return bytes;
}

bool RTFParser::parse()
{
    do {
        const auto token = m_tokenizer.next();
        if (token.kind == RTFToken::Kind::End)
            break;
        take(token);
    } while (!m_groups.isOutside() && !m_handler.hasEnough());
    if (m_handler.hasEnough())
        return false;
    m_text.finish(group().destination);
    return m_groups.isOutside();
}

void RTFParser::take(const RTFToken& token)
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
        m_isAtGroupStart = false;
        if (!consumeStandIn() && group().destination == RTFDestination::Picture)
            m_handler.takePictureData(token.bytes);
        return;
    case RTFToken::Kind::End:
        return;
    }
}

/// The stand-ins of a Unicode character: each byte, control word or symbol counts one.
bool RTFParser::consumeStandIn()
{
    if (m_standInsLeft == 0)
        return false;
    --m_standInsLeft;
    return true;
}

void RTFParser::beginGroup()
{
    flush();
    m_standInsLeft = 0;
    m_isBehindAttachment = false;
    if (m_groups.begin())
        m_handler.beginGroup();
    m_isAtGroupStart = true;
    m_isOptional = false;
}

void RTFParser::endGroup()
{
    if (group().begun)
        m_text.finish(group().destination);
    else
        flush();
    m_standInsLeft = 0;
    m_isAtGroupStart = false;
    const auto ended = m_groups.end();
    if (!ended)
        return;
    m_isBehindAttachment = ended->begun == RTFDestination::Attachment;
    m_handler.endGroup(ended->destination);
    if (ended->begun)
        m_handler.endDestination(*ended->begun, isShown());
}

void RTFParser::takeWord(const RTFToken& token)
{
    if (consumeStandIn())
        return;
    const bool isOptional = std::exchange(m_isOptional, false);
    m_isAtGroupStart = false;
    m_isBehindAttachment = false;
    if (group().destination == RTFDestination::Nothing)
        return;
    const RTFParameter parameter{token.parameter};
    const auto& word = meaningOfRTFWord(token.bytes);
    const auto* const action = std::get_if<RTFCharacterAction>(&word);
    if (action && applyCharacter(*action, parameter))
        return;
    flush();
    if (action)
        applyAction(*action, parameter);
    const auto* const destination = std::get_if<RTFDestination>(&word);
    const bool isKnown = isText() ? applyInText(word, parameter) : applyElsewhere(token.bytes, parameter);
    const bool isPassedOver = isOptional && !isKnown && !action;
    if (isPassedOver || (destination && *destination == RTFDestination::Nothing))
        group().destination = RTFDestination::Nothing;
}

/// Characters are collected as they come; all other words are about those that follow.
bool RTFParser::applyCharacter(RTFCharacterAction word, RTFParameter parameter)
{
    switch (word.action) {
    case RTFAction::Character:
        takeCharacter(word.value);
        return true;
    case RTFAction::UnicodeCharacter:
        if (parameter.value)
            takeUnicode(*parameter.value);
        return true;
    case RTFAction::UnicodeSkipCount:
        group().standIns = std::clamp(parameter.valueOr(1), 0, kMostRTFStandIns);
        return true;
    default:
        return false;
    }
}

void RTFParser::applyAction(RTFCharacterAction word, RTFParameter parameter)
{
    auto& current = group();
    switch (word.action) {
    case RTFAction::AlternativesGroup:
        current.alternative = current.destination;
        current.destination = RTFDestination::Alternatives;
        return;
    case RTFAction::UnicodeAlternative:
        if (current.destination == RTFDestination::Alternatives)
            current.destination = current.alternative;
        return;
    case RTFAction::MainFontRun:
    case RTFAction::AssociatedFontRun:
        current.usesAssociatedFont = word.action == RTFAction::AssociatedFontRun;
        return;
    case RTFAction::Hidden:
        current.isHidden = parameter.isOn();
        return;
    case RTFAction::Plain:
        current.isHidden = false;
        current.usesAssociatedFont = false;
        current.font.reset();
        current.associatedFont.reset();
        return m_handler.resetCharacters(m_fonts.defaultFont());
    case RTFAction::AnsiCodePage:
    case RTFAction::CodePage:
    case RTFAction::DefaultFont:
        // What holds for the whole document is said in its text, whichever other groups are read.
        if (isText())
            applyToDocument(word, parameter);
        return;
    default:
        return applyFont(word.action, parameter);
    }
}

void RTFParser::applyToDocument(RTFCharacterAction word, RTFParameter parameter)
{
    const auto number = parameter.valueOr(0);
    if (word.action != RTFAction::DefaultFont) {
        const bool isNamed = word.action == RTFAction::CodePage;
        m_fonts.setDocumentCodePage(isNamed ? static_cast<std::int32_t>(word.value) : number);
        return;
    }
    m_fonts.setDefaultFont(number);
    setFont(number);
}

void RTFParser::setFont(std::int32_t number)
{
    group().font = number;
    m_handler.setFont(number);
}

void RTFParser::applyFont(RTFAction action, RTFParameter parameter)
{
    const bool isInTable = group().destination == RTFDestination::FontTable;
    const auto number = parameter.valueOr(0);
    if (action == RTFAction::AssociatedFont && group().usesAssociatedFont) {
        group().associatedFont = number;
    } else if (action == RTFAction::Font && isInTable) {
        m_fonts.beginFont(number);
    } else if (action == RTFAction::Font) {
        setFont(number);
    } else if (action == RTFAction::FontCharset && isInTable) {
        if (number == kSymbolCharset && m_handler.keepsSymbols())
            m_fonts.setCodePage(kSymbolCodePage);
        else
            m_fonts.setCharset(number);
    } else if (action == RTFAction::FontCodePage && isInTable) {
        m_fonts.setCodePage(number);
    }
}

/// Whether the word is known.
bool RTFParser::applyInText(const RTFWord& word, RTFParameter parameter)
{
    if (const auto* const change = std::get_if<RTFFormatChange>(&word))
        m_handler.changeFormat(*change, parameter);
    else if (const auto* const action = std::get_if<RTFBodyAction>(&word))
        takeBodyAction(*action, parameter);
    else if (const auto* const destination = std::get_if<RTFDestination>(&word))
        beginDestination(*destination);
    return !std::holds_alternative<std::monostate>(word);
}

void RTFParser::beginDestination(RTFDestination destination)
{
    if (destination == RTFDestination::Nothing)
        return;
    m_text.finish(RTFDestination::Text);
    group().begun = destination;
    group().destination = m_handler.beginDestination(destination);
}

/// Whether the word is known to the destination.
bool RTFParser::applyElsewhere(std::string_view name, RTFParameter parameter)
{
    const auto destination = group().destination;
    if (destination == RTFDestination::Alternatives)
        return false;
    if (destination != RTFDestination::Information)
        return m_handler.takeDestinationWord(destination, name, parameter);
    if (!m_handler.beginInformation(name))
        return false;
    group().begun = RTFDestination::InformationEntry;
    group().destination = RTFDestination::InformationEntry;
    return true;
}

void RTFParser::takeSymbol(char symbol)
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
        if (isText())
            takeBodyAction(RTFBodyAction::ParagraphEnd, {});
        return;
    case '\t':
        return takeCharacter(U'\t');
    case '~':
        return takeCharacter(U'\u00A0');
    case '_':
        return takeCharacter(U'\u2011');
    default:
        return;
    }
}

void RTFParser::takeBodyAction(RTFBodyAction action, RTFParameter parameter)
{
    m_text.finish(RTFDestination::Text);
    m_handler.takeBodyAction(action, parameter);
}

std::uint16_t RTFParser::codePage() const
{
    const auto& current = group();
    const bool isAssociated = current.usesAssociatedFont && current.associatedFont;
    return m_fonts.codePageForFont(isAssociated ? current.associatedFont : current.font);
}

/// Whether characters go anywhere.
bool RTFParser::takesCharacters() const
{
    switch (group().destination) {
    case RTFDestination::Text:
        return !group().isHidden;
    case RTFDestination::Nothing:
    case RTFDestination::Alternatives:
    case RTFDestination::Information:
        return false;
    default:
        return true;
    }
}

void RTFParser::takeText(std::string_view bytes)
{
    const auto skipped = std::min(m_standInsLeft, bytes.size());
    m_standInsLeft -= skipped;
    takeBytes(bytes.substr(skipped));
}

void RTFParser::takeBytes(std::string_view bytes)
{
    if (bytes.empty())
        return;
    m_isAtGroupStart = false;
    if (std::exchange(m_isBehindAttachment, false) && bytes.front() == kAttachmentPlaceholder)
        bytes.remove_prefix(1);
    if (bytes.empty() || !takesCharacters())
        return;
    const auto destination = group().destination;
    if (destination != RTFDestination::Attachment && destination != RTFDestination::Picture)
        return m_text.appendBytes(bytes, codePage(), destination);
    m_text.finish(destination);
    m_handler.takeDestinationText(destination, bytes);
}

void RTFParser::takeUnicode(std::int32_t parameter)
{
    m_standInsLeft = static_cast<std::size_t>(group().standIns);
    if (!takesCharacters())
        return;
    if (parameter < -0x8000 || parameter > 0xFFFF)
        return m_text.appendCharacter(kReplacementCharacter, group().destination);
    m_text.appendUnit(static_cast<char16_t>(static_cast<std::uint32_t>(parameter) & 0xFFFFU),
                      group().destination);
}

void RTFParser::takeCharacter(char32_t character)
{
    if (takesCharacters())
        m_text.appendCharacter(character, group().destination);
}
