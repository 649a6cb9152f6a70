#include "note/CVLNoteFile.h"

#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLDividerTextAttachment.h"
#include "colours/ColourEquality.h"
#include "colours/NoteBackground.h"
#include "note/NoteExport.h"
#include "note/NotePackageReader.h"
#include "note/NotePackageWriter.h"
#include "note/NoteRecovery.h"
#include "note/NoteTextForStorage.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/NSURLResourceValues.h"
#include "platform/foundation/Unicode.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSDocumentAttributes.h"

#include <utility>

CVLNoteFile::CVLNoteFile()
    : m_backgroundColor(defaultBackgroundColor())
    , m_documentAttributes(
          NSAny::Dictionary{{std::u16string(NSDocumentTypeDocumentAttribute), NSRTFDTextDocumentType}})
{
}

std::unique_ptr<CVLNoteFile> CVLNoteFile::initWithFileURL(const NSURL& url, NSError* error)
{
    std::unique_ptr<CVLNoteFile> note(new CVLNoteFile(Nothing()));
    return note->readFileAtURL(url, error) ? std::move(note) : nullptr;
}

std::unique_ptr<CVLNoteFile> CVLNoteFile::initWithFileWrapper(const NSFileWrapper& fileWrapper,
                                                              NSError* error)
{
    std::unique_ptr<CVLNoteFile> note(new CVLNoteFile(Nothing()));
    return note->readFileWrapper(fileWrapper, error) ? std::move(note) : nullptr;
}

bool CVLNoteFile::readFileAtURL(const NSURL& url, NSError* error)
{
    auto package = NSFileWrapper::initWithURL(url, NSFileWrapperReadingOptions::Immediate, error);
    if (!package)
        return false;
    NSError readingError;
    if (readFileWrapper(*package, &readingError))
        return true;
    package.reset(); // Recovery reads all of it again.
    if (isRecoverable(readingError) && attemptRecoveryFromRTFD(url, error))
        return true;
    setError(error, std::move(readingError));
    return false;
}

bool CVLNoteFile::readFileWrapper(const NSFileWrapper& fileWrapper, NSError* error)
{
    if (!fileWrapper.isDirectory()) {
        setError(error, noPackageError());
        return false;
    }
    auto contents = contentsOfNotePackage(fileWrapper);
    if (contents.attributes)
        takeAttributes(*contents.attributes);
    if (error && contents.isUnreadable() && fileWrapper.fileWrapperForKey(kNoteRTFMember)) {
        *error = recoverableError();
        return false;
    }
    if (!contents.text) {
        setNoteText({});
        setError(error, std::move(contents.textError));
        return false;
    }
    const NoteAttributes none;
    setNoteText(shownNoteText(*std::move(contents.text), contents.attributes ? *contents.attributes : none,
                              fileWrapper));
    return true;
}

bool CVLNoteFile::attemptRecoveryFromRTFD(const NSURL& url, NSError* error)
{
    logRecovery(url);
    NSError readingError;
    const auto package
        = NSFileWrapper::initWithURL(url, NSFileWrapperReadingOptions::Immediate, &readingError);
    const auto text = package ? noteTextFromRTFD(*package, readingError) : std::nullopt;
    if (text)
        setNoteText(*text);
    else
        setError(error, invalidNoteError(std::move(readingError)));
    return text.has_value();
}

std::vector<NSFileWrapper::Ref> CVLNoteFile::fileAttachments() const
{
    std::vector<NSFileWrapper::Ref> files;
    const auto text = noteText();
    const auto collect = [&files](const NSAny& value, NSRange /*run*/, bool& /*stop*/) {
        const auto attachment = value.object<NSTextAttachment>();
        if (!attachment || !attachment->fileWrapper() || attachment->isExactly<CVLChecklistTextAttachment>()
            || attachment->isExactly<CVLDividerTextAttachment>())
            return;
        files.push_back(attachment->fileWrapper());
    };
    text.enumerateAttribute(NSAttachmentAttributeName, {0, text.length()},
                            {.longestEffectiveRangeNotRequired = true}, collect);
    return files;
}

NSMutableAttributedString CVLNoteFile::noteTextSuitableForExport() const
{
    return noteTextForExport(noteText());
}

