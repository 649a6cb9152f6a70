#include "documents/Document.h"

#include "attachments/AttachmentClasses.h"
#include "documents/AttachmentFileNames.h"
#include "documents/DocumentErrors.h"
#include "documents/LocalImages.h"
#include "markdown/MarkdownImport.h"
#include "note/CVLNoteFile.h"
#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/TextEncoding.h"
#include "platform/foundation/Unicode.h"
#include "platform/html/NSAttributedStringHTML.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedStringObject.h"
#include "platform/text/NSDocumentAttributes.h"
#include "platform/word/NSAttributedStringWord.h"
#include "styles/CVLNoteTextStyle.h"

#include <cerrno>
#include <filesystem>
#include <sys/stat.h>

namespace {

/// In the form by which markers are known from here on.
constexpr NSAttributedStringDocumentFormats::NSRTFReadingOptions kMarkersOfLists{
    .textKit1ListMarkerFormat = true, .putsTabsAroundListMarkers = true};

using namespace NSAttributedStringDocumentFormats;

constexpr std::size_t kMostBytesOfText = std::size_t{32} << 20U;
constexpr std::size_t kMostBytes = std::size_t{512} << 20U;

NSFont::Ref bodyFont()
{
    return CVLNoteTextStyle::bodyNoteTextStyle()->font();
}

std::u16string titleIn(const NSAny::Dictionary& attributes)
{
    const auto title = attributes.find(NSTitleDocumentAttribute);
    const auto* const text = title == attributes.end() ? nullptr : title->second.string();
    return text ? *text : std::u16string();
}

std::optional<Document> documentOf(DocumentKind kind, std::optional<NSAttributedString> text,
                                   const NSAny::Dictionary& attributes = {})
{
    if (!text)
        return std::nullopt;
    return Document{kind, std::move(*text), titleIn(attributes)};
}

/// `images` may be null.
std::optional<Document> readPage(NSData data, LocalImages* images, NSError* error)
{
    NSHTMLReadingOptions options;
    options.fontFamily = bodyFont()->familyName();
    options.fontSize = bodyFont()->pointSize();
    if (images) {
        options.baseURL = images->baseURL();
        options.resourceForURL = [images](const std::string& url) { return images->fileForURL(url); };
    }
    // The file is bounded, and so is what becomes of it: nothing is cut off, markers of lists included.
    options.mostUnits = 4 * data.bytes.size();
    NSAny::Dictionary attributes;
    auto text = initWithHTML(data, options, &attributes, error);
    return documentOf(DocumentKind::Page, std::move(text), attributes);
}

Document readMarkdown(std::string_view bytes, LocalImages* images)
{
    MarkdownImportOptions options;
    options.font = bodyFont();
    if (images)
        options.fileForImage = [images](std::u16string_view target) { return images->fileForTarget(target); };
    return {
        DocumentKind::Markdown, attributedStringWithMarkdown(UTF16FromUTF8(decodedText(bytes)), options), {}};
}

Document readPlainText(std::string_view bytes)
{
    return {DocumentKind::PlainText,
            NSAttributedString(UTF16FromUTF8(decodedText(bytes)),
                               {{std::u16string(NSFontAttributeName), NSAny(bodyFont())}}),
            {}};
}

std::optional<Document> readArchive(std::string_view bytes, NSError* error)
{
    const auto text
        = NSKeyedUnarchiver::unarchivedObjectOfClasses(
              {&NSAttributedStringObject::classObject(), &NSAttributedStringObject::mutableClassObject()},
              bytes, attachmentClasses(), error)
              .object<NSAttributedStringObject>();
    if (!text)
        return std::nullopt;
    return Document{DocumentKind::Archive, text->text(), {}};
}

template <typename Reader> std::optional<Document> readRich(DocumentKind kind, const Reader& reader)
{
    NSAny::Dictionary attributes;
    auto text = reader(&attributes);
    return documentOf(kind, std::move(text), attributes);
}

std::optional<Document> cannotBeRead(NSError* error)
{
    setError(error,
             documentError(NSCocoaError::FileReadUnknown, u"Files of this kind cannot be read as notes."));
    return std::nullopt;
}

std::optional<Document> read(NSData data, DocumentKind kind, LocalImages* images, NSError* error)
{
    switch (kind) {
    case DocumentKind::Markdown:
        return readMarkdown(data.bytes, images);
    case DocumentKind::Page:
        return readPage(std::move(data), images, error);
    case DocumentKind::PlainText:
        return readPlainText(data.bytes);
    case DocumentKind::Archive:
        return readArchive(data.bytes, error);
    case DocumentKind::RTF:
        return readRich(
            kind, [&](auto* attributes) { return initWithRTF(data, attributes, error, kMarkersOfLists); });
    case DocumentKind::RTFD:
        return readRich(
            kind, [&](auto* attributes) { return initWithRTFD(data, attributes, error, kMarkersOfLists); });
    case DocumentKind::Word:
        return readRich(kind,
                        [&](auto* attributes) { return initWithWordDocument(data, attributes, error); });
    case DocumentKind::Note:
    case DocumentKind::PDF:
        break;
    }
    return cannotBeRead(error);
}

std::size_t mostBytesOf(DocumentKind kind)
{
    const bool isRich = kind == DocumentKind::RTF || kind == DocumentKind::RTFD || kind == DocumentKind::Word;
    return isRich ? kMostBytes : kMostBytesOfText;
}

bool isTooLarge(const NSData& data, DocumentKind kind, NSError* error)
{
    if (data.bytes.size() <= mostBytesOf(kind))
        return false;
    setError(error, documentError(NSCocoaError::FileReadTooLarge, u"The file is too large."));
    return true;
}

std::optional<NSData> dataOf(const NSURL& url, DocumentKind kind, NSError* error)
{
    const auto descriptor = FileDescriptor::openForReading(url.path());
    auto bytes = descriptor.isValid() ? readFile(descriptor.get(), mostBytesOf(kind) + 1) : std::nullopt;
    if (!bytes) {
        setError(error, NSError::errorWithErrno(errno, url.path()));
        return std::nullopt;
    }
    return NSData{std::move(*bytes)};
}

std::optional<Document> readNote(const NSURL& url, NSError* error)
{
    const auto note = CVLNoteFile::initWithFileURL(url, error);
    if (!note)
        return std::nullopt;
    return Document{DocumentKind::Note, note->noteText(), {}};
}

std::optional<Document> readRTFDFolder(const NSURL& url, NSError* error)
{
    const auto folder = NSFileWrapper::initWithURL(url, NSFileWrapperReadingOptions::Immediate, error);
    if (!folder)
        return std::nullopt;
    return readRich(DocumentKind::RTFD, [&](auto* attributes) {
        return initWithRTFDFileWrapper(*folder, attributes, error, kMarkersOfLists);
    });
}

std::optional<Document> readFile(const NSURL& url, DocumentKind kind, NSError* error)
{
    auto data = dataOf(url, kind, error);
    if (!data || isTooLarge(*data, kind, error))
        return std::nullopt;
    LocalImages images(url.path());
    return read(std::move(*data), kind, &images, error);
}

bool isFolder(const NSURL& url)
{
    struct stat status { };

    return ::stat(url.path().c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// Where links lead to; the URL itself when there is nothing. Packages are opened without following any.
NSURL resolvedURL(const NSURL& url)
{
    std::error_code failure;
    const auto path = std::filesystem::canonical(url.path(), failure);
    return failure ? url : NSURL::fileURLWithPath(path.native());
}

} // namespace

std::optional<Document> readDocument(const NSURL& url, NSError* error)
{
    const auto kind = documentKindOfFile(url, error);
    return kind ? readDocument(url, *kind, error) : std::nullopt;
}

std::optional<Document> readDocument(const NSURL& url, DocumentKind kind, NSError* error)
{
    std::optional<Document> document;
    if (kind == DocumentKind::Note)
        document = readNote(resolvedURL(url), error);
    else if (kind == DocumentKind::RTFD && isFolder(url))
        document = readRTFDFolder(resolvedURL(url), error);
    else
        document = readFile(url, kind, error);
    if (!document)
        return std::nullopt;
    if (kind != DocumentKind::Note)
        makeFileNamesUnique(document->text);
    if (document->title.empty())
        document->title = UTF16FromUTF8(std::filesystem::path(url.path()).stem().native());
    return document;
}

std::optional<Document> documentWithData(NSData data, DocumentKind kind, NSError* error)
{
    if (isTooLarge(data, kind, error))
        return std::nullopt;
    auto document = read(std::move(data), kind, nullptr, error);
    if (document)
        makeFileNamesUnique(document->text);
    return document;
}
