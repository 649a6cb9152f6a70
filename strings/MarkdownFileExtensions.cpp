#include "strings/MarkdownFileExtensions.h"

#include "platform/foundation/NSString.h"
#include "platform/foundation/Unicode.h"
#include "platform/types/TypeDeclarations.h"
#include "strings/FileNames.h"
#include "strings/MarkdownSyntax.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

const std::vector<std::u16string>& supportedExtensions()
{
    static const auto extensions = [] {
        const auto declarations = typeDeclarations();
        const auto markdown
            = std::find_if(declarations.begin(), declarations.end(), [](const TypeDeclaration& declaration) {
                  return declaration.identifier == CVLMarkdownType;
              });
        return markdown == declarations.end()
            ? std::vector<std::u16string>()
            : componentsSeparatedByString(UTF16FromUTF8(markdown->filenameExtensions), u" ");
    }();
    return extensions;
}

} // namespace

bool CVLMarkdown::isFileExtensionSupportedMarkdownExtension(std::u16string_view fileExtension)
{
    const auto& supported = supportedExtensions();
    return std::any_of(supported.begin(), supported.end(), [fileExtension](const std::u16string& extension) {
        return TSExtensions::isEqualToFilename(fileExtension, extension);
    });
}
