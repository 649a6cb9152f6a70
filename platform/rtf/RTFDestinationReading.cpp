#include "platform/rtf/RTFDestinationReading.h"

#include "platform/foundation/Unicode.h"
#include "platform/rtf/RTFLimits.h"
#include "platform/rtf/RTFLinks.h"

#include <fmt/format.h>

#include <utility>

void RTFDestinationReading::begin(RTFReaderState& state, RTFDestination destination)
{
    state.destination = destination;
    state.endsDestination = true;
    m_collected.clear();
    m_isNameEnded = false;
    if (destination == RTFDestination::Picture)
        m_picture = {};
}

void RTFDestinationReading::takeWord(RTFReaderState& state, std::string_view name, RTFParameter parameter,
                                     bool isOptional)
{
    switch (state.destination) {
    case RTFDestination::FontTable:
        if (!m_body.fonts.takeWord(name, parameter) && isOptional)
            state.destination = RTFDestination::Nothing;
        break;
    case RTFDestination::ColorTable:
        m_body.colors.takePlainWord(name, parameter);
        break;
    case RTFDestination::ExpandedColorTable:
        m_body.colors.takeExpandedWord(name, parameter);
        break;
    case RTFDestination::ListTable:
        state.listPart = m_body.lists.takeListWord(name, parameter, state.listPart);
        if (isOptional && state.listPart != RTFListPart::Marker)
            state.destination = RTFDestination::Nothing;
        break;
    case RTFDestination::ListNumberTable:
        m_body.lists.takeNumberWord(name, parameter);
        break;
    case RTFDestination::Information:
        takeInformationWord(state, name);
        break;
    case RTFDestination::Attachment:
        m_isNameEnded = true;
        break;
    case RTFDestination::Picture:
        if (isOptional)
            state.destination = RTFDestination::Nothing;
        else
            m_picture.takeWord(name);
        break;
    default:
        break;
    }
}

void RTFDestinationReading::takeInformationWord(RTFReaderState& state, std::string_view name)
{
    const auto attribute = attributeOfInformation(name);
    if (attribute.empty()) {
        state.destination = RTFDestination::Nothing;
        return;
    }
    begin(state, RTFDestination::InformationEntry);
    m_informationAttribute = attribute;
}

void RTFDestinationReading::takeText(const RTFReaderState& state, std::string_view text)
{
    switch (state.destination) {
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

void RTFDestinationReading::takeUnits(const RTFReaderState& state, std::u16string_view units)
{
    for (const auto unit : units) {
        const bool isLead = (unit & 0xFC00U) == 0xD800;
        const auto lead = std::exchange(m_leadUnit, isLead ? unit : char16_t{0});
        if (isLead)
            continue;
        const bool isTrail = (unit & 0xFC00U) == 0xDC00;
        const std::u16string character
            = isTrail && lead != 0 ? std::u16string{lead, unit} : std::u16string{unit};
        takeText(state, UTF8FromUTF16(character));
    }
}

void RTFDestinationReading::takeBinary(const RTFReaderState& state, std::string_view data)
{
    if (state.destination == RTFDestination::Picture)
        m_picture.takeBinary(data);
}

void RTFDestinationReading::endGroup(const RTFReaderState& ended, const RTFReaderState& outer)
{
    if (ended.isField)
        m_fieldLinks.pop_back();
    if (ended.destination == RTFDestination::FontTable)
        m_body.fonts.endGroup();
    if (!ended.endsDestination)
        return;
    switch (ended.destination) {
    case RTFDestination::InformationEntry:
        return endInformation();
    case RTFDestination::FieldInstruction:
        return endInstruction();
    case RTFDestination::Attachment:
        return endAttachment(outer);
    case RTFDestination::Picture:
        return endPicture(outer);
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

void RTFDestinationReading::endAttachment(const RTFReaderState& outer)
{
    auto name = std::exchange(m_collected, {});
    name.erase(name.find_last_not_of(" \t") + 1);
    const auto file = m_findMember(name);
    if (file && outer.destination == RTFDestination::Text)
        m_body.appendAttachment(NSTextAttachment::initWithFileWrapper(file), outer);
}

void RTFDestinationReading::endPicture(const RTFReaderState& outer)
{
    const auto extension = m_picture.fileExtension();
    if (extension.empty() || outer.destination != RTFDestination::Text || outer.isHidden)
        return;
    ++m_pictureCount;
    const auto file = NSFileWrapper::initRegularFileWithContents({m_picture.takeData()});
    file->setPreferredFilename(UTF16FromUTF8(fmt::format("Image {}.{}", m_pictureCount, extension)));
    m_body.appendAttachment(NSTextAttachment::initWithFileWrapper(file), outer);
}
