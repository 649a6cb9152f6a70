#pragma once

#include "platform/foundation/NSURL.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A type identifier with its place among the other types: "com.adobe.pdf" conforms to "public.data" and
/// "public.composite-content". A small immutable value; types are equal when their identifiers are.
class UTType {
public:
    /// The declared type of this identifier; none when the system does not know it.
    [[nodiscard]] static std::optional<UTType> typeWithIdentifier(std::string_view identifier);
    /// The type for a MIME type (parameters and case are ignored). A MIME type that is well formed but not
    /// declared gives a dynamic type ("dyn.…") that conforms to "public.data", or to "public.text" for
    /// text/*, "public.image" for image/*. None when `mimeType` is no MIME type.
    [[nodiscard]] static std::optional<UTType> typeWithMIMEType(std::string_view mimeType);
    /// The type for a file extension without its dot, case ignored; none when no type declares it.
    [[nodiscard]] static std::optional<UTType> typeWithFilenameExtension(std::string_view extension);
    /// The content type of the file or folder at `url`, by its name, and by its content where the name says
    /// nothing. Packages (note, RTFD) are folders with the package's extension; any other folder is
    /// "public.folder". None when the file cannot be read.
    [[nodiscard]] static std::optional<UTType> contentTypeOfFile(const NSURL& url, NSError* error = nullptr);

    [[nodiscard]] const std::string& identifier() const;
    /// Whether this type is `other` or has it among its ancestors.
    [[nodiscard]] bool conformsToType(const UTType& other) const;
    [[nodiscard]] bool conformsToType(std::string_view identifier) const;
    /// Whether an identifier, that of an attachment's type, is known and its type conforms to `type`.
    [[nodiscard]] static bool identifierConformsToType(std::u16string_view identifier, std::string_view type);
    /// None where the type declares none (abstract types, folders).
    [[nodiscard]] std::optional<std::string> preferredMIMEType() const;
    [[nodiscard]] std::optional<std::string> preferredFilenameExtension() const;

    friend bool operator==(const UTType& left, const UTType& right)
    {
        return left.identifier() == right.identifier();
    }

private:
    struct Declaration;
    class Registry;

    explicit UTType(std::shared_ptr<const Declaration> declaration);

    std::shared_ptr<const Declaration> m_declaration;
};

inline constexpr std::string_view kUTTypeData = "public.data";
inline constexpr std::string_view kUTTypeFolder = "public.folder";
inline constexpr std::string_view kUTTypeText = "public.text";
inline constexpr std::string_view kUTTypePlainText = "public.plain-text";
inline constexpr std::string_view kUTTypeMarkdown = "public.markdown";
/// What older systems called Markdown.
inline constexpr std::string_view kUTTypeLegacyMarkdown = "net.daringfireball.markdown";
inline constexpr std::string_view kUTTypeHTML = "public.html";
inline constexpr std::string_view kUTTypeEmailMessage = "public.email-message";
inline constexpr std::string_view kUTTypePDF = "com.adobe.pdf";
inline constexpr std::string_view kUTTypeImage = "public.image";
inline constexpr std::string_view kUTTypeMovie = "public.movie";
inline constexpr std::string_view kUTTypeAudio = "public.audio";
inline constexpr std::string_view kUTTypeRTF = "public.rtf";
inline constexpr std::string_view kUTTypeRTFD = "com.apple.rtfd";
inline constexpr std::string_view kUTTypeWordDocument = "org.openxmlformats.wordprocessingml.document";
