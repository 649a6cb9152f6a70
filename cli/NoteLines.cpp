#include "cli/NoteLines.h"

#include "cli/ErrorMessage.h"
#include "cli/JSONText.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/Unicode.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace {

using JSON = nlohmann::ordered_json;

std::string entry(std::string_view name, const std::string& value)
{
    return fmt::format("{:<16}{}", name, value);
}

JSON textOrNull(const std::optional<std::u16string>& text)
{
    return text ? JSON(UTF8FromUTF16(*text)) : JSON(nullptr);
}

std::string applicationOf(const NoteApplication& application)
{
    if (!application.identifier)
        return "unknown";
    const auto identifier = UTF8FromUTF16(*application.identifier);
    return application.version ? identifier + " " + UTF8FromUTF16(*application.version) : identifier;
}

std::string attachmentLine(const NoteAttachment& attachment)
{
    return fmt::format("  {}  {}  {}, {}", UTF8FromUTF16(attachment.name), UTF8FromUTF16(attachment.type),
                       attachment.isIcon ? "icon" : "in place",
                       attachment.size ? fmt::format("{} bytes", *attachment.size) : "missing");
}

JSON attachmentValue(const NoteAttachment& attachment)
{
    JSON value{{"kind", attachment.isIcon ? "icon" : "inPlace"},
               {"name", UTF8FromUTF16(attachment.name)},
               {"type", UTF8FromUTF16(attachment.type)},
               {"size", nullptr}};
    if (attachment.size)
        value["size"] = *attachment.size;
    return value;
}

std::string_view nameOf(NoteReadability readability)
{
    switch (readability) {
    case NoteReadability::Readable:
        return "readable";
    case NoteReadability::Recoverable:
        return "recoverable";
    case NoteReadability::Unreadable:
        break;
    }
    return "unreadable";
}

} // namespace

std::vector<std::string> noteInformationLines(const NoteInformation& information)
{
    std::vector<std::string> lines{
        entry("length", fmt::format("{} units in {} runs", information.length, information.runCount)),
        entry("checklist",
              fmt::format("{} done, {} open", information.doneItemCount, information.openItemCount)),
        entry("dividers", std::to_string(information.dividerCount)),
        entry("highlights", std::to_string(information.highlightCount)),
        entry("drawings", std::to_string(information.drawingCount)),
        entry("background", information.background ? UTF8FromUTF16(*information.background) : "none"),
        entry("small images", information.hasSmallImages ? "yes" : "no"),
        entry("written by", applicationOf(information.application)),
    };
    if (information.isRecovered)
        lines.push_back(entry("text", "recovered with its files, everything else is lost"));
    lines.push_back(entry("attachments", std::to_string(information.attachments.size())));
    for (const auto& attachment : information.attachments)
        lines.push_back(attachmentLine(attachment));
    return lines;
}

std::string noteInformationJSON(const NoteInformation& information, const std::string& path)
{
    JSON attachments = JSON::array();
    for (const auto& attachment : information.attachments)
        attachments.push_back(attachmentValue(attachment));
    return lineOfJSON(
        JSON{{"path", path},
             {"recovered", information.isRecovered},
             {"length", information.length},
             {"runs", information.runCount},
             {"checklist", {{"done", information.doneItemCount}, {"open", information.openItemCount}}},
             {"dividers", information.dividerCount},
             {"highlights", information.highlightCount},
             {"drawings", information.drawingCount},
             {"background", textOrNull(information.background)},
             {"smallImages", information.hasSmallImages},
             {"application",
              {{"identifier", textOrNull(information.application.identifier)},
               {"version", textOrNull(information.application.version)}}},
             {"attachments", attachments}});
}

std::u16string descriptionOfReadability(NoteReadability readability)
{
    if (readability != NoteReadability::Recoverable)
        return {};
    return NSBundle::mainBundle().localizedStringForKey(
        u"The text and its files can be recovered from TXT.rtf, nothing else.");
}

std::string noteCheckJSON(const NoteCheck& check, const std::string& path)
{
    JSON findings = JSON::array();
    for (const auto& finding : check.findings)
        findings.push_back(JSON{{"kind", nameOfNoteFinding(finding.kind)},
                                {"subject", UTF8FromUTF16(finding.subject)},
                                {"isLoss", finding.isLoss()},
                                {"description", UTF8FromUTF16(finding.description())}});
    JSON value{
        {"path", path}, {"state", nameOf(check.readability)}, {"error", nullptr}, {"findings", findings}};
    if (check.readability == NoteReadability::Unreadable)
        value["error"] = errorMessage(check.error);
    return lineOfJSON(value);
}
