#include "note/NoteCheck.h"

#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLDividerTextAttachment.h"
#include "note/NoteAttributes.h"
#include "note/NoteErrors.h"
#include "note/NoteExport.h"
#include "note/NotePackage.h"
#include "note/NotePackageReader.h"
#include "note/StoredNoteText.h"
#include "note/UnreadableMembers.h"
#include "platform/foundation/NSCharacterSet.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/foundation/NSStringPaths.h"
#include "platform/foundation/Unicode.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSDocumentAttributes.h"
#include "platform/types/UTType.h"
#include "richtext/AttachmentRuns.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <set>
#include <string>

namespace {

using Kind = NoteFinding::Kind;
using namespace NSAttributedStringDocumentFormats;

/// The characters that every writer of RTF keeps.
std::u16string wordsOf(const NSAttributedString& text)
{
    const auto& blanks = NSCharacterSet::whitespaceAndNewlineCharacterSet();
    std::u16string words;
    for (const auto unit : text.string()) {
        if (unit != NSAttachmentCharacter && !blanks.characterIsMember(unit))
            words += unit;
    }
    return words;
}

/// The text for other programs as it comes back from RTF; none when it cannot be written.
std::optional<NSAttributedString> throughRTF(const NSAttributedString& noteText)
{
    const auto text = noteTextForExport(noteText);
    const auto package = RTFDFileWrapperFromRange(
        text, {0, text.length()},
        {{std::u16string(NSDocumentTypeDocumentAttribute), NSRTFDTextDocumentType}});
    return package ? initWithRTFDFileWrapper(*package) : std::nullopt;
}

/// Whether what is called so is a file, and never a folder or a package.
bool isNameOfFile(std::u16string_view name)
{
    const auto type = UTType::typeWithFilenameExtension(UTF8FromUTF16(pathExtension(name)));
    return type && type->conformsToType("public.data") && !type->conformsToType("com.apple.package");
}

bool isFolder(const NSURL& url)
{
    std::error_code failure; // What cannot be looked at is no folder.
    return std::filesystem::is_directory(url.path(), failure);
}

class Checker {
public:
    Checker(const NSFileWrapper& package, std::size_t mostIndexedBytes)
        : m_package(package)
        , m_mostIndexedBytes(mostIndexedBytes)
    {
    }

    NoteCheck check()
    {
        checkAttributes();
        checkText();
        checkRTF();
        checkSizes();
        checkMembers();
        return std::move(m_check);
    }

private:
    void add(Kind kind, std::u16string subject = {})
    {
        if (m_check.findings.size() < NoteCheck::kMostFindings)
            m_check.findings.push_back({kind, std::move(subject)});
    }

    void addNoFile(std::u16string_view name)
    {
        m_noFiles.emplace(name);
        add(Kind::NoFile, std::u16string(name));
    }

    [[nodiscard]] const NSFileWrapper* memberNamed(std::u16string_view name) const
    {
        return m_package.fileWrapperForKey(name).get();
    }

    void checkAttributes()
    {
        const auto* const member = memberNamed(kNoteAttributesMember);
        if (!member)
            return add(Kind::MissingAttributes);
        const auto* const data = member->regularFileContents();
        if (!data)
            return addNoFile(kNoteAttributesMember);
        if (!NSPropertyListSerialization::propertyListWithData(data->bytes).dictionary())
            return add(Kind::DamagedAttributes);
        m_attributes = NoteAttributes::attributesFromData(data->bytes);
    }

    void checkText()
    {
        const auto* const member = memberNamed(kNoteTextMember);
        if (!member) {
            m_isTextGone = true;
            return add(Kind::MissingText);
        }
        const auto* const data = member->regularFileContents();
        if (!data)
            return addNoFile(kNoteTextMember);
        if (data->bytes.empty())
            return add(Kind::EmptyText);
        m_text = unarchivedNoteText(data->bytes, m_check.error);
        if (!m_text) {
            m_isTextGone = true;
            return add(Kind::DamagedText, UTF16FromUTF8(m_check.error.localizedDescription()));
        }
        checkAttachments();
        checkDividers();
    }

    void checkAttachments()
    {
        enumerateAttachments<NSTextAttachment>(*m_text, [this](const auto& attachment, NSRange /*range*/) {
            const auto& file = attachment->fileWrapper();
            if (!file || dynamic_cast<const CVLChecklistTextAttachment*>(attachment.get()))
                return;
            const auto* const contents = file->regularFileContents();
            const bool isPlaceholder = contents && contents->bytes.empty();
            // Names that no file can have do not come out of archives.
            if (!file->preferredFilename() && isPlaceholder)
                add(Kind::NamelessFile);
            if (!file->preferredFilename())
                return;
            const auto& name = *file->preferredFilename();
            const bool isNew = m_namedFiles.insert(name).second;
            if (isNew && isPlaceholder)
                checkMemberOfFile(name);
        });
    }

    void checkMemberOfFile(const std::u16string& name)
    {
        const auto* const member = memberNamed(name);
        if (!member)
            add(Kind::MissingFile, name);
        else if (member->isSymbolicLink() || (member->isDirectory() && isNameOfFile(name)))
            addNoFile(name);
    }

