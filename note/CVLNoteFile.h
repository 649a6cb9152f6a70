#pragma once

#include "note/NoteErrors.h"
#include "note/NotePackage.h"
#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/NSURL.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSColor.h"

#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

struct NoteAttributes;

/// User defaults of the programs around the note editor; nothing here reads them.
inline constexpr std::u16string_view CVLNoteConvertImportedHTMLFilesKey = u"CVLNoteConvertImportedHTMLFiles";
inline constexpr std::u16string_view CVLNoteConvertImportedPlainTextFilesKey
    = u"CVLNoteConvertImportedPlainTextFiles";
inline constexpr std::u16string_view CVLNoteOnlyShareNameToRemindersKey = u"CVLNoteOnlyShareNameToReminders";

/// One note: its rich text and what belongs to it, and the reader and writer of its package (NotePackage.h).
///
/// Single fields may be read and set from any thread, but for the background colour; a note is read and
/// written on one thread at a time. Errors are of CVLNoteFileErrorDomain where they say what is wrong with
/// the note, and those of files and archives otherwise.
class CVLNoteFile {
public:
    /// A new note: no text, the user's default background, and RTFD for its documentAttributes.
    CVLNoteFile();

    /// Null, with the reason in `error`, when there is no note that can be read. A note that was read has no
    /// documentAttributes, and a background colour only if the package has one: reading starts from nothing,
    /// not from a new note.
    ///
    /// Without an error slot the check that leads to recovery is made all the same.
    [[nodiscard]] static std::unique_ptr<CVLNoteFile> initWithFileURL(const NSURL& url,
                                                                      NSError* error = nullptr);
    /// As readFileWrapper: without an error slot nothing is said to be recoverable.
    [[nodiscard]] static std::unique_ptr<CVLNoteFile> initWithFileWrapper(const NSFileWrapper& fileWrapper,
                                                                          NSError* error = nullptr);

    /// Reads the package into this note; from its RTFD part when its own members are missing or unreadable.
    /// @return false with the reason in `error`: the one for which the members could not be read, whatever
    /// was wrong with the RTFD part.
    [[nodiscard]] bool readFileAtURL(const NSURL& url, NSError* error = nullptr);
    /// Reads a package into this note. The text is replaced, and so are showSmallImages and the drawings when
    /// the package says something of them; the background colour when the package has one.
    /// @return false with the reason in `error`: 10001 for what is no folder; 10002, only when there is a
    /// slot, for a package whose RTFD part may be read; the unarchiver's for a text that cannot be read
    /// otherwise. The text is empty then.
    [[nodiscard]] bool readFileWrapper(const NSFileWrapper& fileWrapper, NSError* error = nullptr);
    /// Takes the text from the package's RTFD part, and leaves everything else of the note as it is.
    /// @return false, with 10001 and what was wrong underneath in `error`, when that part cannot be read.
    [[nodiscard]] bool attemptRecoveryFromRTFD(const NSURL& url, NSError* error = nullptr);

    [[nodiscard]] bool showSmallImages() const;
    void setShowSmallImages(bool shows);

    [[nodiscard]] NSAttributedString noteText() const;
    void setNoteText(const NSAttributedString& text);

    /// The system's text background when the colour is pure white or black; null when there is none.
    [[nodiscard]] NSColor::Ref backgroundColor() const;

    void setBackgroundColor(NSColor::Ref color) { m_backgroundColor = std::move(color); }

    /// For whoever shares the note; not stored.
    [[nodiscard]] std::optional<std::u16string> sharingItemName() const;
    void setSharingItemName(std::optional<std::u16string> name);

    /// The files of the text's attachments, in its order; a file that several attachments have, several
    /// times. Checklist boxes and dividers are no files.
    [[nodiscard]] std::vector<NSFileWrapper::Ref> fileAttachments() const;

    /// The text for other programs: checklists as lists, dividers as asterisks, highlights in the platform's
    /// own form, and black where the text colour follows the appearance.
    [[nodiscard]] NSMutableAttributedString noteTextSuitableForExport() const;

    /// The package, in memory. Null, with the reason in `error`, when the text cannot be written. Other notes
    /// with the same files may be saved on other threads meanwhile.
    [[nodiscard]] NSFileWrapper::Ref fileWrapper(NSError* error = nullptr) const;

    /// Writes the package, as a whole or not at all: until the new one is complete and on disk, the old one
    /// stays. Whether the extension is hidden, and when the note was made, stay as they are at the URL.
    [[nodiscard]] bool saveToFileURL(const NSURL& url, NSError* error = nullptr) const;

    /// A dictionary, stored as it is; nil for none.
    [[nodiscard]] NSAny drawingDataByAttachmentKey() const;
    void setDrawingDataByAttachmentKey(NSAny drawings);

    /// As NSDocumentAttributes.h has them; none of a note that was read.
    [[nodiscard]] std::optional<NSAny::Dictionary> documentAttributes() const;
    void setDocumentAttributes(std::optional<NSAny::Dictionary> attributes);

    /// CVLNoteType.
    [[nodiscard]] static std::u16string fileType();

    /// "New Note" in the user's language, and the file name made of it.
    [[nodiscard]] static std::u16string newNoteName();
    [[nodiscard]] static std::u16string newNoteFileName();
    /// The user's choice (colours/NoteBackground.h).
    [[nodiscard]] static NSColor::Ref defaultBackgroundColor();
    /// The names of the text attributes that packages store.
    [[nodiscard]] static const std::set<std::u16string_view>& allowedAttributeNames();
    /// What programs register with their user defaults.
    [[nodiscard]] static NSAny::Dictionary defaultPreferences();

private:
    struct Nothing { };

    explicit CVLNoteFile(Nothing /*nothing*/) { }

    void takeAttributes(const NoteAttributes& attributes);

    mutable std::mutex m_mutex;
    bool m_showSmallImages = false;
    NSAttributedString m_noteText;
    NSColor::Ref m_backgroundColor;
    std::optional<std::u16string> m_sharingItemName;
    NSAny m_drawingDataByAttachmentKey;
    std::optional<NSAny::Dictionary> m_documentAttributes;
};
