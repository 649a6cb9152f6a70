#include "service/ItemText.h"

#include "note/NotePackage.h"
#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/TextEncoding.h"
#include "platform/foundation/Unicode.h"
#include "platform/media/ContentLimits.h"
#include "platform/media/PDFDocument.h"
#include "platform/word/NSAttributedStringWord.h"
#include "service/JoinedLines.h"
#include "service/MailText.h"

#include <exception>
#include <utility>

namespace {

constexpr ContentLimits kLimits;
/// After so many pages a PDF is opened again, so that its cached pages do not pile up.
constexpr std::size_t kPagesPerOpening = 10;

bool conforms(const ItemText& item, std::string_view type)
{
    return item.contentType && item.contentType->conformsToType(type);
}

std::optional<std::string> mimeTypeHintFor(const ItemText& item)
{
    if (!conforms(item, kUTTypeLegacyMarkdown) && !conforms(item, kUTTypeMarkdown)
        && !conforms(item, kUTTypePlainText))
        return std::nullopt;
    const auto plainText = UTType::typeWithIdentifier(kUTTypePlainText);
    return plainText ? plainText->preferredMIMEType() : std::nullopt;
}

void takeRecognisedText(ItemText& item, std::string_view data)
{
    if (isValidUTF8(data))
        item.text = std::string(prefixAtCharacterBorder(data, kLimits.textBytes + 1));
}

void readMailMessage(ItemText& item, const NSURL& url)
{
    NSError error;
    item.text = textOfMailMessage(url, &error);
    if (!item.text)
        item.error = error;
}

// The pages are walked, in fresh documents every few pages, and their text is left aside: the index's own
// extractor reads the document again, and finds there what the walk has already read.
void walkPDF(const NSURL& url)
{
    auto document = PDFDocument::initWithURL(url);
    if (!document || (document->isLocked() && !document->unlockWithPassword("")))
        return;
    for (std::size_t index = 0; document && index < document->pageCount(); ++index) {
        if (index > 0 && index % kPagesPerOpening == 0)
            document = PDFDocument::initWithURL(url);
        const auto page = document ? document->pageAtIndex(index) : std::nullopt;
        if (page)
            (void)page->string(); // See above.
    }
}

void readText(ItemText& item, const NSURL& url)
{
    // One byte more than is kept, so that a cut shows.
    item.text = stringWithContentsOfURL(url, nullptr, nullptr, kLimits.textBytes + 1);
    if (item.text)
        return;
    const auto file = FileDescriptor::openForReading(url.path());
    const auto bytes = file.isValid() ? readFile(file.get(), kLimits.textBytes + 1) : std::nullopt;
    if (!bytes)
        return;
    std::string converted;
    (void)stringEncodingForData(*bytes, &converted); // Which encoding it was does not matter.
    item.text = std::move(converted);
}

void readWordDocument(ItemText& item, const NSURL& url)
{
    NSError error;
    if (const auto document = NSAttributedStringDocumentFormats::initWithURL(url, &error))
        item.text = UTF8FromUTF16(document->string());
    else
        item.error = error;
}

void readImage(ItemText& item, const NSURL& url, const ImageTerms& imageTerms)
{
    if (const auto terms = imageTerms.searchTermsForFile(url); !terms.empty())
        item.text = joinedLines(terms);
}

ItemTextRule ruleFor(const ItemText& item, std::string_view textRecognitionData, const ImageTerms& imageTerms)
{
    if (!textRecognitionData.empty())
        return ItemTextRule::RecognisedText;
    if (conforms(item, CVLNoteType))
        return ItemTextRule::NotePackage;
    if (conforms(item, kUTTypeEmailMessage))
        return ItemTextRule::MailMessage;
    if (conforms(item, kUTTypePDF))
        return ItemTextRule::PDF;
    if (conforms(item, kUTTypeText) && !conforms(item, kUTTypePlainText))
        return ItemTextRule::Text;
    if (conforms(item, kUTTypeWordDocument))
        return ItemTextRule::WordDocument;
    if (conforms(item, kUTTypeImage) && imageTerms.isFileTypeSupported(*item.contentType))
        return ItemTextRule::Image;
    return ItemTextRule::ByFile;
}

void applyRule(ItemText& item, const NSURL& url, std::string_view textRecognitionData,
               const ItemSources& sources)
{
    switch (item.rule) {
    case ItemTextRule::RecognisedText:
        return takeRecognisedText(item, textRecognitionData);
    case ItemTextRule::NotePackage:
        item.text = sources.noteText->noteTextOfPackage(url);
        return;
    case ItemTextRule::MailMessage:
        return readMailMessage(item, url);
    case ItemTextRule::PDF:
        return walkPDF(url);
    case ItemTextRule::Text:
        return readText(item, url);
    case ItemTextRule::WordDocument:
        return readWordDocument(item, url);
    case ItemTextRule::Image:
        return readImage(item, url, *sources.imageTerms);
    case ItemTextRule::ByFile:
        return;
    }
}

// What raises while it is read cannot be read.
void noteUnreadable(ItemText& item, const NSURL& url, const char* reason)
{
    NSLog("Couldn't read {}: {}", url.absoluteString(), reason);
    item.text.reset();
    if (item.rule == ItemTextRule::MailMessage || item.rule == ItemTextRule::WordDocument)
        item.error = NSError::errorWithCode(NSCocoaError::FileReadCorruptFile, reason);
}

void limitText(ItemText& item, const NSURL& url)
{
    if (!item.text || item.text->size() <= kLimits.textBytes)
        return;
    item.text->resize(prefixAtCharacterBorder(*item.text, kLimits.textBytes).size());
    NSLog("The text of {} was cut at its size limit", url.absoluteString());
}

} // namespace

std::string_view nameOfItemTextRule(ItemTextRule rule)
{
    switch (rule) {
    case ItemTextRule::RecognisedText:
        return "recognised text";
    case ItemTextRule::NotePackage:
        return "note package";
    case ItemTextRule::MailMessage:
        return "e-mail message";
    case ItemTextRule::PDF:
        return "PDF";
    case ItemTextRule::Text:
        return "text";
    case ItemTextRule::WordDocument:
        return "Word document";
    case ItemTextRule::Image:
        return "image";
    case ItemTextRule::ByFile:
        return "by file";
    }
    return {};
}

ItemText textOfItem(const NSURL& url, std::string_view textRecognitionData, const ItemSources& sources)
{
    ItemText item;
    item.contentType = UTType::contentTypeOfFile(url);
    item.mimeTypeHint = mimeTypeHintFor(item);
    item.rule = ruleFor(item, textRecognitionData, *sources.imageTerms);
    try {
        applyRule(item, url, textRecognitionData, sources);
        limitText(item, url);
    } catch (const std::exception& exception) {
        noteUnreadable(item, url, exception.what());
    }
    return item;
}
