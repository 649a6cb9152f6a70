#include "documents/DocumentExport.h"

#include "documents/DocumentErrors.h"
#include "documents/FilesBeside.h"
#include "documents/PageFileNames.h"
#include "documents/PlainMarks.h"
#include "documents/PlainTextDocument.h"
#include "markdown/MarkdownExport.h"
#include "note/CVLNoteFile.h"
#include "note/NoteExport.h"
#include "platform/foundation/Unicode.h"
#include "platform/html/NSAttributedStringHTML.h"
#include "platform/media/ImageHeader.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSDocumentAttributes.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/word/NSAttributedStringWord.h"
#include "rendering/NoteRendering.h"
#include "richtext/AttachmentRuns.h"

#include <utility>

namespace {

using namespace NSAttributedStringDocumentFormats;
using Options = DocumentExportOptions;
using Exported = std::optional<ExportedDocument>;

NSFileWrapper::Ref fileWith(std::string bytes)
{
    return NSFileWrapper::initRegularFileWithContents({std::move(bytes)});
}

NSAny::Dictionary documentAttributes(std::u16string_view type, const Options& options)
{
    NSAny::Dictionary attributes{{std::u16string(NSDocumentTypeDocumentAttribute), std::u16string(type)}};
    if (!options.title.empty())
        attributes.emplace(NSTitleDocumentAttribute, options.title);
    return attributes;
}

/// What was taken out of a text belongs into the folder, or is left out.
ExportedDocument documentWithFiles(std::string bytes, TextWithFilesBeside taken, std::size_t fileCount,
                                   const Options& options)
{
    if (options.filesFolder.empty())
        return {fileWith(std::move(bytes)), {}, fileCount};
    return {fileWith(std::move(bytes)), std::move(taken.files), fileCount - taken.keptCount};
}

Exported exportMarkdown(const NSAttributedString& noteText, const Options& options)
{
    auto taken = takeFilesOut(noteTextWithPlainMarks(noteText));
    auto markdown = markdownWithAttributedString(taken.text, {.filesFolder = options.filesFolder});
    return documentWithFiles(UTF8FromUTF16(markdown), std::move(taken), fileCountOf(noteText), options);
}

Exported exportPage(const NSAttributedString& noteText, const Options& options, NSError* error)
{
    auto taken = takeFilesOut(noteTextForExport(noteText));
    const auto page = HTMLFromRange(taken.text, {0, taken.text.length()},
                                    documentAttributes(NSHTMLTextDocumentType, options), error);
    if (!page)
        return std::nullopt;
    return documentWithFiles(pageWithFilesInFolder(page->bytes, options.filesFolder), std::move(taken),
                             fileCountOf(noteText), options);
}

Exported exportPlainText(const NSAttributedString& noteText)
{
    return ExportedDocument{
        fileWith(UTF8FromUTF16(plainTextOfNoteText(noteText))), {}, fileCountOf(noteText)};
}

Exported exportRTF(const NSAttributedString& noteText, const Options& options, NSError* error)
{
    const auto text = noteTextForExport(noteText);
    auto rtf
        = RTFFromRange(text, {0, text.length()}, documentAttributes(NSRTFTextDocumentType, options), error);
    if (!rtf)
        return std::nullopt;
    return ExportedDocument{fileWith(std::move(rtf->bytes)), {}, fileCountOf(noteText)};
}

Exported exportRTFD(const NSAttributedString& noteText, const Options& options, NSError* error)
{
    const auto text = noteTextForExport(noteText);
    auto package = RTFDFileWrapperFromRange(text, {0, text.length()},
                                            documentAttributes(NSRTFDTextDocumentType, options), error);
    if (!package)
        return std::nullopt;
    return ExportedDocument{std::move(package), {}, fileCountOf(noteText) - takeFilesOut(text).keptCount};
}

bool isPicture(const NSTextAttachment& attachment)
{
    const auto& file = attachment.fileWrapper();
    const auto* const inFile = file ? file->regularFileContents() : nullptr;
    const auto* const contents = inFile || !attachment.contents() ? inFile : &*attachment.contents();
    return contents && imageHeader(contents->bytes);
}

/// Word documents hold pictures; of other files they have the names.
std::size_t pictureCountOf(const NSAttributedString& text)
{
    std::size_t count = 0;
    enumerateAttachments<NSTextAttachment>(text, [&count](const auto& attachment, NSRange range) {
        count += isPicture(*attachment) ? range.length : 0;
    });
    return count;
}

Exported exportWord(const NSAttributedString& noteText, const Options& options, NSError* error)
{
    const auto text = noteTextForExport(noteText);
    auto document = WordDocumentFromRange(
        text, {0, text.length()}, documentAttributes(NSOfficeOpenXMLTextDocumentType, options), error);
    if (!document)
        return std::nullopt;
    return ExportedDocument{
        fileWith(std::move(document->bytes)), {}, fileCountOf(noteText) - pictureCountOf(text)};
}

Exported exportPDF(const CVLNoteFile& note, NSError* error)
{
    auto pages = PDFWithNote(note, {}, error);
    if (!pages)
        return std::nullopt;
    return ExportedDocument{fileWith(std::move(pages->bytes)), {}, 0};
}

} // namespace

std::optional<ExportedDocument> exportedDocument(const CVLNoteFile& note, DocumentKind kind,
                                                 const DocumentExportOptions& options, NSError* error)
{
    const auto noteText = note.noteText();
    switch (kind) {
    case DocumentKind::Markdown:
        return exportMarkdown(noteText, options);
    case DocumentKind::Page:
        return exportPage(noteText, options, error);
    case DocumentKind::PlainText:
        return exportPlainText(noteText);
    case DocumentKind::RTF:
        return exportRTF(noteText, options, error);
    case DocumentKind::RTFD:
        return exportRTFD(noteText, options, error);
    case DocumentKind::Word:
        return exportWord(noteText, options, error);
    case DocumentKind::PDF:
        return exportPDF(note, error);
    case DocumentKind::Note:
    case DocumentKind::Archive:
        break;
    }
    setError(error,
             documentError(NSCocoaError::FileWriteInapplicableStringEncoding,
                           u"Notes cannot be written as files of this kind."));
    return std::nullopt;
}
