#include "platform/foundation/NSKeyedUnarchiver.h"

#include "platform/foundation/BinaryPropertyListValues.h"
#include "platform/foundation/KeyedDecoder.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/XMLPropertyList.h"

#include <fmt/format.h>

#include <optional>
#include <string>
#include <utility>

namespace {

/// How the older archives begin that are read in sequence, not by key.
constexpr std::string_view kStreamArchiveStart = "\x04\x0bstreamtyped";

NSError corrupt(std::string_view reason)
{
    return NSError::errorWithCode(NSCocoaError::CoderReadCorrupt, reason);
}

} // namespace

/// The archive's bytes and what decodes them.
class NSKeyedUnarchiver::Archive {
public:
    /// `data` must outlive the archive. Null, with the reason in `error`, when it is none.
    [[nodiscard]] static std::unique_ptr<Archive> create(std::string_view data, const NSClassTable& classes,
                                                         NSError* error);
    /// The same with bytes of its own.
    [[nodiscard]] static std::unique_ptr<Archive>
    createWithBytes(std::string bytes, const NSClassTable& classes, NSError* error);

    [[nodiscard]] KeyedDecoder& decoder() { return *m_decoder; }

private:
    [[nodiscard]] bool open(std::string_view data, const NSClassTable& classes, NSError* error);
    [[nodiscard]] std::optional<std::string> bytesOfXML(std::string_view xml, NSError* error) const;

    std::string m_bytes;
    std::optional<KeyedDecoder> m_decoder;
};

std::unique_ptr<NSKeyedUnarchiver::Archive>
NSKeyedUnarchiver::Archive::create(std::string_view data, const NSClassTable& classes, NSError* error)
{
    auto archive = std::make_unique<Archive>();
    return archive->open(data, classes, error) ? std::move(archive) : nullptr;
}

std::unique_ptr<NSKeyedUnarchiver::Archive>
NSKeyedUnarchiver::Archive::createWithBytes(std::string bytes, const NSClassTable& classes, NSError* error)
{
    auto archive = std::make_unique<Archive>();
    archive->m_bytes = std::move(bytes);
    return archive->open(archive->m_bytes, classes, error) ? std::move(archive) : nullptr;
}

/// Archives in XML are rare, and small: they are made binary first, so that there is one way to read them.
std::optional<std::string> NSKeyedUnarchiver::Archive::bytesOfXML(std::string_view xml, NSError* error) const
{
    const auto value = valueOfXMLPropertyList(xml, error);
    return value ? binaryPropertyListWithValue(value, error) : std::nullopt;
}

bool NSKeyedUnarchiver::Archive::open(std::string_view data, const NSClassTable& classes, NSError* error)
{
    if (data.starts_with(kStreamArchiveStart)) {
        setError(error, corrupt("The data is an archive of the older form, without keys."));
        return false;
    }
    NSError reason;
    if (!data.starts_with(kBinaryPropertyListStart)) {
        auto bytes = bytesOfXML(data, &reason);
        if (!bytes) {
            setError(error, corrupt("The data is no keyed archive. " + reason.localizedDescription()));
            return false;
        }
        m_bytes = std::move(*bytes);
        data = m_bytes;
    }
    auto list = BinaryPropertyList::createWithData(data, &reason);
    if (!list) {
        setError(error, corrupt("The data is no keyed archive. " + reason.localizedDescription()));
        return false;
    }
    auto archive = KeyedArchive::createWithList(std::move(*list), error);
    if (archive)
        m_decoder.emplace(std::move(*archive), classes);
    return archive.has_value();
}

NSKeyedUnarchiver::NSKeyedUnarchiver(std::unique_ptr<Archive> archive)
    : m_archive(std::move(archive))
{
}

NSKeyedUnarchiver::~NSKeyedUnarchiver() = default;

std::unique_ptr<NSKeyedUnarchiver>
NSKeyedUnarchiver::initForReadingFromData(std::string_view data, const NSClassTable& classes, NSError* error)
{
    auto archive = Archive::createWithBytes(std::string(data), classes, error);
    if (!archive)
        return nullptr;
    return std::make_unique<NSKeyedUnarchiver>(std::move(archive));
}

void NSKeyedUnarchiver::setRequiresSecureCoding(bool requiresSecureCoding)
{
    m_archive->decoder().setRequiresSecureCoding(requiresSecureCoding);
}

NSAny NSKeyedUnarchiver::decodeTopLevelObjectOfClasses(const NSClassList& classes, std::string_view key,
                                                       NSError* error)
{
    auto& decoder = m_archive->decoder();
    auto object = decoder.decodeObjectOfClasses(classes, key);
    if (!decoder.error())
        return object;
    setError(error, *decoder.error());
    return nullptr;
}

NSCoder& NSKeyedUnarchiver::topLevel()
{
    return m_archive->decoder();
}

NSAny NSKeyedUnarchiver::unarchivedObjectOfClass(const NSClass& accepted, std::string_view data,
                                                 const NSClassTable& classes, NSError* error)
{
    return unarchivedObjectOfClasses({&accepted}, data, classes, error);
}

NSAny NSKeyedUnarchiver::unarchivedObjectOfClasses(const NSClassList& accepted, std::string_view data,
                                                   const NSClassTable& classes, NSError* error)
{
    auto archive = Archive::create(data, classes, error);
    if (!archive)
        return nullptr;
    auto& decoder = archive->decoder();
    if (!decoder.containsValueForKey(NSKeyedArchiveRootObjectKey)) {
        setError(error,
                 NSError::errorWithCode(NSCocoaError::CoderValueNotFound, "The archive has no root object."));
        return nullptr;
    }
    auto object = decoder.decodeObjectOfClasses(accepted, NSKeyedArchiveRootObjectKey);
    if (!decoder.error())
        return object;
    setError(error, *decoder.error());
    return nullptr;
}
