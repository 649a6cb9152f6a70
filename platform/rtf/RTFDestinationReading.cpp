#include "platform/rtf/RTFDestinationReading.h"

#include "platform/foundation/Unicode.h"
#include "platform/rtf/RTFLimits.h"
#include "platform/rtf/RTFLinks.h"

#include <fmt/format.h>

#include <utility>

void RTFDestinationReading::begin(RTFDestination destination)
{
    m_collected.clear();
    m_isNameEnded = false;
    if (destination == RTFDestination::Picture)
        m_picture = {};
}

bool RTFDestinationReading::beginInformation(std::string_view name)
{
    const auto attribute = attributeOfInformation(name);
    if (attribute.empty())
        return false;
    begin(RTFDestination::InformationEntry);
    m_informationAttribute = attribute;
    return true;
}

bool RTFDestinationReading::takeWord(RTFDestination destination, RTFReaderState& state, std::string_view name,
                                     RTFParameter parameter)
{
    switch (destination) {
    case RTFDestination::FontTable:
        return m_body.fonts.takeWord(name, parameter);
    case RTFDestination::ColorTable:
        m_body.colors.takePlainWord(name, parameter);
        return true;
    case RTFDestination::ExpandedColorTable:
        m_body.colors.takeExpandedWord(name, parameter);
        return true;
    case RTFDestination::ListTable:
        state.listPart = m_body.lists.takeListWord(name, parameter, state.listPart);
        return state.listPart == RTFListPart::Marker;
    case RTFDestination::ListNumberTable:
        m_body.lists.takeNumberWord(name, parameter);
        return true;
    case RTFDestination::Attachment:
        m_isNameEnded = true;
        return true;
    case RTFDestination::Picture:
        return m_picture.takeWord(name);
    default:
        return false;
    }
}

void RTFDestinationReading::takeText(RTFDestination destination, const RTFReaderState& state,
                                     std::string_view text)
{
    switch (destination) {
    case RTFDestination::FontTable:
        return m_body.fonts.takeText(text);
    case RTFDestination::ColorTable:
        return m_body.colors.takePlainText(text);
    case RTFDestination::ExpandedColorTable:
        return m_body.colors.takeExpandedText(text);
    case RTFDestination::ListTable:
        return m_body.lists.takeText(UTF16FromUTF8(text), state.listPart);
    case RTFDestination::Picture:
        return m_picture.takeText(text);
    case RTFDestination::InformationEntry:
    case RTFDestination::FieldInstruction:
    case RTFDestination::Attachment:
        if (!m_isNameEnded && m_collected.size() < kMostRTFFieldBytes)
            m_collected += text.substr(0, kMostRTFFieldBytes);
        return;
    default:
        return;
    }
}

void RTFDestinationReading::endGroup(RTFDestination destination, const RTFReaderState& ended)
{
    if (ended.isField)
        m_fieldLinks.pop_back();
    if (destination == RTFDestination::FontTable)
        m_body.fonts.endGroup();
}

void RTFDestinationReading::end(RTFDestination destination, const RTFReaderState& state, bool isShown)
{
    switch (destination) {
    case RTFDestination::InformationEntry:
        return endInformation();
    case RTFDestination::FieldInstruction:
        return endInstruction();
    case RTFDestination::Attachment:
        return endAttachment(state, isShown);
    case RTFDestination::Picture:
        return endPicture(state, isShown);
    default:
        return;
    }
}

void RTFDestinationReading::endInformation()
{
    const auto text = UTF16FromUTF8(std::exchange(m_collected, {}));
    if (!text.empty())
        m_information.insert_or_assign(std::u16string(m_informationAttribute),
                                       valueOfInformation(m_informationAttribute, text));
}

void RTFDestinationReading::beginField(RTFReaderState& state)
{
    if (state.isField)
        return;
    state.isField = true;
    m_fieldLinks.push_back(0);
}

void RTFDestinationReading::endInstruction()
{
    const auto link = linkOfAddress(addressOfInstruction(std::exchange(m_collected, {})));
    if (!m_fieldLinks.empty())
        m_fieldLinks.back() = m_body.attributes.numberOfLink(link);
}

void RTFDestinationReading::beginFieldResult(RTFReaderState& state) const
{
    if (!m_fieldLinks.empty() && m_fieldLinks.back() != 0)
        state.run.link = m_fieldLinks.back();
}

void RTFDestinationReading::endAttachment(const RTFReaderState& state, bool isShown)
{
    auto name = std::exchange(m_collected, {});
    name.erase(name.find_last_not_of(" \t") + 1);
    const auto file = m_findMember(name);
    if (file && isShown)
        m_body.appendAttachment(NSTextAttachment::initWithFileWrapper(file), state);
}

void RTFDestinationReading::endPicture(const RTFReaderState& state, bool isShown)
{
    const auto extension = m_picture.fileExtension();
    if (extension.empty() || !isShown)
        return;
    ++m_pictureCount;
    const auto file = NSFileWrapper::initRegularFileWithContents({m_picture.takeData()});
    file->setPreferredFilename(UTF16FromUTF8(fmt::format("Image {}.{}", m_pictureCount, extension)));
    m_body.appendAttachment(NSTextAttachment::initWithFileWrapper(file), state);
}
