#include "platform/html/HTMLImageFiles.h"

#include "platform/foundation/Unicode.h"
#include "platform/html/CSSValues.h"
#include "platform/html/HTMLURLs.h"
#include "platform/types/UTType.h"

#include <utility>

namespace {

NSFileWrapper::Ref fileOfDataURL(std::string_view source, std::string_view description)
{
    auto contents = contentsOfDataURL(source);
    const auto type = contents ? UTType::typeWithMIMEType(contents->mimeType) : std::nullopt;
    if (!type || !(type->conformsToType(kUTTypeImage) || type->conformsToType(kUTTypePDF)))
        return nullptr;
    const auto extension = "." + type->preferredFilenameExtension().value_or("img");
    const bool isName = description.size() < 256 && description.size() > extension.size()
        && description.ends_with(extension) && description.find_first_of("/\"<>") == std::string_view::npos;
    const auto name = UTF16FromUTF8(isName ? description : "image" + extension);
    auto file = NSFileWrapper::initRegularFileWithContents(NSData{std::move(contents->bytes)});
    file->setPreferredFilename(name);
    file->setFilename(name);
    return file;
}

} // namespace

NSFileWrapper::Ref fileOfImage(std::string_view source, std::string_view description,
                               const NSHTMLReadingOptions& options, const std::string& baseURL)
{
    if (inASCIILowerCase(trimmedCSS(source).substr(0, 5)) == "data:")
        return fileOfDataURL(source, description);
    const auto url = resolvedURL(source, baseURL);
    const auto found = options.resources.find(url);
    if (found != options.resources.end())
        return found->second;
    return options.resourceForURL && !url.empty() ? options.resourceForURL(url) : nullptr;
}
