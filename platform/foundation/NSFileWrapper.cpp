#include "platform/foundation/NSFileWrapper.h"

#include "platform/foundation/FileNameText.h"
#include "platform/foundation/FileWrapperReader.h"
#include "platform/foundation/FileWrapperSerialization.h"
#include "platform/foundation/FileWrapperWriter.h"
#include "platform/foundation/NSCoder.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace {

constexpr std::string_view kArchiveKey = "NSFileWrapperData";

std::u16string numberedKey(std::size_t number, const std::u16string& name)
{
    return textFromFileName(std::to_string(number)).append(NSFileWrapperUniqueMark).append(name);
}

/// The path of a link's destination as a relative URL. Where its first component has a colon, "./" stands
/// before it, or it would read as a scheme.
std::string relativeReference(std::string_view path)
{
    std::string reference = path.substr(0, path.find('/')).find(':') == std::string_view::npos ? "" : "./";
    for (std::size_t offset = 0; offset <= path.size();) {
        const auto end = std::min(path.find('/', offset), path.size());
        reference += percentEncodedPathComponent(path.substr(offset, end - offset));
        if (end < path.size())
            reference += '/';
        offset = end + 1;
    }
    return reference;
}

} // namespace

NSFileWrapper::NSFileWrapper(NSFileType type)
{
    m_attributes.fileType = type;
}

NSFileWrapper::Ref NSFileWrapper::initRegularFileWithContents(NSData contents)
{
    auto wrapper = std::make_shared<NSFileWrapper>(NSFileType::Regular);
    wrapper->m_contents = std::move(contents);
    return wrapper;
}

NSFileWrapper::Ref NSFileWrapper::initDirectoryWithFileWrappers(const FileWrappers& fileWrappers)
{
    auto wrapper = std::make_shared<NSFileWrapper>(NSFileType::Directory);
    wrapper->m_fileWrappers = fileWrappers;
    for (const auto& [key, member] : fileWrappers) {
        if (!member->preferredFilename())
            member->setPreferredFilename(key);
    }
    return wrapper;
}

NSFileWrapper::Ref NSFileWrapper::initSymbolicLinkWithDestinationURL(const NSURL& destination)
{
    auto wrapper = std::make_shared<NSFileWrapper>(NSFileType::SymbolicLink);
    wrapper->m_linkDestination = destination.path();
    return wrapper;
}

NSFileWrapper::Ref NSFileWrapper::initWithURL(const NSURL& url, NSFileWrapperReadingOptions /*options*/,
                                              NSError* error)
{
    return FileWrapperReader::read(url, error);
}

NSFileWrapper::Ref NSFileWrapper::initWithSerializedRepresentation(std::string_view bytes, NSError* error)
{
    return FileWrapperSerialization::read(bytes, error);
}

void NSFileWrapper::setFileAttributes(NSFileAttributes attributes)
{
    attributes.fileType = fileType();
    m_attributes = attributes;
}

const NSData* NSFileWrapper::regularFileContents() const
{
    return isRegularFile() ? &m_contents : nullptr;
}

NSFileWrapper::Ref NSFileWrapper::fileWrapperForKey(std::u16string_view key) const
{
    const auto found = m_fileWrappers.find(key);
    return found == m_fileWrappers.end() ? nullptr : found->second;
}

std::u16string NSFileWrapper::freeKey(const std::u16string& name)
{
    if (!m_fileWrappers.contains(name))
        return name;
    auto& number = m_nextNumbers.try_emplace(name, 1).first->second;
    auto key = numberedKey(number, name);
    while (m_fileWrappers.contains(key))
        key = numberedKey(++number, name);
    return key;
}

std::u16string NSFileWrapper::addFileWrapper(const Ref& fileWrapper)
{
    const auto& name = fileWrapper->preferredFilename();
    if (!isDirectory() || !name || !isFileName(std::u16string_view(*name)))
        return {};
    auto key = freeKey(*name);
    m_fileWrappers.emplace(key, fileWrapper);
    return key;
}

std::u16string NSFileWrapper::addRegularFileWithContents(NSData contents,
                                                         std::u16string_view preferredFilename)
{
    const auto member = initRegularFileWithContents(std::move(contents));
    member->setPreferredFilename(std::u16string(preferredFilename));
    return addFileWrapper(member);
}

void NSFileWrapper::removeFileWrapper(const NSFileWrapper& fileWrapper)
{
    std::erase_if(m_fileWrappers,
                  [&fileWrapper](const auto& member) { return member.second.get() == &fileWrapper; });
    m_nextNumbers.clear(); // Of the numbers below, one may be free now.
}

std::optional<std::u16string> NSFileWrapper::keyForFileWrapper(const NSFileWrapper& fileWrapper) const
{
    for (const auto& [key, member] : m_fileWrappers) {
        if (member.get() == &fileWrapper)
            return key;
    }
    return std::nullopt;
}

std::optional<NSURL> NSFileWrapper::symbolicLinkDestinationURL() const
{
    if (!isSymbolicLink())
        return std::nullopt;
    if (m_linkDestination.starts_with('/'))
        return NSURL::fileURLWithPath(m_linkDestination);
    return NSURL::URLWithString(relativeReference(m_linkDestination));
}

std::optional<NSData> NSFileWrapper::serializedRepresentation(NSError* error) const
{
    return FileWrapperSerialization::write(*this, error);
}

bool NSFileWrapper::writeToURL(const NSURL& url, unsigned options,
                               const std::optional<NSURL>& /*originalContentsURL*/, NSError* error)
{
    FileWrapperWriter writer(PackageOperations::system());
    return writer.write(*this, url, options, error);
}

const NSClass& NSFileWrapper::classObject()
{
    static const NSClass object{"NSFileWrapper", &NSObjectClass, &NSFileWrapper::initWithCoder};
    return object;
}

const NSClass& NSFileWrapper::classForCoder() const
{
    return classObject();
}

NSAny NSFileWrapper::initWithCoder(NSCoder& coder)
{
    NSError error;
    auto wrapper = initWithSerializedRepresentation(
        coder.decodeBytesForKey(kArchiveKey).value_or(std::string()), &error);
    if (!wrapper)
        coder.failWithError(error);
    return wrapper;
}

void NSFileWrapper::encodeWithCoder(NSCoder& coder) const
{
    NSError error;
    if (auto representation = serializedRepresentation(&error))
        coder.encodeObject(NSAny(std::move(*representation)), kArchiveKey);
    else
        coder.failWithError(error);
}
