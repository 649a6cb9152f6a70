#include "service/AttachmentText.h"

#include "service/JoinedLines.h"

std::optional<std::string> recognisedTextOfAttachment(const AttachmentsInfo& attachmentsInfo,
                                                      const std::string& name)
{
    const auto entry = attachmentsInfo.find(name);
    if (entry == attachmentsInfo.end())
        return std::nullopt;
    const auto text = entry->second.find(std::string(kTextRecognitionStringKey));
    return text == entry->second.end() ? std::nullopt : std::optional(text->second);
}

std::string attachmentText(const std::optional<std::string>& recognisedText,
                           const std::vector<std::string>& terms)
{
    if (terms.empty())
        return recognisedText.value_or("");
    return (recognisedText ? *recognisedText + "\n" : "") + joinedLines(terms);
}
