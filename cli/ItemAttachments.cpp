#include "cli/ItemAttachments.h"

#include "cli/ErrorMessage.h"
#include "cli/ItemWalk.h"
#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/Unicode.h"
#include "platform/media/ContentLimits.h"
#include "platform/media/MCOMessageParser.h"
#include "platform/types/UTType.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMaximumAttachments = 10'000;
constexpr std::string_view kTooMany = "attachments beyond the first 10,000 were left out";
// What a package holds for itself.
constexpr std::array<std::string_view, 3> kOwnMembers = {"NoteText", "NoteAttributes", "TXT.rtf"};

/// Adds an attachment; false when there are enough.
bool addAttachment(ItemAttachments& attachments, const std::string& name)
{
    if (attachments.info.size() == kMaximumAttachments) {
        attachments.notes.emplace_back(kTooMany);
        return false;
    }
    if (isValidUTF8(name))
        attachments.info.try_emplace(name);
    else
        attachments.notes.push_back("attachment " + validUTF8(name) + " was left out: its name is no UTF-8");
    return true;
}

/// Where a note's files stand beside those of its rich text, the second is under a name that the package
/// made. What it holds is there under another name too.
bool isSecondName(const std::string& name)
{
    static const auto kMark = UTF8FromUTF16(NSFileWrapperUniqueMark);
    const auto digits = name.find_first_not_of("0123456789");
    return digits != 0 && digits != std::string::npos && name.compare(digits, kMark.size(), kMark) == 0;
}

bool isAttachmentMember(const fs::directory_entry& member, bool isOfNote)
{
    std::error_code ignored; // What went away is no attachment.
    const auto name = member.path().filename().native();
    return !name.starts_with('.') && !(isOfNote && isSecondName(name))
        && std::find(kOwnMembers.begin(), kOwnMembers.end(), name) == kOwnMembers.end()
        && fs::is_regular_file(member.symlink_status(ignored));
}

ItemAttachments attachmentsOfPackage(const std::string& path)
{
    ItemAttachments attachments;
    const auto isNote = fs::path(path).extension() == ".cvlnote";
    std::error_code failure;
    for (fs::directory_iterator member(path, failure), end; !failure && member != end;
         member.increment(failure)) {
        if (isAttachmentMember(*member, isNote)
            && !addAttachment(attachments, member->path().filename().native()))
            break;
    }
    return attachments;
}

ItemAttachments attachmentsOfMessage(const std::string& path)
{
    ItemAttachments attachments;
    const auto file = FileDescriptor::openForReading(path);
    const auto bytes = file.isValid() ? readFile(file.get(), ContentLimits().wholeFileBytes) : std::nullopt;
    if (!bytes)
        return attachments;
    const MCOMessageParser parser(*bytes);
    for (const auto& attachment : parser.attachments()) {
        const std::string name(attachment.filename());
        if (!name.empty() && !addAttachment(attachments, name))
            break;
    }
    return attachments;
}

using JSON = nlohmann::json;

std::optional<std::map<std::string, std::string>> valuesOfAttachment(const JSON& value)
{
    if (!value.is_object())
        return std::nullopt;
    std::map<std::string, std::string> values;
    for (const auto& [key, text] : value.items()) {
        if (!text.is_string())
            return std::nullopt;
        values.emplace(key, text.get<std::string>());
    }
    return values;
}

} // namespace

ItemAttachments attachmentsOfItem(const NSURL& url)
{
    const auto path = url.path();
    std::error_code ignored; // What is not there is no folder.
    if (fs::is_directory(path, ignored))
        return isPackageName(url.lastPathComponent()) ? attachmentsOfPackage(path) : ItemAttachments();
    const auto type = UTType::contentTypeOfFile(url);
    return type && type->conformsToType(kUTTypeEmailMessage) ? attachmentsOfMessage(path) : ItemAttachments();
}

std::optional<AttachmentsInfo> attachmentsInfoFromJSON(std::string_view json, NSError* error)
{
    const auto value = JSON::parse(json, nullptr, false);
    if (!value.is_object()) {
        setError(error, commandError(CommandError::NotPrepared, "no JSON object"));
        return std::nullopt;
    }
    AttachmentsInfo info;
    for (const auto& [name, entry] : value.items()) {
        auto values = valuesOfAttachment(entry);
        if (!values) {
            setError(error, commandError(CommandError::NotPrepared, name + " has no object of strings"));
            return std::nullopt;
        }
        info.emplace(name, std::move(*values));
    }
    return info;
}
