#include "platform/rtf/RTFText.h"

#include "platform/rtf/RTFHandler.h"
#include "platform/rtf/RTFParser.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::size_t kPieceByteCount = 16'384;
constexpr std::size_t kFieldByteCount = 4'096;
constexpr std::size_t kMostFields = 100;
constexpr std::string_view kAttachmentCharacter = "\uFFFC";

struct InformationName {
    std::string_view word;
    std::string_view fieldName;
};

constexpr std::array kInformationNames{InformationName{"title", "title"}, InformationName{"author", "author"},
                                       InformationName{"subject", "subject"},
                                       InformationName{"keywords", "keywords"},
                                       InformationName{"doccomm", "description"}};

/// Gives the characters on, and makes nothing of how they look.
class TextStream : public RTFHandler {
public:
    explicit TextStream(const RTFTextReceiver& receiver)
        : m_receiver(receiver)
    {
    }

    /// Gives on what is collected, unless the receiver has enough.
    void flush()
    {
        if (!hasEnough() && !m_text.empty() && !m_receiver(m_text))
            stop();
        m_text.clear();
    }

    [[nodiscard]] std::vector<RTFField> takeFields() { return std::move(m_fields); }

    void appendText(std::string_view text) override
    {
        m_text += text;
        if (m_text.size() >= kPieceByteCount)
            flush();
    }

    void takeBodyAction(RTFBodyAction action, RTFParameter /*parameter*/) override
    {
        if (action == RTFBodyAction::ParagraphEnd || action == RTFBodyAction::CellEnd
            || action == RTFBodyAction::NestedCellEnd)
            appendText("\n");
    }

    RTFDestination beginDestination(RTFDestination destination) override;
    bool beginInformation(std::string_view name) override;
    void takeDestinationText(RTFDestination destination, std::string_view text) override;
    void endDestination(RTFDestination destination, bool isShown) override;

private:
    const RTFTextReceiver& m_receiver;
    std::string m_text;
    std::vector<RTFField> m_fields;
    RTFField m_field;
};

RTFDestination TextStream::beginDestination(RTFDestination destination)
{
    switch (destination) {
    case RTFDestination::Information:
    case RTFDestination::FontTable: // For the fonts' code pages.
        return destination;
    case RTFDestination::Aside:
    case RTFDestination::TextBox:
        appendText("\n");
        return RTFDestination::Text;
    case RTFDestination::ListMarker:
        return RTFDestination::Text;
    default:
        return RTFDestination::Nothing;
    }
}

bool TextStream::beginInformation(std::string_view name)
{
    const auto* const found
        = std::find_if(kInformationNames.begin(), kInformationNames.end(),
                       [name](const InformationName& entry) { return entry.word == name; });
    if (found == kInformationNames.end())
        return false;
    m_field = {std::string(found->fieldName), {}};
    return true;
}

void TextStream::takeDestinationText(RTFDestination destination, std::string_view text)
{
    if (destination == RTFDestination::InformationEntry && m_field.value.size() < kFieldByteCount)
        m_field.value += text;
}

void TextStream::endDestination(RTFDestination destination, bool isShown)
{
    if (destination == RTFDestination::InformationEntry && m_fields.size() < kMostFields)
        m_fields.push_back(std::move(m_field));
    else if (destination == RTFDestination::Attachment && isShown)
        appendText(kAttachmentCharacter);
    else if (destination == RTFDestination::Aside || destination == RTFDestination::TextBox)
        appendText("\n");
}

} // namespace

RTFTextResult readRTFText(std::string_view bytes, const RTFTextReceiver& receiver)
{
    const auto document = rtfDocumentIn(bytes);
    if (!document)
        return {};
    TextStream stream(receiver);
    const bool isComplete = RTFParser(*document, stream).parse();
    stream.flush();
    return {true, isComplete, stream.takeFields()};
}