    void checkDividers()
    {
        const auto length = m_text->length();
        for (const auto range : m_attributes.dividerRanges) {
            const bool isWithin = range.location <= length && range.length <= length - range.location;
            if (!isWithin)
                add(Kind::DividerBehindText, NSStringFromRange(range));
            else if (NSMaxRange(range) == length)
                add(Kind::DividerAtEnd, NSStringFromRange(range));
            else if (m_text->substringWithRange(range) != CVLDividerReplacementString)
                add(Kind::MisplacedDivider, NSStringFromRange(range));
        }
    }

    /// Finds out what can be recovered, too.
    void checkRTF()
    {
        NSError error;
        const bool isThere = memberNamed(kNoteRTFMember) != nullptr;
        m_rtf = isThere ? initWithRTFDFileWrapper(m_package, nullptr, &error) : std::nullopt;
        if (!isThere)
            add(Kind::MissingRTF);
        else if (!m_rtf)
            add(Kind::DamagedRTF, UTF16FromUTF8(error.localizedDescription()));
        if (m_isTextGone)
            setReadability();
        else if (m_text && m_rtf)
            compareRTF();
    }

    /// A note without a text opens as an empty one where there is nothing to recover.
    void setReadability()
    {
        const bool isMissing = !memberNamed(kNoteTextMember);
        if (m_rtf)
            m_check.readability = NoteReadability::Recoverable;
        else if (!isMissing || memberNamed(kNoteRTFMember))
            m_check.readability = NoteReadability::Unreadable;
        if (isMissing && m_check.readability != NoteReadability::Readable)
            m_check.error = recoverableError();
    }

    void compareRTF()
    {
        const auto expected = throughRTF(shownNoteText(*m_text, m_attributes, m_package));
        if (expected && wordsOf(*expected) != wordsOf(*m_rtf))
            add(Kind::DifferentRTF);
    }

    void checkSizes()
    {
        for (const auto name : {kNoteTextMember, kNoteAttributesMember, kNoteRTFMember}) {
            const auto* const member = memberNamed(name);
            const auto* const data = member ? member->regularFileContents() : nullptr;
            if (data && data->bytes.size() > m_mostIndexedBytes)
                add(Kind::LargeMember, std::u16string(name));
        }
    }

    void checkMembers()
    {
        const auto ownNames = {kNoteTextMember, kNoteAttributesMember, kNoteRTFMember};
        const auto filesOfRTF = attachedFiles();
        for (const auto& [name, member] : m_package.fileWrappers()) {
            if (member->isSymbolicLink() && !m_noFiles.contains(name))
                add(Kind::LinkedMember, name);
            const bool isOwn = std::find(ownNames.begin(), ownNames.end(), name) != ownNames.end();
            // A file that both parts hold is there twice; the second has a mark that is not part of its name.
            const bool isNamed = m_namedFiles.contains(name)
                || m_namedFiles.contains(member->preferredFilename().value_or(name));
            // What a text that is not there refers to, nobody knows.
            if (m_text && !isOwn && !name.starts_with(u'.') && !isNamed && !filesOfRTF.contains(member.get()))
                add(Kind::UnusedMember, name);
        }
    }

    [[nodiscard]] std::set<const NSFileWrapper*> attachedFiles() const
    {
        std::set<const NSFileWrapper*> files;
        if (!m_rtf)
            return files;
        enumerateAttachments<NSTextAttachment>(*m_rtf, [&files](const auto& attachment, NSRange /*range*/) {
            files.insert(attachment->fileWrapper().get());
        });
        return files;
    }

    const NSFileWrapper& m_package;
    std::size_t m_mostIndexedBytes;
    NoteCheck m_check;
    NoteAttributes m_attributes;
    /// As it is stored; none when it is missing, empty or damaged.
    std::optional<NSMutableAttributedString> m_text;
    bool m_isTextGone = false;
    std::set<std::u16string> m_namedFiles;
    /// Members that are said to be no files already.
    std::set<std::u16string> m_noFiles;
    /// The text for other programs, as far as there is one.
    std::optional<NSAttributedString> m_rtf;
};

} // namespace

NoteCheck checkNote(const NSURL& url, std::size_t mostIndexedBytes)
{
    NSError error;
    const auto package = NSFileWrapper::initWithURL(url, NSFileWrapperReadingOptions::Immediate, &error);
    if (package)
        return checkNotePackage(*package, mostIndexedBytes);
    auto findings = unreadableMembers(url);
    findings.resize(std::min(findings.size(), NoteCheck::kMostFindings));
    if (findings.empty() && isFolder(url))
        findings.push_back({Kind::UnreadablePackage, UTF16FromUTF8(error.localizedDescription())});
    return {NoteReadability::Unreadable, std::move(findings), std::move(error)};
}

NoteCheck checkNotePackage(const NSFileWrapper& package, std::size_t mostIndexedBytes)
{
    if (!package.isDirectory())
        return {NoteReadability::Unreadable, {}, noPackageError()};
    return Checker(package, mostIndexedBytes).check();
}
