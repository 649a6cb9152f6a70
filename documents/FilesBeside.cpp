#include "documents/FilesBeside.h"

#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLDividerTextAttachment.h"
#include "platform/foundation/FileNameText.h"
#include "platform/foundation/NSStringPaths.h"
#include "platform/foundation/Unicode.h"
#include "platform/types/UTType.h"
#include "richtext/AttachmentRuns.h"
#include "strings/FileNames.h"

#include <map>
#include <string>

namespace {

constexpr std::u16string_view kNameOfUnnamed = u"Attachment";

std::u16string unnamedFileOfType(const std::optional<std::u16string>& fileType)
{
    const auto type = fileType ? UTType::typeWithIdentifier(UTF8FromUTF16(*fileType)) : std::nullopt;
    const auto extension = type ? type->preferredFilenameExtension() : std::nullopt;
    const std::u16string name(kNameOfUnnamed);
    return extension ? name + u"." + UTF16FromUTF8(*extension) : name;
}

/// A name that a file in a folder can have.
std::u16string nameFor(const NSTextAttachment& attachment)
{
    const auto& file = attachment.fileWrapper();
    const auto name
        = file ? file->preferredFilename().value_or(file->filename().value_or(u"")) : std::u16string();
    if (isFileName(std::u16string_view(name)))
        return name;
    const auto safe = TSExtensions::stringSanitizedForFileName(name);
    return isFileName(std::u16string_view(safe)) ? safe : unnamedFileOfType(attachment.fileType());
}

/// Null for what has nothing to write.
NSFileWrapper::Ref fileOf(const NSTextAttachment& attachment)
{
    if (const auto& file = attachment.fileWrapper())
        return file->isSymbolicLink() ? nullptr : file;
    return attachment.contents() ? NSFileWrapper::initRegularFileWithContents(*attachment.contents())
                                 : nullptr;
}

class FileCollector {
public:
    /// The name of the attachment's file beside the text; empty when there is nothing to write.
    std::u16string nameOf(const NSTextAttachment& attachment)
    {
        const auto file = fileOf(attachment);
        if (!file)
            return {};
        const auto [known, isNew] = m_names.try_emplace(file.get());
        if (isNew)
            known->second = addFile(file, nameFor(attachment));
        return known->second;
    }

    [[nodiscard]] NSFileWrapper::FileWrappers takeFiles() { return std::move(m_files); }

private:
    std::u16string addFile(const NSFileWrapper::Ref& file, const std::u16string& wanted)
    {
        auto name = wanted;
        for (auto& number = m_numbers.try_emplace(wanted, 1).first->second; m_files.contains(name);)
            name = numbered(wanted, ++number);
        m_files.emplace(name, file);
        return name;
    }

    static std::u16string numbered(const std::u16string& name, std::size_t number)
    {
        const auto extension = pathExtension(name);
        auto base = stringByDeletingPathExtension(name) + u" " + UTF16FromUTF8(std::to_string(number));
        return extension.empty() ? base : base + u"." + extension;
    }

    NSFileWrapper::FileWrappers m_files;
    std::map<const NSFileWrapper*, std::u16string> m_names;
    /// Where counting goes on for a name, so that a thousand files of one name are counted once.
    std::map<std::u16string, std::size_t> m_numbers;
};

std::shared_ptr<NSTextAttachment> placeholderNamed(const std::u16string& name)
{
    auto file = NSFileWrapper::initRegularFileWithContents({});
    file->setPreferredFilename(name);
    file->setFilename(name);
    return NSTextAttachment::initWithFileWrapper(file);
}

} // namespace

TextWithFilesBeside takeFilesOut(const NSAttributedString& text)
{
    TextWithFilesBeside taken{NSMutableAttributedString(text), {}, 0};
    FileCollector files;
    enumerateAttachments<NSTextAttachment>(taken.text, [&](const auto& attachment, NSRange range) {
        const auto name = files.nameOf(*attachment);
        if (name.empty())
            return taken.text.deleteCharactersInRange(range);
        taken.text.addAttribute(NSAttachmentAttributeName, placeholderNamed(name), range);
        taken.keptCount += range.length;
    });
    taken.files = files.takeFiles();
    return taken;
}

std::size_t fileCountOf(const NSAttributedString& text)
{
    std::size_t count = 0;
    enumerateAttachments<NSTextAttachment>(text, [&count](const auto& attachment, NSRange range) {
        const bool isMark = dynamic_cast<const CVLChecklistTextAttachment*>(attachment.get())
            || dynamic_cast<const CVLDividerTextAttachment*>(attachment.get());
        if (!isMark && (attachment->fileWrapper() || attachment->contents()))
            count += range.length;
    });
    return count;
}
