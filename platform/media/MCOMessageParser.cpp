#include "platform/media/MCOMessageParser.h"

#include "platform/media/ContentLimits.h"
#include "platform/media/MIMEEntity.h"
#include "platform/media/MessageBody.h"

#include <iterator>
#include <utility>

namespace {

constexpr ContentLimits kLimits;
constexpr std::size_t kAddressCount = 10'000;

std::string quoted(std::string_view name)
{
    std::string text("\"");
    for (const char byte : name) {
        if (byte == '"' || byte == '\\')
            text += '\\';
        text += byte;
    }
    return text += '"';
}

std::vector<MCOAddress> addressesOfField(const MIMEHeader& header, std::string_view name)
{
    std::vector<MCOAddress> addresses;
    for (const auto value : header.values(name)) {
        if (addresses.size() >= kAddressCount)
            break;
        for (auto& mailbox : mailboxesInField(value))
            addresses.emplace_back(std::move(mailbox.displayName), std::move(mailbox.address));
    }
    return addresses;
}

MCOMessageHeader messageHeader(const MIMEHeader& fields)
{
    MCOMessageHeader header;
    auto authors = addressesOfField(fields, "from");
    if (!authors.empty()) {
        header.from = authors.front();
        header.furtherFrom.assign(std::next(authors.begin()), authors.end());
    }
    header.to = addressesOfField(fields, "to");
    header.cc = addressesOfField(fields, "cc");
    header.bcc = addressesOfField(fields, "bcc");
    if (const auto subjects = fields.values("subject"); !subjects.empty())
        header.subject = decodedFieldText(subjects.front());
    return header;
}

void addAttachments(const std::shared_ptr<const MIMEMessage>& message, const MIMEEntity& entity,
                    std::vector<MCOAttachment>& attachments)
{
    const bool isContainer = entity.contentType.isMultipart();
    const bool isNamed = !entity.filename().empty();
    if (!isContainer && (isNamed || !isBodyText(entity)))
        attachments.emplace_back(message, entity);
    for (const auto& part : entity.parts)
        addAttachments(message, part, attachments);
}

} // namespace

MCOAddress::MCOAddress(std::string displayName, std::string mailbox)
    : m_displayName(std::move(displayName))
    , m_mailbox(std::move(mailbox))
{
}

std::string MCOAddress::nonEncodedRFC822String() const
{
    if (m_displayName.empty())
        return m_mailbox;
    const bool hasMarks = m_displayName.find_first_of("()<>[]:;@\\,.\"") != std::string::npos;
    return (hasMarks ? quoted(m_displayName) : m_displayName) + " <" + m_mailbox + ">";
}

MCOAttachment::MCOAttachment(std::shared_ptr<const MIMEMessage> message, const MIMEEntity& part)
    : m_message(std::move(message))
    , m_part(&part)
{
}

const std::string& MCOAttachment::filename() const
{
    return m_part->filename();
}

const std::string& MCOAttachment::mimeType() const
{
    return m_part->contentType.mimeType;
}

bool MCOAttachment::isInlineText() const
{
    return m_part->isMessage() || isBodyText(*m_part);
}

std::string MCOAttachment::data() const
{
    return m_part->decodedBody(kLimits.wholeFileBytes);
}

MCOMessageParser::MCOMessageParser(std::string_view data)
    : m_message(std::make_shared<const MIMEMessage>(data))
    , m_header(messageHeader(m_message->root().header))
{
}

std::string MCOMessageParser::plainTextBodyRenderingAndStripWhitespace(bool stripWhitespace) const
{
    auto text = renderedBody(m_message->root());
    return stripWhitespace ? strippedText(text) : text;
}

std::vector<MCOAttachment> MCOMessageParser::attachments() const
{
    std::vector<MCOAttachment> attachments;
    addAttachments(m_message, m_message->root(), attachments);
    return attachments;
}
