#include "platform/word/NSAttributedStringWord.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/Unicode.h"
#include "platform/text/NSDocumentAttributes.h"
#include "platform/types/UTType.h"
#include "platform/word/WordDocumentReader.h"
#include "platform/word/WordDocumentWriter.h"

#include <cerrno>
#include <exception>

namespace {

constexpr std::string_view kDataName = "Word document";

void logCuts(const Content& content, std::string_view name)
{
    for (const auto& note : content.cutNotes)
        NSLog("Read in part: {}: {}", name, note);
}

NSError errorOf(const Content& content, std::string_view name)
{
    if (content.status == ContentStatus::Unreadable)
        return NSError::errorWithErrno(EIO, name);
    const auto code = content.status == ContentStatus::UnknownKind ? NSCocoaError::FileReadUnknown
                                                                   : NSCocoaError::FileReadCorruptFile;
    return NSError::errorWithCode(code, std::string(name) + ": " + content.reason);
}

/// Reads the document; what came of it besides is in the content.
Content read(const ContentSource& source, WordDocument& document)
{
    ContentSink sink(ContentLimits{});
    try {
        auto result = readWordDocument(source, sink, document);
        return sink.takeContent(result.status, std::move(result.reason));
    } catch (const std::exception& exception) {
        return sink.takeContent(ContentStatus::Damaged, exception.what());
    }
}

std::optional<NSAttributedString> textOf(const ContentSource& source, std::string_view name,
                                         NSAny::Dictionary* documentAttributes, NSError* error)
{
    WordDocument document;
    const auto content = read(source, document);
    if (content.status != ContentStatus::Read) {
        setError(error, errorOf(content, name));
        return std::nullopt;
    }
    logCuts(content, name);
    if (documentAttributes)
        *documentAttributes = std::move(document.attributes);
    return std::move(document.text);
}

/// The open file at a URL; not valid, with the reason in `error`, when it cannot be read.
FileDescriptor openedFile(const std::string& path, NSError* error)
{
    auto file = FileDescriptor::openForReading(path);
    if (file.isValid() && readFile(file.get(), 0))
        return file;
    setError(error, NSError::errorWithErrno(errno, path));
    return {};
}

ContentSource sourceOf(const FileDescriptor& file, const NSURL& url)
{
    ContentSource source;
    source.fileDescriptor = file.get();
    source.typeIdentifier = kUTTypeWordDocument;
    source.name = url.lastPathComponent();
    return source;
}

} // namespace

std::optional<NSAttributedString>
NSAttributedStringDocumentFormats::initWithWordDocument(const NSData& data,
                                                        NSAny::Dictionary* documentAttributes, NSError* error)
{
    ContentSource source;
    source.bytes = data.bytes;
    return textOf(source, kDataName, documentAttributes, error);
}

std::optional<NSAttributedString>
NSAttributedStringDocumentFormats::initWithWordDocument(const NSURL& url,
                                                        NSAny::Dictionary* documentAttributes, NSError* error)
{
    const auto path = url.path();
    const auto file = openedFile(path, error);
    if (!file.isValid())
        return std::nullopt;
    return textOf(sourceOf(file, url), path, documentAttributes, error);
}

std::optional<NSAttributedString> NSAttributedStringDocumentFormats::initWithURL(const NSURL& url,
                                                                                 NSError* error)
{
    const auto path = url.path();
    const auto file = openedFile(path, error);
    if (!file.isValid())
        return std::nullopt;
    const auto source = sourceOf(file, url);
    WordDocument document;
    auto content = read(source, document);
    if (content.status == ContentStatus::UnknownKind) {
        content = readContent(source);
        document.text = NSAttributedString(UTF16FromUTF8(content.text));
    }
    if (content.status != ContentStatus::Read) {
        setError(error, errorOf(content, path));
        return std::nullopt;
    }
    logCuts(content, path);
    return std::move(document.text);
}

std::optional<NSData>
NSAttributedStringDocumentFormats::WordDocumentFromRange(const NSAttributedString& text, NSRange range,
                                                         const NSAny::Dictionary& documentAttributes,
                                                         NSError* error)
{
    const auto type = documentAttributes.find(NSDocumentTypeDocumentAttribute);
    const bool isMeant = type == documentAttributes.end()
        || (type->second.string() && *type->second.string() == NSOfficeOpenXMLTextDocumentType);
    if (!isMeant) {
        setError(error,
                 NSError::errorWithCode(NSCocoaError::FileWriteInapplicableStringEncoding,
                                        "Word documents are written as such only"));
        return std::nullopt;
    }
    auto bytes = wordDocument(text, range, documentAttributes, error);
    return bytes ? std::optional(NSData{std::move(*bytes)}) : std::nullopt;
}
