#include "platform/rtf/RTFReader.h"

#include "platform/foundation/Unicode.h"
#include "platform/rtf/RTFBodyReading.h"
#include "platform/rtf/RTFDestinationReading.h"
#include "platform/rtf/RTFHandler.h"
#include "platform/rtf/RTFLimits.h"
#include "platform/rtf/RTFParser.h"
#include "platform/rtf/RTFReaderState.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

/// Makes attributed text of a document.
class DocumentReader : public RTFHandler {
public:
    DocumentReader(RTFListMarkerText markers, const RTFMemberFinder& findMember)
        : m_markers(markers)
        , m_destinations(m_body, findMember)
    {
    }

    /// What was read, once.
    RTFDocument finish()
    {
        RTFDocument document{m_body.finish(m_state), m_destinations.takeInformation()};
        m_body.settings.addTo(document.attributes);
        return document;
    }

    [[nodiscard]] bool keepsSymbols() const override { return true; }

    void appendText(std::string_view text) override;
    void takeBodyAction(RTFBodyAction action, RTFParameter parameter) override;
    void changeFormat(const RTFFormatChange& change, RTFParameter parameter) override;

    void setFont(std::int32_t number) override { m_state.run.character.font = number; }

    void resetCharacters(std::int32_t font) override
    {
        m_state.run.character = {};
        m_state.run.character.font = font;
    }

    void beginGroup() override;
    void endGroup(RTFDestination destination) override;
    RTFDestination beginDestination(RTFDestination destination) override;

    bool beginInformation(std::string_view name) override { return m_destinations.beginInformation(name); }

    bool takeDestinationWord(RTFDestination destination, std::string_view name,
                             RTFParameter parameter) override
    {
        return m_destinations.takeWord(destination, m_state, name, parameter);
    }

    void takeDestinationText(RTFDestination destination, std::string_view text) override
    {
        m_destinations.takeText(destination, m_state, text);
    }

    void takePictureData(std::string_view data) override { m_destinations.takePictureData(data); }

    void endDestination(RTFDestination destination, bool isShown) override
    {
        m_destinations.end(destination, m_state, isShown);
    }

private:
    void takeBreak(RTFBodyAction action);
    /// The depth that words about rows are about.
    [[nodiscard]] std::size_t rowDepth() const;

    RTFListMarkerText m_markers;
    RTFReaderState m_state;
    std::vector<RTFReaderState> m_outerStates;
    RTFBodyReading m_body;
    RTFDestinationReading m_destinations;
    std::u16string m_units;
};

void DocumentReader::appendText(std::string_view text)
{
    if (!isASCII(text))
        return m_body.append(UTF16FromUTF8(text), m_state);
    m_units.assign(text.begin(), text.end());
    m_body.append(m_units, m_state);
}

void DocumentReader::changeFormat(const RTFFormatChange& change, RTFParameter parameter)
{
    if (const auto* const character = std::get_if<RTFCharacterChange>(&change)) {
        (*character)(m_state.run.character, parameter);
    } else if (const auto* const paragraph = std::get_if<RTFParagraphChange>(&change)) {
        (*paragraph)(m_state.changedParagraph(), parameter);
    } else if (const auto* const document = std::get_if<RTFDocumentChange>(&change)) {
        (*document)(m_body.settings, parameter);
    } else if (auto* const row = m_body.tables.definitionAt(rowDepth())) {
        std::get<RTFRowChange>(change)(*row, parameter);
    }
}

void DocumentReader::takeBodyAction(RTFBodyAction action, RTFParameter parameter)
{
    switch (action) {
    case RTFBodyAction::Field:
        return m_destinations.beginField(m_state);
    case RTFBodyAction::FieldResult:
        return m_destinations.beginFieldResult(m_state);
    case RTFBodyAction::KernSwitch:
        // What the platform means by it; other writers switch pairs of letters with it.
        if (m_body.settings.isCocoa() && !parameter.isOn() && !m_state.run.character.kern)
            m_state.run.character.kern = 0;
        return;
    case RTFBodyAction::ParagraphStart:
        m_state.changedParagraph() = {};
        return m_body.beginParagraph();
    default:
        return takeBreak(action);
    }
}

void DocumentReader::takeBreak(RTFBodyAction action)
{
    const auto nestedDepth = std::clamp<std::size_t>(m_state.tableDepth(), 2, kMostRTFTableDepth);
    switch (action) {
    case RTFBodyAction::RowStart:
        return m_body.tables.beginRow(rowDepth());
    case RTFBodyAction::ParagraphEnd:
        return m_body.endParagraph(m_state);
    case RTFBodyAction::CellEnd:
        return m_body.endCell(m_state, 1);
    case RTFBodyAction::NestedCellEnd:
        return m_body.endCell(m_state, nestedDepth);
    case RTFBodyAction::RowEnd:
        return m_body.endRow(1);
    case RTFBodyAction::NestedRowEnd:
        return m_body.endRow(nestedDepth);
    default:
        return;
    }
}

std::size_t DocumentReader::rowDepth() const
{
    const auto& paragraph = m_state.paragraph;
    return static_cast<std::size_t>(std::clamp<std::int32_t>(paragraph ? paragraph->tableDepth : 1, 1,
                                                             static_cast<std::int32_t>(kMostRTFTableDepth)));
}

void DocumentReader::beginGroup()
{
    m_outerStates.push_back(m_state);
    m_state.isField = false;
    m_state.isListMarker = false;
}

void DocumentReader::endGroup(RTFDestination destination)
{
    auto ended = std::exchange(m_state, std::move(m_outerStates.back()));
    m_outerStates.pop_back();
    m_destinations.endGroup(destination, ended);
    if (ended.isListMarker)
        m_body.endListMarker();
    // The last paragraph may have no end of its own: the text's end is that of the outermost group.
    if (m_outerStates.empty())
        m_state = std::move(ended);
}

RTFDestination DocumentReader::beginDestination(RTFDestination destination)
{
    switch (destination) {
    case RTFDestination::Aside:
        return RTFDestination::Nothing;
    case RTFDestination::TextBox:
        return RTFDestination::Text;
    case RTFDestination::ListMarker:
        if (m_markers == RTFListMarkerText::Dropped)
            return RTFDestination::Nothing;
        m_state.isListMarker = m_markers == RTFListMarkerText::BetweenTabs;
        return RTFDestination::Text;
    default:
        m_destinations.begin(destination);
        return destination;
    }
}

} // namespace

std::optional<RTFDocument> readRTFDocument(std::string_view bytes, RTFListMarkerText markers,
                                           const RTFMemberFinder& findMember)
{
    const auto document = rtfDocumentIn(bytes);
    if (!document)
        return std::nullopt;
    DocumentReader reader(markers, findMember);
    (void)RTFParser(*document, reader).parse(); // A document that is cut off gives what is there.
    return reader.finish();
}
