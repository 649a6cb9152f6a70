#include "documents/DocumentKind.h"

#include "documents/DocumentErrors.h"
#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/Unicode.h"
#include "platform/types/UTType.h"
#include "strings/MarkdownFileExtensions.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <sys/stat.h>
#include <utility>

namespace {

using Named = std::pair<std::string_view, DocumentKind>;

constexpr std::array kNames{
    Named{"note", DocumentKind::Note},         Named{"cvlnote", DocumentKind::Note},
    Named{"markdown", DocumentKind::Markdown}, Named{"md", DocumentKind::Markdown},
    Named{"html", DocumentKind::Page},         Named{"htm", DocumentKind::Page},
    Named{"rtf", DocumentKind::RTF},           Named{"rtfd", DocumentKind::RTFD},
    Named{"docx", DocumentKind::Word},         Named{"word", DocumentKind::Word},
    Named{"txt", DocumentKind::PlainText},     Named{"text", DocumentKind::PlainText},
    Named{"pdf", DocumentKind::PDF},
};

// By what the contents begin with, of files whose names say nothing better.
constexpr std::array kBeginnings{
    Named{"bplist00", DocumentKind::Archive},
    Named{"{\\rtf", DocumentKind::RTF},
    Named{"rtfd", DocumentKind::RTFD},
};

constexpr std::array kTypes{
    Named{kUTTypeHTML, DocumentKind::Page},
    Named{"public.xhtml", DocumentKind::Page},
    Named{kUTTypeRTF, DocumentKind::RTF},
    Named{kUTTypeWordDocument, DocumentKind::Word},
    Named{"com.tessel.corvel.note", DocumentKind::Note},
    Named{kUTTypeRTFD, DocumentKind::RTFD},
};

constexpr std::size_t kLookedAtBytes = 8;

std::string lowercased(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
    });
    return lower;
}

std::string extensionOf(std::string_view path)
{
    const auto extension = std::filesystem::path(path).extension().native();
    return extension.empty() ? extension : extension.substr(1);
}

bool isMarkdownExtension(const std::string& extension)
{
    return !extension.empty()
        && CVLMarkdown::isFileExtensionSupportedMarkdownExtension(UTF16FromUTF8(extension));
}

std::optional<DocumentKind> kindOfType(const UTType& type)
{
    for (const auto& [identifier, kind] : kTypes) {
        if (type.conformsToType(identifier))
            return kind;
    }
    return std::nullopt;
}

/// A folder is what its name says, or an RTFD package without an extension.
std::optional<DocumentKind> kindOfFolder(const NSURL& url, NSError* error)
{
    const auto type = UTType::contentTypeOfFile(url, error);
    const auto kind = type ? kindOfType(*type) : std::nullopt;
    if (kind || !type)
        return kind;
    std::error_code ignored; // What cannot be looked at is no document.
    if (std::filesystem::is_regular_file(std::filesystem::path(url.path()) / "TXT.rtf", ignored))
        return DocumentKind::RTFD;
    setError(error, documentError(NSCocoaError::FileReadUnknown, u"It is a folder, and no document."));
    return std::nullopt;
}

std::optional<DocumentKind> kindOfRegularFile(const NSURL& url, std::string_view start, const UTType& type)
{
    if (isMarkdownExtension(url.pathExtension()))
        return DocumentKind::Markdown;
    const auto kind = kindOfType(type);
    if (kind)
        return kind;
    for (const auto& [beginning, kindOfBeginning] : kBeginnings) {
        if (start.starts_with(beginning))
            return kindOfBeginning;
    }
    return type.conformsToType(kUTTypeText) ? std::optional(DocumentKind::PlainText) : std::nullopt;
}

std::optional<std::string> startOfFile(const NSURL& url, NSError* error)
{
    const auto file = FileDescriptor::openForReading(url.path());
    auto start = file.isValid() ? readFile(file.get(), kLookedAtBytes) : std::nullopt;
    if (!start)
        setError(error, NSError::errorWithErrno(errno, url.path()));
    return start;
}

} // namespace

std::optional<DocumentKind> documentKindNamed(std::string_view name)
{
    const auto lower = lowercased(name);
    const auto* const found = std::find_if(kNames.begin(), kNames.end(),
                                           [&lower](const Named& each) { return each.first == lower; });
    return found == kNames.end() ? std::nullopt : std::optional(found->second);
}

std::optional<DocumentKind> documentKindOfPath(std::string_view path)
{
    const auto extension = extensionOf(path);
    return isMarkdownExtension(extension) ? std::optional(DocumentKind::Markdown)
                                          : documentKindNamed(extension);
}

std::optional<DocumentKind> documentKindOfFile(const NSURL& url, NSError* error)
{
    struct stat status { };

    if (::stat(url.path().c_str(), &status) == 0 && S_ISDIR(status.st_mode))
        return kindOfFolder(url, error);
    const auto start = startOfFile(url, error);
    const auto type = start ? UTType::contentTypeOfFile(url, error) : std::nullopt;
    if (!type)
        return std::nullopt;
    const auto kind = kindOfRegularFile(url, *start, *type);
    if (!kind)
        setError(error,
                 documentError(NSCocoaError::FileReadUnknown,
                               u"It is no note, Markdown, page, rich text, Word document or plain text."));
    return kind;
}