NSFileWrapper::Ref CVLNoteFile::fileWrapper(NSError* error) const
{
    return notePackage({noteText(), showSmallImages(), backgroundColor(), drawingDataByAttachmentKey()},
                       error);
}

bool CVLNoteFile::saveToFileURL(const NSURL& url, NSError* error) const
{
    auto values = NSURLResourceValues::resourceValuesOfURL(url).value_or(NSURLResourceValues());
    const auto package = fileWrapper(error);
    if (!package || !package->writeToURL(url, NSFileWrapperWritingAtomic, std::nullopt, error))
        return false;
    values.isPackage = true;
    // The note is saved, whether or not the file system keeps these.
    (void)values.setForURL(url);
    return true;
}

void CVLNoteFile::takeAttributes(const NoteAttributes& attributes)
{
    setShowSmallImages(attributes.showSmallImages);
    if (attributes.backgroundColor)
        setBackgroundColor(attributes.backgroundColor);
    setDrawingDataByAttachmentKey(attributes.drawingDataByAttachmentKey);
}

bool CVLNoteFile::showSmallImages() const
{
    const std::lock_guard lock(m_mutex);
    return m_showSmallImages;
}

void CVLNoteFile::setShowSmallImages(bool shows)
{
    const std::lock_guard lock(m_mutex);
    m_showSmallImages = shows;
}

NSAttributedString CVLNoteFile::noteText() const
{
    const std::lock_guard lock(m_mutex);
    return m_noteText;
}

void CVLNoteFile::setNoteText(const NSAttributedString& text)
{
    const std::lock_guard lock(m_mutex);
    m_noteText = text;
}

NSColor::Ref CVLNoteFile::backgroundColor() const
{
    const auto isPure = m_backgroundColor
        && (CVLExtensions::isWhiteColor(*m_backgroundColor)
            || CVLExtensions::isBlackColor(*m_backgroundColor));
    return isPure ? NSColor::textBackgroundColor() : m_backgroundColor;
}

std::optional<std::u16string> CVLNoteFile::sharingItemName() const
{
    const std::lock_guard lock(m_mutex);
    return m_sharingItemName;
}

void CVLNoteFile::setSharingItemName(std::optional<std::u16string> name)
{
    const std::lock_guard lock(m_mutex);
    m_sharingItemName = std::move(name);
}

NSAny CVLNoteFile::drawingDataByAttachmentKey() const
{
    const std::lock_guard lock(m_mutex);
    return m_drawingDataByAttachmentKey;
}

void CVLNoteFile::setDrawingDataByAttachmentKey(NSAny drawings)
{
    const std::lock_guard lock(m_mutex);
    m_drawingDataByAttachmentKey = std::move(drawings);
}

std::optional<NSAny::Dictionary> CVLNoteFile::documentAttributes() const
{
    const std::lock_guard lock(m_mutex);
    return m_documentAttributes;
}

void CVLNoteFile::setDocumentAttributes(std::optional<NSAny::Dictionary> attributes)
{
    const std::lock_guard lock(m_mutex);
    m_documentAttributes = std::move(attributes);
}

std::u16string CVLNoteFile::fileType()
{
    return UTF16FromUTF8(CVLNoteType);
}

std::u16string CVLNoteFile::newNoteName()
{
    return NSBundle::mainBundle().localizedStringForKey(u"New Note");
}

std::u16string CVLNoteFile::newNoteFileName()
{
    return newNoteName() + u"." + std::u16string(CVLNoteFileExtension);
}

NSColor::Ref CVLNoteFile::defaultBackgroundColor()
{
    return CVLExtensions::defaultNoteBackgroundColor();
}

const std::set<std::u16string_view>& CVLNoteFile::allowedAttributeNames()
{
    return storedAttributeNames();
}

NSAny::Dictionary CVLNoteFile::defaultPreferences()
{
    return {{std::u16string(CVLNoteConvertImportedHTMLFilesKey), true},
            {std::u16string(CVLNoteConvertImportedPlainTextFilesKey), true},
            {std::u16string(CVLNoteOnlyShareNameToRemindersKey), true},
            {u"CVLNoteLinkUnderline", true}};
}
