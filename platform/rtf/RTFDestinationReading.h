#pragma once

#include "platform/rtf/RTFBodyReading.h"
#include "platform/rtf/RTFDestination.h"
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

    void begin(RTFDestination destination);
    /// Begins an entry of the description; whether it is one that is kept.
    bool beginInformation(std::string_view name);
    /// Takes a word; whether it is known. The state is that of the word's group.
    bool takeWord(RTFDestination destination, RTFReaderState& state, std::string_view name,
                  RTFParameter parameter);
    /// Takes text, UTF-8. Of attachments and pictures it is the bytes as they stand.
    void takeText(RTFDestination destination, const RTFReaderState& state, std::string_view text);

    void takePictureData(std::string_view data) { m_picture.takeBinary(data); }

    /// A group within a destination has ended, whose state was `ended`.
    void endGroup(RTFDestination destination, const RTFReaderState& ended);
    /// The destination has ended. `state` is that of the text behind it, and `isShown` whether that is
    /// shown.
    void end(RTFDestination destination, const RTFReaderState& state, bool isShown);

    void beginField(RTFReaderState& state);
    /// Text of the field's result links to where its instruction said.
    void beginFieldResult(RTFReaderState& state) const;

    /// What the document says of itself.
    [[nodiscard]] NSAny::Dictionary takeInformation() { return std::move(m_information); }

private:
    void endInformation();
    void endInstruction();
    void endAttachment(const RTFReaderState& state, bool isShown);
    void endPicture(const RTFReaderState& state, bool isShown);

    RTFBodyReading& m_body;
    const RTFMemberFinder& m_findMember;
    NSAny::Dictionary m_information;
    std::u16string_view m_informationAttribute;
    /// An instruction, an entry of the information, or a name.
    std::string m_collected;
    bool m_isNameEnded = false;
    /// The links of the fields that are open.
    std::vector<std::size_t> m_fieldLinks;
    RTFPicture m_picture;
    std::size_t m_pictureCount = 0;
};
