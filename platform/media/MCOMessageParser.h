#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// One mailbox of an e-mail message. Both texts are decoded and valid UTF-8.
class MCOAddress {
public:
    MCOAddress(std::string displayName, std::string mailbox);

    /// Empty when the message gives none.
    [[nodiscard]] const std::string& displayName() const { return m_displayName; }

    [[nodiscard]] const std::string& mailbox() const { return m_mailbox; }

    /// `Display Name <user@host>`, the name in quotes when it holds marks that have a meaning in addresses;
    /// the mailbox alone when there is no name.
    [[nodiscard]] std::string nonEncodedRFC822String() const;

private:
    std::string m_displayName;
    std::string m_mailbox;
};

/// What the header of a message says. Groups of addresses stand for their members.
struct MCOMessageHeader {
    std::optional<MCOAddress> from;
    /// The other authors of a message that has several.
    std::vector<MCOAddress> furtherFrom;
    std::vector<MCOAddress> to;
    std::vector<MCOAddress> cc;
    std::vector<MCOAddress> bcc;
    /// None when the message has no such field.
    std::optional<std::string> subject;
};

struct MIMEEntity;
class MIMEMessage;

/// A part of a message that is a file of its own. It keeps what it needs of the parser, but not the bytes
/// that the parser was made from.
class MCOAttachment {
public:
    MCOAttachment(std::shared_ptr<const MIMEMessage> message, const MIMEEntity& part);

    /// As its sender wrote it, slashes and all; empty when there is none.
    [[nodiscard]] const std::string& filename() const;
    /// In lower case, without parameters.
    [[nodiscard]] const std::string& mimeType() const;
    /// Whether its text is part of the message's body as well.
    [[nodiscard]] bool isInlineText() const;
    /// The decoded content, at most ContentLimits::wholeFileBytes of it. Decoded anew by each call.
    [[nodiscard]] std::string data() const;

private:
    std::shared_ptr<const MIMEMessage> m_message;
    const MIMEEntity* m_part;
};

/// Reads an e-mail message. Any bytes are a message; what is damaged is read as mail programs read it. Parts
/// beyond 10,000, multiparts in more than 50 others and messages in more than 8 others stay unread. May be
/// used on any thread, one object by one thread at a time.
class MCOMessageParser {
public:
    /// `data` must outlive the parser and its attachments.
    explicit MCOMessageParser(std::string_view data);

    [[nodiscard]] const MCOMessageHeader& header() const { return m_header; }

    /// The text that the reader of the message sees: of alternatives the plain one unless it is empty, of
    /// HTML its rendering, of attached messages sender, recipients, subject and body. At most
    /// ContentLimits::textBytes. With `stripWhitespace` it is trimmed, and runs of blanks and of empty lines
    /// become one blank or line break.
    [[nodiscard]] std::string plainTextBodyRenderingAndStripWhitespace(bool stripWhitespace) const;

    /// The attachments in the order in which they stand in the message, those of attached messages included.
    /// Texts with a file name are attachments even when they are shown in the body.
    [[nodiscard]] std::vector<MCOAttachment> attachments() const;

private:
    std::shared_ptr<const MIMEMessage> m_message;
    MCOMessageHeader m_header;
};
