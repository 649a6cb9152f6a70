#include "platform/media/MIMEEntity.h"

#include "platform/foundation/TextEncoding.h"
#include "platform/media/ContentLimits.h"
#include "platform/media/MIMEParser.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t kFieldCount = 64;
constexpr auto kNamesThatMatter = std::to_array<std::string_view>({
    "bcc",
    "cc",
    "content-disposition",
    "content-transfer-encoding",
    "content-type",
    "from",
    "subject",
    "to",
});

bool isSameName(std::string_view left, std::string_view right)
{
    constexpr auto kInLowerCase
        = [](char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; };
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [&](char first, char second) { return kInLowerCase(first) == kInLowerCase(second); });
}

bool isUTF16(std::string_view bytes)
{
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

} // namespace

void MIMEHeader::addField(std::string_view name, std::string_view value)
{
    const bool matters = std::any_of(kNamesThatMatter.begin(), kNamesThatMatter.end(),
                                     [name](std::string_view known) { return isSameName(name, known); });
    if (matters && m_fields.size() < kFieldCount)
        m_fields.push_back({name, value});
}

std::string_view MIMEHeader::value(std::string_view name) const
{
    const auto found = std::find_if(m_fields.begin(), m_fields.end(),
                                    [name](const Field& field) { return isSameName(field.name, name); });
    return found == m_fields.end() ? std::string_view() : found->value;
}

std::vector<std::string_view> MIMEHeader::values(std::string_view name) const
{
    std::vector<std::string_view> found;
    for (const auto& field : m_fields) {
        if (isSameName(field.name, name))
            found.push_back(field.value);
    }
    return found;
}

const std::string& MIMEEntity::filename() const
{
    return disposition.filename.empty() ? contentType.name : disposition.filename;
}

std::string MIMEEntity::decodedBody(std::size_t maximumByteCount) const
{
    return decodedTransferBytes(body, header.value("content-transfer-encoding"), maximumByteCount);
}

MIMEMessage::MIMEMessage(std::string_view bytes)
{
    if (isUTF16(bytes))
        bytes = m_decoded.emplace_back(decodedText(bytes));
    constexpr ContentLimits kLimits;
    MIMEBudget budget{kLimits.entries, kLimits.wholeFileBytes / 2};
    m_root = MIMEParser(bytes, budget, m_decoded, 0).parseMessage();
}
