#pragma once

#include "tests/support/ZipBytes.h"

#include <string>
#include <string_view>
#include <vector>

/// A part beside the body of a Word document, and how the body points at it.
struct WordPart {
    /// The relationship's identifier and the last component of its type.
    std::string identifier;
    std::string kind;
    /// Within the folder of the document; an address when the part is outside.
    std::string target;
    std::string bytes;
    bool isExternal = false;
};

/// A Word document as its writer would pack it.
struct WordPackageBytes {
    /// What stands within the element "body".
    std::string body;
    std::vector<WordPart> parts;
    /// Members as they are, with their names.
    std::vector<ZipMember> members;
    /// Further relationships of the package: kind and target.
    std::vector<WordPart> packageParts;

    [[nodiscard]] std::string file() const;
};

/// The outermost element of a part, with the prefixes of the format, around its content.
[[nodiscard]] std::string wordRoot(std::string_view name, std::string_view content);

/// A paragraph with these properties (elements) and one run of this text.
[[nodiscard]] std::string wordParagraph(std::string_view text, std::string_view properties = {});

/// A run with these properties and this text.
[[nodiscard]] std::string wordRun(std::string_view text, std::string_view properties = {});
