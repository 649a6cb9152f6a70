#include "documents/LocalImages.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/Unicode.h"
#include "platform/html/HTMLURLs.h"
#include "platform/types/UTType.h"

#include <algorithm>

namespace {

constexpr std::size_t kMostBytes = std::size_t{256} << 20U;

bool isImageByName(const std::filesystem::path& path)
{
    const auto extension = path.extension().native();
    const auto type = extension.empty()
        ? std::nullopt
        : UTType::typeWithFilenameExtension(std::string_view(extension).substr(1));
    return type && (type->conformsToType(kUTTypeImage) || type->conformsToType(kUTTypePDF));
}

} // namespace

LocalImages::LocalImages(const std::string& documentPath)
    : m_baseURL(NSURL::fileURLWithPath(documentPath))
    , m_room(kMostBytes)
{
    std::error_code failure;
    m_folder = std::filesystem::canonical(std::filesystem::path(m_baseURL.path()).parent_path(), failure);
    if (failure)
        m_room = 0;
}

NSFileWrapper::Ref LocalImages::fileForURL(const std::string& url)
{
    const auto parsed = NSURL::URLWithString(url);
    return parsed && parsed->isFileURL() ? fileAtPath(parsed->path()) : nullptr;
}

NSFileWrapper::Ref LocalImages::fileAtPath(const std::filesystem::path& named)
{
    std::error_code failure;
    const auto path = std::filesystem::canonical(named, failure);
    const auto [end, rest] = std::mismatch(m_folder.begin(), m_folder.end(), path.begin(), path.end());
    if (failure || end != m_folder.end() || rest == path.end() || !isImageByName(path))
        return nullptr;
    const auto descriptor = FileDescriptor::openForReading(path.native());
    auto bytes = descriptor.isValid() ? readFile(descriptor.get(), m_room + 1) : std::nullopt;
    if (!bytes || bytes->size() > m_room)
        return nullptr;
    m_room -= bytes->size();
    const auto name = UTF16FromUTF8(path.filename().native());
    auto file = NSFileWrapper::initRegularFileWithContents(NSData{std::move(*bytes)});
    file->setPreferredFilename(name);
    file->setFilename(name);
    return file;
}

NSFileWrapper::Ref LocalImages::fileForTarget(std::u16string_view target)
{
    const auto name = UTF8FromUTF16(target);
    // A URL would end at the marks of queries and fragments, and stands for nothing with brackets in it.
    if (auto file = fileAtPath(m_folder / name))
        return file;
    return fileForURL(resolvedURL(name, m_baseURL.absoluteString()));
}
