#include "platform/word/WordStoryHandler.h"

#include "platform/foundation/Unicode.h"
#include "platform/word/WordSymbols.h"

#include <algorithm>
#include <charconv>

namespace {

/// Texts beside texts beyond these are read as if they stood in the text.
constexpr std::size_t kMostStories = 16;
constexpr std::size_t kMostAddressBytes = 8192;
constexpr char16_t kLineSeparator = 0x2028;
constexpr char16_t kNoBreakHyphen = 0x2011;
constexpr char16_t kSoftHyphen = 0x00AD;

std::string address(std::string_view text)
{
    return std::string(text.size() <= kMostAddressBytes ? text : std::string_view());
}

} // namespace

WordStoryHandler::WordStoryHandler(WordDocumentState& document, const WordRelationships& relationships)
    : m_document(document)
    , m_relationships(relationships)
    , m_properties(document.theme)
    , m_tableProperties(document.theme)
{
    beginStory();
}

void WordStoryHandler::beginStory()
{
    m_stories.push_back({std::make_unique<WordStoryText>(m_document.reading), m_depth});
}

void WordStoryHandler::startElement(std::string_view localName, const XMLAttributes& attributes)
{
    ++m_depth;
    if (m_skippedDepth != 0)
        return;
    const auto role = wordElementRole(localName);
    if (role == Role::PageSize)
        m_document.layout.readSize(attributes);
    else if (role == Role::PageMargins)
        m_document.layout.readMargins(attributes);
    if (readProperties(localName, attributes))
        return;
    if (startsSkipping(role)) {
        m_skippedDepth = m_depth;
        return;
    }
    m_drawings.startElement(localName, attributes);
    startStructure(role);
    if (!startReference(role, attributes))
        startCharacter(role, attributes);
}

bool WordStoryHandler::readProperties(std::string_view localName, const XMLAttributes& attributes)
{
    if (m_properties.isReading())
        return m_properties.startElement(localName, attributes);
    return m_tableProperties.startElement(localName, attributes)
        || m_properties.startElement(localName, attributes);
}

bool WordStoryHandler::startsSkipping(Role role) const
{
    if (role == Role::Alternative)
        return !m_alternatives.empty() && m_textByteCount > m_alternatives.back().textByteCount;
    return role == Role::Hidden;
}

void WordStoryHandler::startStructure(Role role)
{
    const bool isBlock = role == Role::Paragraph || role == Role::Table || role == Role::TextBox;
    if (isBlock && story().isInParagraph() && m_stories.size() < kMostStories)
        beginStory();
    if (role == Role::Paragraph)
        story().beginParagraph();
    else if (role == Role::Table)
        story().beginTable();
    else if (role == Role::Row)
        story().beginRow();
    else if (role == Role::Cell)
        story().beginCell();
    else if (role == Role::Alternatives)
        m_alternatives.push_back({m_textByteCount, m_pictureCount, false});
    else if (role == Role::Alternative && !m_alternatives.empty())
        m_alternatives.back().hasPictures = m_pictureCount > m_alternatives.back().pictureCount;
    else if (role == Role::Raised || role == Role::Lowered)
        beginRaised(role == Role::Raised ? 1 : -1);
}

bool WordStoryHandler::startReference(Role role, const XMLAttributes& attributes)
{
    const auto refer = [&](WordNoteKind kind) {
        // The text has a mark of its own.
        if (!isWordValueOn(attributes.value("customMarkFollows")))
            story().appendMark(m_document.noteNumbers.markForReference(kind, attributes.value("id")));
    };
    switch (role) {
    case Role::Footnote:
        beginNote(WordNoteKind::Footnote, attributes);
        return true;
    case Role::Endnote:
        beginNote(WordNoteKind::Endnote, attributes);
        return true;
    case Role::Comment:
        beginNote(WordNoteKind::Comment, attributes);
        return true;
    case Role::FootnoteReference:
        refer(WordNoteKind::Footnote);
        return true;
    case Role::EndnoteReference:
        refer(WordNoteKind::Endnote);
        return true;
    case Role::CommentReference:
        refer(WordNoteKind::Comment);
        return true;
    case Role::NoteMark:
        putNoteMark();
        return true;
    case Role::Link:
        beginLink(attributes);
        return true;
    case Role::SimpleField:
        m_links.beginElement(m_depth, linkOfFieldInstruction(attributes.value("instr")));
        return true;
    case Role::FieldCharacter:
        readFieldCharacter(attributes.value("fldCharType"));
        return true;
    default:
        return false;
    }
}

void WordStoryHandler::startCharacter(Role role, const XMLAttributes& attributes)
{
    if (role == Role::Text || role == Role::FieldInstruction) {
        m_textDepth = m_depth;
        m_isInstruction = role == Role::FieldInstruction;
    } else if (role == Role::LineBreak) {
        put(attributes.value("type") == "page" ? u'\f' : kLineSeparator);
    } else if (role == Role::Tab) {
        put(u'\t');
    } else if (role == Role::NoBreakHyphen) {
        put(kNoBreakHyphen);
    } else if (role == Role::SoftHyphen) {
        put(kSoftHyphen);
    } else if (role == Role::Denominator) {
        put(u'/');
    } else if (role == Role::Symbol) {
        putSymbol(attributes);
    } else if (role == Role::WordArt) {
        put(attributes.value("string"));
    }
}

void WordStoryHandler::endElement(std::string_view localName)
{
    const auto depth = m_depth--;
    if (m_skippedDepth != 0) {
        m_skippedDepth = m_skippedDepth == depth ? 0 : m_skippedDepth;
        return;
    }
    if (endProperties())
        return;
    if (m_textDepth == depth)
        m_textDepth = 0;
    if (const auto picture = m_drawings.endElement(localName))
        putPicture(*picture);
    m_links.endElement(depth);
    endRaised(depth);
    endStructure(wordElementRole(localName));
    if (m_stories.size() > 1 && m_stories.back().depth == depth)
        endStory();
}

