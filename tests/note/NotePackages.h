#pragma once

#include "colours/HighlightAttribute.h"
#include "note/NotePackage.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/text/NSAttributedStringObject.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/styles/StyleTest.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

/// What is logged while the object lives.
class LogLines {
public:
    [[nodiscard]] const std::string& text() const { return m_text; }

private:
    std::string m_text;
    NSLogCapture m_capture{[this](std::string_view line) { m_text.append(line).append("\n"); }};
};

/// A NoteText member's bytes.
[[nodiscard]] inline std::string archivedText(const NSAttributedString& text)
{
    return NSKeyedArchiver::archivedDataWithRootObject(std::make_shared<const NSAttributedStringObject>(
                                                           text, NSAttributedStringObject::Form::Mutable),
                                                       false)
        .value()
        .bytes;
}

/// A NoteAttributes member's bytes.
[[nodiscard]] inline std::string attributesData(const NSAny::Dictionary& attributes)
{
    return NSPropertyListSerialization::dataWithPropertyList(attributes, NSPropertyListFormat::Binary)
        .value()
        .bytes;
}

/// A note package, made member by member.
class NotePackage {
public:
    NotePackage& add(std::u16string_view name, std::string bytes)
    {
        m_package->addRegularFileWithContents({std::move(bytes)}, name);
        return *this;
    }

    NotePackage& add(const NSFileWrapper::Ref& member)
    {
        m_package->addFileWrapper(member);
        return *this;
    }

    NotePackage& addText(const NSAttributedString& text) { return add(kNoteTextMember, archivedText(text)); }

    NotePackage& addAttributes(const NSAny::Dictionary& attributes)
    {
        return add(kNoteAttributesMember, attributesData(attributes));
    }

    [[nodiscard]] const NSFileWrapper& wrapper() const { return *m_package; }

private:
    NSFileWrapper::Ref m_package = std::make_shared<NSFileWrapper>(NSFileType::Directory);
};

/// An empty file with a name: what the attachments of archived texts have.
[[nodiscard]] inline NSFileWrapper::Ref placeholderNamed(std::u16string_view name)
{
    return makeFile(name, "");
}

/// The attachment at a location; null when there is none.
[[nodiscard]] inline std::shared_ptr<const NSTextAttachment> attachmentAt(const NSAttributedString& text,
                                                                          NSUInteger location)
{
    return text.attribute(NSAttachmentAttributeName, location).object<NSTextAttachment>();
}

template <typename Attachment>
[[nodiscard]] bool isAttachment(const NSAttributedString& text, NSUInteger location)
{
    const auto attachment = attachmentAt(text, location);
    return attachment && attachment->isExactly<Attachment>();
}

/// The contents of an attachment's file; "none" without a file.
[[nodiscard]] inline std::string contentsAt(const NSAttributedString& text, NSUInteger location)
{
    const auto attachment = attachmentAt(text, location);
    const auto* contents = attachment && attachment->fileWrapper()
        ? attachment->fileWrapper()->regularFileContents()
        : nullptr;
    return contents ? contents->bytes : "none";
}
