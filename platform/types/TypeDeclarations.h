#pragma once

#include <span>
#include <string_view>

/// One declared type. The lists are words separated by single spaces, the preferred one first; they may be
/// empty.
struct TypeDeclaration {
    std::string_view identifier;
    /// The types it conforms to directly. They stand above it in the table.
    std::string_view parents;
    std::string_view mimeTypes;
    /// Without their dots, in lower case.
    std::string_view filenameExtensions;
};

/// Every type the system knows. A MIME type or an extension that several rows claim belongs to the first of
/// them.
[[nodiscard]] std::span<const TypeDeclaration> typeDeclarations();