void WordStoryHandler::endStory()
{
    const auto ended = std::move(m_stories.back());
    m_stories.pop_back();
    story().appendBehindParagraph(ended.text->finish());
}

bool WordStoryHandler::endProperties()
{
    if (m_properties.isReading()) {
        const auto ended = m_properties.endElement();
        if (ended == WordPropertyReader::Ended::Paragraph)
            story().setParagraph(m_properties);
        else if (ended == WordPropertyReader::Ended::Run)
            story().setRun(m_properties);
        return true;
    }
    if (!m_tableProperties.isReading())
        return false;
    auto& tables = story().tables();
    const auto ended = m_tableProperties.endElement();
    if (ended == WordTablePropertyReader::Ended::Table)
        tables.setTableProperties(m_tableProperties.properties());
    else if (ended == WordTablePropertyReader::Ended::Row)
        tables.setRowProperties(m_tableProperties.properties());
    else if (ended == WordTablePropertyReader::Ended::Cell)
        tables.setCellProperties(m_tableProperties.properties());
    return true;
}

void WordStoryHandler::endStructure(Role role)
{
    if (role == Role::Paragraph || role == Role::TextBox)
        story().endParagraph();
    else if (role == Role::Run)
        story().endRun();
    else if (role == Role::Table)
        story().endTable();
    else if (role == Role::Cell)
        story().endCell();
    else if (role == Role::Alternatives && !m_alternatives.empty())
        m_alternatives.pop_back();
    else if (role == Role::Footnote || role == Role::Endnote || role == Role::Comment)
        endNote();
}

void WordStoryHandler::beginRaised(int level)
{
    m_raised.push_back({m_depth, m_raisedLevel});
    m_raisedLevel = level;
    story().setRaised(level);
}

void WordStoryHandler::endRaised(std::size_t depth)
{
    if (m_raised.empty() || m_raised.back().depth != depth)
        return;
    m_raisedLevel = m_raised.back().before;
    m_raised.pop_back();
    story().setRaised(m_raisedLevel);
}

void WordStoryHandler::beginNote(WordNoteKind kind, const XMLAttributes& attributes)
{
    story().endParagraph();
    const auto identifier = attributes.value("id");
    const auto type = attributes.value("type");
    WordNote note;
    note.kind = kind;
    note.identifier = identifier;
    note.range.location = story().length();
    note.isSeparator = !type.empty() && type != "normal";
    m_notes.push_back(std::move(note));
    m_noteMark = m_document.noteNumbers.mark(kind, identifier);
    m_isInNote = true;
}

void WordStoryHandler::endNote()
{
    if (!m_isInNote || m_stories.size() > 1)
        return;
    m_isInNote = false;
    story().endParagraph();
    auto& range = m_notes.back().range;
    range.length = story().length() - range.location;
}

void WordStoryHandler::putNoteMark()
{
    if (m_isInNote)
        story().appendMark(m_noteMark);
    m_noteMark.clear();
}

void WordStoryHandler::beginLink(const XMLAttributes& attributes)
{
    WordLink link;
    link.address = address(m_relationships.address(attributes.prefixedValue("id")));
    const auto anchor = attributes.value("anchor");
    if (!link.address.empty() && !anchor.empty() && link.address.find('#') == std::string::npos)
        link.address.append("#").append(address(anchor));
    link.toolTip = address(attributes.value("tooltip"));
    m_links.beginElement(m_depth, std::move(link));
}

void WordStoryHandler::readFieldCharacter(std::string_view kind)
{
    if (kind == "begin")
        m_links.beginField();
    else if (kind == "separate")
        m_links.beginResult();
    else if (kind == "end")
        m_links.endField();
}

void WordStoryHandler::text(std::string_view text)
{
    if (m_textDepth == 0 || m_textDepth != m_depth || m_skippedDepth != 0)
        return;
    if (m_isInstruction)
        m_links.appendInstruction(text);
    else
        put(text);
}

void WordStoryHandler::put(std::string_view text)
{
    if (text.empty())
        return;
    if (m_isInNote && !m_noteMark.empty()) {
        putNoteMark();
        put(u' ');
    }
    m_textByteCount += text.size();
    story().append(text, m_links.current());
}

void WordStoryHandler::put(char16_t unit)
{
    ++m_textByteCount;
    story().append(unit, m_links.current());
}

void WordStoryHandler::putPicture(const WordDrawings::Picture& picture)
{
    const auto member = m_relationships.pictureMember(picture.picture);
    const bool isShown = std::any_of(m_alternatives.begin(), m_alternatives.end(),
                                     [](const Alternatives& open) { return open.hasPictures; });
    if (member.empty() || isShown)
        return;
    const auto attachment = m_document.pictures.attachment(member, picture.size);
    if (!attachment)
        return;
    ++m_pictureCount;
    auto link = m_links.current();
    if (!picture.link.empty())
        link.address = address(m_relationships.address(picture.link));
    story().appendAttachment(attachment, link, picture.description);
}

void WordStoryHandler::putSymbol(const XMLAttributes& attributes)
{
    const auto digits = attributes.value("char");
    std::uint32_t code = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
    const auto symbol = result.ec == std::errc() ? wordSymbol(attributes.value("font"), code) : char16_t{0};
    if (symbol != 0)
        put(symbol);
}

const NSAttributedString& WordStoryHandler::finish()
{
    while (m_stories.size() > 1)
        endStory();
    endNote();
    return story().finish();
}
