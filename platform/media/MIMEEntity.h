#pragma once

#include "platform/media/MIMEFields.h"

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

/// The fields of a header block that matter here: addresses, subject, and those about the content. All others
/// are passed over, and so is what is beyond the first 64.
class MIMEHeader {
public:
    /// Keeps the field when it is one that matters. The views must outlive the header.
    void addField(std::string_view name, std::string_view value);

    /// The raw value of the first field of this name, whatever its case; empty when there is none.
    [[nodiscard]] std::string_view value(std::string_view name) const;
    [[nodiscard]] std::vector<std::string_view> values(std::string_view name) const;

private:
    struct Field {
        std::string_view name;
        std::string_view value;
    };

    std::vector<Field> m_fields;
};

/// A message or a part of one.
struct MIMEEntity {
    MIMEHeader header;
    MIMEContentType contentType;
    MIMEDisposition disposition;
    /// All behind the header, as it stands in the message.
    std::string_view body;
    /// The parts of a multipart, or the one message within a part that is a message. A multipart whose parts
    /// cannot be told apart has none.
    std::vector<MIMEEntity> parts;

    /// What its sender called it; empty when that is nothing.
    [[nodiscard]] const std::string& filename() const;

    /// Whether its one part is a message of its own.
    [[nodiscard]] bool isMessage() const { return !contentType.isMultipart() && !parts.empty(); }

    /// The body without its transfer encoding, at most `maximumByteCount` of it.
    [[nodiscard]] std::string decodedBody(std::size_t maximumByteCount) const;
};

/// A message taken apart. The entities look into the bytes that they were made from, which must outlive them.
///
/// The library for mails has a parser too, but one whose memory and time grow with the number of fields,
/// addresses and parts, before anyone can look at them. Here one pass finds the borders and nothing is
/// copied; the library reads what a field means when somebody asks.
class MIMEMessage {
public:
    explicit MIMEMessage(std::string_view bytes);

    [[nodiscard]] const MIMEEntity& root() const { return m_root; }

private:
    friend class MIMEParser;

    /// Messages that had been encoded for transfer, and the text of one that came in UTF-16.
    std::deque<std::string> m_decoded;
    MIMEEntity m_root;
};
