#include "platform/html/HTMLAttachmentTags.h"

#include "platform/foundation/Base64.h"
#include "platform/foundation/Unicode.h"
#include "platform/types/UTType.h"

#include <fmt/format.h>

namespace {

bool mayStandInURLPath(char byte)
{
    constexpr std::string_view kMarks = "!$&'()*+,-./:=@_~";
    const bool isLetter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
    return isLetter || (byte >= '0' && byte <= '9') || kMarks.find(byte) != std::string_view::npos;
}

std::u16string nameOfFile(const NSFileWrapper& file)
{
    if (file.filename() && !file.filename()->empty())
        return *file.filename();
    return file.preferredFilename().value_or(u"");
}

std::string tagWithContents(const NSTextAttachment& attachment, std::u16string_view fileType)
{
    const auto type = UTType::typeWithIdentifier(UTF8FromUTF16(fileType));
    const auto mimeType = type ? type->preferredMIMEType() : std::nullopt;
    if (!attachment.contents() || !mimeType || !UTType::identifierConformsToType(fileType, kUTTypeImage))
        return {};
    return fmt::format(R"(<img src="data:{};base64,{}" alt="">)", *mimeType,
                       base64EncodedString(attachment.contents()->bytes));
}

} // namespace

std::string percentEncodedForURLPath(std::u16string_view name)
{
    std::string encoded;
    for (const char byte : UTF8FromUTF16(name)) {
        if (mayStandInURLPath(byte))
            encoded += byte;
        else
            encoded += fmt::format("%{:02X}", static_cast<unsigned char>(byte));
    }
    return encoded;
}

std::string htmlNameInTag(std::u16string_view name)
{
    std::string text;
    for (const char byte : UTF8FromUTF16(name)) {
        if (byte == '"')
            text += "&quot;";
        else if (byte == '<')
            text += "&lt;";
        else if (byte == '>')
            text += "&gt;";
        else
            text += byte;
    }
    return text;
}

std::string htmlImageTag(std::u16string_view name)
{
    return fmt::format(R"(<img src="file:///{}" alt="{}">)", percentEncodedForURLPath(name),
                       htmlNameInTag(name));
}

std::string htmlObjectTag(std::u16string_view name)
{
    return fmt::format(R"(<object data="file:///{}">{}</object>)", percentEncodedForURLPath(name),
                       htmlNameInTag(name));
}

std::string htmlTagForAttachment(const NSTextAttachment& attachment)
{
    const auto fileType = attachment.fileType().value_or(u"");
    const auto name = attachment.fileWrapper() ? nameOfFile(*attachment.fileWrapper()) : std::u16string();
    if (name.empty())
        return tagWithContents(attachment, fileType);
    const bool isShown = UTType::identifierConformsToType(fileType, kUTTypeImage)
        || UTType::identifierConformsToType(fileType, kUTTypePDF);
    return isShown ? htmlImageTag(name) : htmlObjectTag(name);
}
