#include "platform/rtf/RTFPackage.h"

#include "platform/foundation/Unicode.h"
#include "platform/types/UTType.h"

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <utility>

namespace {

constexpr std::u16string_view kNamelessFile = u"Attachment";
constexpr std::size_t kMostNameBytes = 255;
/// Room for the number and mark of a name that is taken.
constexpr std::size_t kMostOwnNameBytes = 200;

/// The name in its composed form, with what is no Unicode replaced.
std::u16string composed(std::u16string_view name)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto* const normalizer = icu::Normalizer2::getNFCInstance(status);
    const auto valid = UTF16FromUTF8(UTF8FromUTF16(name));
    if (U_FAILURE(status))
        return valid;
    const auto text = normalizer->normalize(
        icu::UnicodeString(valid.data(), static_cast<std::int32_t>(valid.size())), status);
    return U_FAILURE(status) ? valid
                             : std::u16string(text.getBuffer(), static_cast<std::size_t>(text.length()));
}

/// Whether a member of that name is a file beside the document, in the package.
bool isMemberName(std::u16string_view name)
{
    return !name.empty() && name != u"." && name != u".." && name != kRTFDDocumentName
        && name.find_first_of(std::u16string_view(u"/\0", 2)) == std::u16string_view::npos
        && UTF8FromUTF16(name).size() <= kMostNameBytes;
}

/// A name for the file of an attachment: its own as far as a package can hold it.
std::u16string fileNameOf(const NSFileWrapper& file)
{
    auto name = composed(file.preferredFilename().value_or(std::u16string()));
    for (auto& unit : name)
        unit = unit == u'/' || unit < 0x20 ? u'-' : unit;
    const auto bytes = UTF8FromUTF16(name);
    if (bytes.size() > kMostOwnNameBytes)
        name = UTF16FromUTF8(prefixAtCharacterBorder(bytes, kMostOwnNameBytes));
    return isMemberName(name) || name == kRTFDDocumentName ? name : std::u16string(kNamelessFile);
}

/// The attachment's file; one made of its contents when it has none. Null without either.
NSFileWrapper::Ref fileOf(const NSTextAttachment& attachment)
{
    if (attachment.fileWrapper() || !attachment.contents())
        return attachment.fileWrapper();
    const auto file = NSFileWrapper::initRegularFileWithContents(*attachment.contents());
    std::u16string name(kNamelessFile);
    const auto type = attachment.fileType()
        ? UTType::typeWithIdentifier(UTF8FromUTF16(*attachment.fileType()))
        : std::nullopt;
    if (type && type->preferredFilenameExtension())
        name += u'.' + UTF16FromUTF8(*type->preferredFilenameExtension());
    file->setPreferredFilename(std::move(name));
    return file;
}

/// The file under another name, for which it is copied: it may be of other packages too.
NSFileWrapper::Ref renamed(const NSFileWrapper::Ref& file, std::u16string name)
{
    auto copy = std::make_shared<NSFileWrapper>(*file);
    copy->setFilename(std::nullopt);
    copy->setPreferredFilename(std::move(name));
    return copy;
}

} // namespace

RTFPackageMembers::RTFPackageMembers(const NSFileWrapper& package)
    : m_package(package)
{
    for (const auto& [key, member] : package.fileWrappers()) {
        auto name = composed(key);
        if (name != key)
            m_composed.try_emplace(std::move(name), member);
    }
}

NSFileWrapper::Ref RTFPackageMembers::memberNamed(std::string_view name) const
{
    const auto own = UTF16FromUTF8(name);
    if (!isMemberName(own))
        return nullptr;
    auto member = m_package.fileWrapperForKey(own);
    const auto composedName = composed(own);
    if (!member)
        member = m_package.fileWrapperForKey(composedName);
    if (const auto found = m_composed.find(composedName); !member && found != m_composed.end())
        member = found->second;
    return member && !member->isSymbolicLink() ? member : nullptr;
}

RTFPackageBuilder::RTFPackageBuilder()
    : m_package(NSFileWrapper::initDirectoryWithFileWrappers({}))
{
    // Taken from the first, so that no attachment gets the name.
    m_package->addRegularFileWithContents({}, kRTFDDocumentName);
}

std::string RTFPackageBuilder::nameOf(const NSTextAttachment& attachment)
{
    const void* const identity = attachment.fileWrapper()
        ? static_cast<const void*>(attachment.fileWrapper().get())
        : static_cast<const void*>(&attachment);
    const auto [known, isNew] = m_names.try_emplace(identity);
    if (!isNew)
        return known->second;
    auto file = fileOf(attachment);
    if (!file || file->isSymbolicLink())
        return {};
    auto name = fileNameOf(*file);
    if (file->preferredFilename() != name)
        file = renamed(file, std::move(name));
    known->second = UTF8FromUTF16(m_package->addFileWrapper(file));
    return known->second;
}

NSFileWrapper::Ref RTFPackageBuilder::finish(std::string document)
{
    const auto placeholder = m_package->fileWrapperForKey(kRTFDDocumentName);
    m_package->removeFileWrapper(*placeholder);
    m_package->addRegularFileWithContents({std::move(document)}, kRTFDDocumentName);
    return std::exchange(m_package, nullptr);
}
