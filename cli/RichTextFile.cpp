#include "cli/RichTextFile.h"

#include "attachments/AttachmentClasses.h"
#include "cli/AttachmentFileNames.h"
#include "cli/ErrorMessage.h"
#include "cli/LocalImages.h"
#include "markdown/MarkdownImport.h"
#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/TextEncoding.h"
#include "platform/foundation/Unicode.h"
#include "platform/html/NSAttributedStringHTML.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedStringObject.h"
#include "platform/text/NSDocumentAttributes.h"
#include "platform/types/UTType.h"
#include "strings/MarkdownFileExtensions.h"
#include "styles/CVLNoteTextStyle.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace {

constexpr std::size_t kMostBytes = std::size_t{32} << 20U;
constexpr std::string_view kArchiveStart = "bplist00";

std::nullopt_t fail(NSError* error, const std::string& reason)
{
    setError(error, commandError(CommandError::NotPrepared, reason));
    return std::nullopt;
}

std::optional<std::string> bytesOf(const std::string& path, NSError* error)
{
    const auto descriptor = FileDescriptor::openForReading(path);
    auto bytes = descriptor.isValid() ? readFile(descriptor.get(), kMostBytes + 1) : std::nullopt;
    if (!bytes) {
        const auto reason = std::system_category().message(errno);
        std::error_code ignored; // The reason is known by then.
        return fail(error, std::filesystem::is_directory(path, ignored) ? "it is a folder" : reason);
    }
    if (bytes->size() > kMostBytes)
        return fail(error, "the file is larger than 32 MB");
    return bytes;
}

std::optional<RichTextFile::Kind> kindOf(const std::string& path, std::string_view bytes)
{
    using Kind = RichTextFile::Kind;
    const auto extension = std::filesystem::path(path).extension().native();
    if (!extension.empty()
        && CVLMarkdown::isFileExtensionSupportedMarkdownExtension(UTF16FromUTF8(extension.substr(1))))
        return Kind::Markdown;
    const auto type = UTType::contentTypeOfFile(NSURL::fileURLWithPath(path));
    if (type && type->conformsToType(kUTTypeHTML))
        return Kind::Page;
    if (bytes.starts_with(kArchiveStart))
        return Kind::Archive;
    return type && type->conformsToType(kUTTypePlainText) ? std::optional(Kind::PlainText) : std::nullopt;
}

NSFont::Ref bodyFont()
{
    return CVLNoteTextStyle::bodyNoteTextStyle()->font();
}

std::optional<RichTextFile> readPage(std::string bytes, const std::string& path, NSError* error)
{
    LocalImages images(path);
    NSHTMLReadingOptions options;
    options.baseURL = images.baseURL();
    options.fontFamily = bodyFont()->familyName();
    options.fontSize = bodyFont()->pointSize();
    options.resourceForURL = [&images](const std::string& url) { return images.fileForURL(url); };
    // The file is bounded, and so is what becomes of it: nothing is cut off, markers of lists included.
    options.mostUnits = 4 * bytes.size();
    NSAny::Dictionary attributes;
    auto text = NSAttributedStringDocumentFormats::initWithHTML(NSData{std::move(bytes)}, options,
                                                                &attributes, error);
    if (!text)
        return std::nullopt;
    const auto title = attributes.find(NSTitleDocumentAttribute);
    const bool isTitled = title != attributes.end() && title->second.string();
    return RichTextFile{RichTextFile::Kind::Page, std::move(*text),
                        isTitled ? *title->second.string() : std::u16string()};
}

RichTextFile readMarkdown(std::string_view bytes, const std::string& path)
{
    LocalImages images(path);
    MarkdownImportOptions options;
    options.font = bodyFont();
    options.fileForImage = [&images](std::u16string_view target) { return images.fileForTarget(target); };
    return {RichTextFile::Kind::Markdown,
            attributedStringWithMarkdown(UTF16FromUTF8(decodedText(bytes)), options),
            {}};
}

RichTextFile readPlainText(std::string_view bytes)
{
    return {RichTextFile::Kind::PlainText,
            NSAttributedString(UTF16FromUTF8(decodedText(bytes)),
                               {{std::u16string(NSFontAttributeName), NSAny(bodyFont())}}),
            {}};
}

std::optional<RichTextFile> readArchive(std::string_view bytes, NSError* error)
{
    const auto text
        = NSKeyedUnarchiver::unarchivedObjectOfClasses(
              {&NSAttributedStringObject::classObject(), &NSAttributedStringObject::mutableClassObject()},
              bytes, attachmentClasses(), error)
              .object<NSAttributedStringObject>();
    if (!text)
        return std::nullopt;
    return RichTextFile{RichTextFile::Kind::Archive, text->text(), {}};
}

} // namespace

std::optional<RichTextFile> readRichTextFile(const std::string& path, NSError* error)
{
    auto bytes = bytesOf(path, error);
    if (!bytes)
        return std::nullopt;
    const auto kind = kindOf(path, *bytes);
    if (!kind)
        return fail(error, "it is no page, Markdown, plain text or archive of a text");
    std::optional<RichTextFile> file;
    if (*kind == RichTextFile::Kind::Page)
        file = readPage(std::move(*bytes), path, error);
    else if (*kind == RichTextFile::Kind::Markdown)
        file = readMarkdown(*bytes, path);
    else if (*kind == RichTextFile::Kind::PlainText)
        file = readPlainText(*bytes);
    else
        file = readArchive(*bytes, error);
    if (file)
        makeFileNamesUnique(file->text);
    if (file && file->title.empty())
        file->title = UTF16FromUTF8(std::filesystem::path(path).stem().native());
    return file;
}
