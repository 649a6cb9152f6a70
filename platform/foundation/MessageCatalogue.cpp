#include "platform/foundation/MessageCatalogue.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/Unicode.h"

#include <cerrno>
#include <cstdint>
#include <cstring>

// A catalogue begins with seven 32-bit numbers in the byte order of the machine that wrote it: a magic
// number, a revision, the count of messages, and the offsets of two tables, of the keys and of the
// translations (and of a hash table, which is not read). A table holds a length and an offset for each text;
// behind a text stands a NUL that the length does not count.

namespace {

constexpr std::uint32_t kMagic = 0x950412DE;
constexpr std::size_t kHeaderByteCount = 28;
constexpr std::size_t kTableEntryByteCount = 8;
constexpr std::size_t kMaximumByteCount = std::size_t{16} << 20;

class CatalogueBytes {
public:
    explicit CatalogueBytes(std::string_view bytes)
        : m_bytes(bytes)
    {
    }

    /// Whether it is a catalogue; says which byte order it has.
    [[nodiscard]] bool readMagic()
    {
        if (m_bytes.size() < kHeaderByteCount)
            return false;
        const auto magic = numberAt(0);
        m_isSwapped = magic != kMagic;
        return magic == kMagic || numberAt(0) == kMagic;
    }

    /// The number at an offset that is within the bytes.
    [[nodiscard]] std::uint32_t numberAt(std::size_t offset) const
    {
        std::uint32_t number = 0;
        std::memcpy(&number, m_bytes.data() + offset, sizeof(number));
        return m_isSwapped ? __builtin_bswap32(number) : number;
    }

    [[nodiscard]] bool holds(std::uint64_t offset, std::uint64_t byteCount) const
    {
        return offset <= m_bytes.size() && byteCount <= m_bytes.size() - offset;
    }

    /// The text that a table names at a position, up to its first NUL: what follows there are plural forms.
    [[nodiscard]] std::optional<std::string_view> textAt(std::uint32_t table, std::uint32_t position) const
    {
        const auto entry = table + position * kTableEntryByteCount;
        const auto length = numberAt(entry);
        const auto offset = numberAt(entry + sizeof(length));
        if (!holds(offset, length) || !isValidUTF8(m_bytes.substr(offset, length)))
            return std::nullopt;
        const auto text = m_bytes.substr(offset, length);
        return text.substr(0, text.find('\0'));
    }

private:
    std::string_view m_bytes;
    bool m_isSwapped = false;
};

// The translation of the empty key describes the catalogue.
bool isUTF8Header(std::string_view header)
{
    return header.find("charset=UTF-8") != std::string_view::npos;
}

} // namespace

std::optional<MessageCatalogue> MessageCatalogue::readFile(const std::string& path, NSError* error)
{
    const auto file = FileDescriptor::openForReading(path);
    const auto bytes = file.isValid() ? ::readFile(file.get(), kMaximumByteCount) : std::nullopt;
    if (!bytes) {
        setError(error, NSError::errorWithErrno(errno, path));
        return std::nullopt;
    }
    auto catalogue = readBytes(*bytes);
    if (!catalogue)
        setError(error,
                 NSError::errorWithCode(NSCocoaError::FileReadCorruptFile, path + ": no message catalogue"));
    return catalogue;
}

std::optional<MessageCatalogue> MessageCatalogue::readBytes(std::string_view bytes)
{
    CatalogueBytes catalogueBytes(bytes);
    if (!catalogueBytes.readMagic())
        return std::nullopt;
    constexpr std::uint32_t kMaximumRevision = 0xFFFF;
    const auto revision = catalogueBytes.numberAt(4);
    const auto count = catalogueBytes.numberAt(8);
    const auto keys = catalogueBytes.numberAt(12);
    const auto translations = catalogueBytes.numberAt(16);
    const auto tableByteCount = count * std::uint64_t{kTableEntryByteCount};
    if (revision > kMaximumRevision || !catalogueBytes.holds(keys, tableByteCount)
        || !catalogueBytes.holds(translations, tableByteCount))
        return std::nullopt;

    MessageCatalogue catalogue;
    for (std::uint32_t position = 0; position < count; ++position) {
        const auto key = catalogueBytes.textAt(keys, position);
        const auto translation = catalogueBytes.textAt(translations, position);
        if (!key || !translation || (key->empty() && !isUTF8Header(*translation)))
            return std::nullopt;
        if (!key->empty() && !translation->empty())
            catalogue.m_translations.insert_or_assign(UTF16FromUTF8(*key), UTF16FromUTF8(*translation));
    }
    return catalogue;
}

const std::u16string* MessageCatalogue::translationOf(std::u16string_view key) const
{
    const auto found = m_translations.find(key);
    return found == m_translations.end() ? nullptr : &found->second;
}
