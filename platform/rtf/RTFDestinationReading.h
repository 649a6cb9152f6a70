#pragma once

#include "platform/rtf/RTFBodyReading.h"
#include "platform/rtf/RTFPicture.h"
#include "platform/rtf/RTFReader.h"

#include <string>
#include <string_view>
#include <vector>

/// Reads the groups of a document that are not its text: tables, the description, fields, files.
class RTFDestinationReading {
public:
    /// Both must outlive it.
    RTFDestinationReading(RTFBodyReading& body, const RTFMemberFinder& findMember)
        : m_body(body)
        , m_findMember(findMember)
    {
    }

    /// Makes the state's group a destination.
    void begin(RTFReaderState& state, RTFDestination destination);
    /// Takes a word, which `isOptional` tells to be passed over with its group when it is not known.
    void takeWord(RTFReaderState& state, std::string_view name, RTFParameter parameter, bool isOptional);
    /// Takes text, UTF-8. Of attachments and pictures it is the bytes as they stand.
    void takeText(const RTFReaderState& state, std::string_view text);
    /// Takes UTF-16 units; pairs may come apart.
    void takeUnits(const RTFReaderState& state, std::u16string_view units);
    void takeBinary(const RTFReaderState& state, std::string_view data);
    /// A group with the state `ended` has ended within, or as, a destination. `outer` is the state behind it.
    void endGroup(const RTFReaderState& ended, const RTFReaderState& outer);

    void beginField(RTFReaderState& state);
    /// Text of the field's result links to where its instruction said.
    void beginFieldResult(RTFReaderState& state) const;

    /// What the document says of itself.
    [[nodiscard]] NSAny::Dictionary takeInformation() { return std::move(m_information); }

private:
    void takeInformationWord(RTFReaderState& state, std::string_view name);
    void endInformation();
    void endInstruction();
    void endAttachment(const RTFReaderState& outer);
    void endPicture(const RTFReaderState& outer);

    RTFBodyReading& m_body;
    const RTFMemberFinder& m_findMember;
    NSAny::Dictionary m_information;
    std::u16string_view m_informationAttribute;
    /// An instruction, an entry of the information, or a name.
    std::string m_collected;
    bool m_isNameEnded = false;
    /// The links of the fields that are open.
    std::vector<std::size_t> m_fieldLinks;
    /// The first half of a pair.
    char16_t m_leadUnit = 0;
    RTFPicture m_picture;
    std::size_t m_pictureCount = 0;
};
