#include "platform/foundation/FileWrapperSerialization.h"

#include "platform/foundation/FileNameText.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <utility>
#include <vector>

namespace {

constexpr std::string_view kMagic = "rtfd";
constexpr std::uint32_t kVersion = 0;
constexpr std::uint32_t kDataRecord = 1;
constexpr std::uint32_t kDictionaryRecord = 3;
/// Stands for the length of data that has padding before it, and is the first length there cannot be.
constexpr std::uint32_t kPaddedLength = 0x80000000U;

constexpr std::string_view kContentsName = "..";
constexpr std::string_view kAttributesName = ".";
constexpr std::string_view kPreferredName = "__@PreferredName@__";
constexpr std::string_view kUTF8PreferredName = "__@UTF8PreferredName@__";
/// This system's own: other readers see a folder with one file.
constexpr std::string_view kLinkDestinationName = "__@SymbolicLinkDestination@__";
constexpr std::array kOwnNames{kContentsName, kAttributesName, kPreferredName, kUTF8PreferredName,
                               kLinkDestinationName};

constexpr unsigned kFilePermissions = 0644;
constexpr unsigned kFolderPermissions = 0755;

bool isOwnName(std::string_view name)
{
    return std::find(kOwnNames.begin(), kOwnNames.end(), name) != kOwnNames.end();
}

void appendInteger(std::string& bytes, std::size_t value)
{
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>((value >> shift) & 0xFFU);
}

std::uint32_t integerAt(std::string_view bytes, std::size_t offset)
{
    std::uint32_t value = 0;
    for (std::size_t index = 4; index > 0; --index)
        value = (value << 8U) | static_cast<unsigned char>(bytes[offset + index - 1]);
    return value;
}

/// Takes values off the front of bytes. Once something is missing, all that follows is missing too.
class ByteReader {
public:
    explicit ByteReader(std::string_view bytes)
        : m_rest(bytes)
    {
    }

    [[nodiscard]] bool failed() const { return m_failed; }

    [[nodiscard]] std::size_t remaining() const { return m_rest.size(); }

    std::string_view take(std::size_t count)
    {
        m_failed = m_failed || count > m_rest.size();
        if (m_failed)
            return {};
        const auto taken = m_rest.substr(0, count);
        m_rest.remove_prefix(count);
        return taken;
    }

    std::uint32_t takeInteger()
    {
        const auto bytes = take(4);
        return m_failed ? 0 : integerAt(bytes, 0);
    }

private:
    std::string_view m_rest;
    bool m_failed = false;
};

struct Entry {
    std::string_view name;
    std::string_view record;
};

using Entries = std::vector<Entry>;

/// A dictionary record: names, the sizes of their records, the records. Any two entries' bytes are apart, so
/// reading all of them is linear in the bytes.
std::optional<Entries> readDictionary(std::string_view record)
{
    constexpr std::size_t kLeastEntryBytes = 8;
    ByteReader reader(record);
    const bool isDictionary = reader.takeInteger() == kDictionaryRecord;
    const std::size_t count = reader.takeInteger();
    if (!isDictionary || reader.failed() || count > reader.remaining() / kLeastEntryBytes)
        return std::nullopt;
    Entries entries(count);
    for (auto& entry : entries)
        entry.name = reader.take(reader.takeInteger());
    ByteReader sizes(reader.take(4 * count));
    for (auto& entry : entries)
        entry.record = reader.take(sizes.takeInteger());
    return reader.failed() ? std::nullopt : std::optional(std::move(entries));
}

std::optional<std::string_view> readData(std::string_view record)
{
    ByteReader reader(record);
    const bool isData = reader.takeInteger() == kDataRecord;
    std::size_t length = reader.takeInteger();
    if (length == kPaddedLength) {
        length = reader.takeInteger();
        (void)reader.take(reader.takeInteger());
    }
    const auto bytes = reader.take(length);
    return isData && !reader.failed() ? std::optional(bytes) : std::nullopt;
}

std::optional<std::string_view> dataNamed(const Entries& entries, std::string_view name)
{
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [name](const Entry& entry) { return entry.name == name; });
    return found == entries.end() ? std::nullopt : readData(found->record);
}

std::optional<std::u16string> preferredNameOf(const Entries& entries)
{
    for (const auto entryName : {kUTF8PreferredName, kPreferredName}) {
        const auto name = dataNamed(entries, entryName);
        if (name && isFileName(*name))
            return textFromFileName(*name);
    }
    return std::nullopt;
}

/// The permissions in the one attribute record whose layout is known: a count of 1, the name "..", 16 bytes.
std::optional<unsigned> permissionsOf(const Entries& entries)
{
    constexpr std::size_t kRecordSize = 30;
    constexpr std::size_t kPermissionsOffset = 18;
    constexpr unsigned kPermissionBits = 0777;
    const auto record = dataNamed(entries, kAttributesName);
    if (!record || record->size() != kRecordSize || integerAt(*record, 0) != 1)
        return std::nullopt;
    return integerAt(*record, kPermissionsOffset) & kPermissionBits;
}

/// A name for readers that know nothing but ASCII.
std::string inASCII(std::string_view name)
{
    std::string plain;
    for (const char byte : name) {
        const auto value = static_cast<unsigned char>(byte);
        if (value < 0x80)
            plain += byte;
        else if (value >= 0xC0)
            plain += '_';
    }
    return plain;
}

} // namespace

/// Makes wrappers of records.
class FileWrapperSerialization::Reader {
public:
    NSFileWrapper::Ref readWrapper(std::string_view record, std::size_t depth)
    {
        const auto entries = readDictionary(record);
        if (!entries || depth > NSFileWrapper::kMostDepth)
            return nullptr;
        auto wrapper = readKind(*entries, depth);
        if (!wrapper)
            return nullptr;
        wrapper->m_preferredFilename = preferredNameOf(*entries);
        wrapper->m_attributes.posixPermissions = permissionsOf(*entries);
        return wrapper;
    }

private:
    NSFileWrapper::Ref readKind(const Entries& entries, std::size_t depth)
    {
        if (const auto contents = dataNamed(entries, kContentsName))
            return NSFileWrapper::initRegularFileWithContents({std::string(*contents)});
        if (const auto destination = dataNamed(entries, kLinkDestinationName)) {
            auto link = std::make_shared<NSFileWrapper>(NSFileType::SymbolicLink);
            link->m_linkDestination = *destination;
            return link;
        }
        auto folder = std::make_shared<NSFileWrapper>(NSFileType::Directory);
        for (const auto& entry : entries) {
            if (!isOwnName(entry.name) && !addMember(*folder, entry, depth))
                return nullptr;
        }
        return folder;
    }

    bool addMember(NSFileWrapper& folder, const Entry& entry, std::size_t depth)
    {
        // A file counts as a level too, so that whatever is read can be written.
        if (!isFileName(entry.name) || depth >= NSFileWrapper::kMostDepth
            || ++m_memberCount > NSFileWrapper::kMostMembers)
            return false;
        const auto data = readData(entry.record);
        auto member = data ? NSFileWrapper::initRegularFileWithContents({std::string(*data)})
                           : readWrapper(entry.record, depth + 1);
        if (!member)
            return false;
        auto key = textFromFileName(entry.name);
        if (!member->m_preferredFilename)
            member->m_preferredFilename = key;
        return folder.m_fileWrappers.emplace(std::move(key), std::move(member)).second;
    }

    std::size_t m_memberCount = 0;
};

/// Appends records to one buffer; the sizes, which stand before what they measure, are filled in behind it.
class FileWrapperSerialization::Writer {
public:
    explicit Writer(std::string& bytes)
        : m_bytes(bytes)
    {
    }

    /// 0, or the errno of what the form cannot hold.
    int writeWrapper(const NSFileWrapper& wrapper, std::size_t depth)
    {
        if (depth > NSFileWrapper::kMostDepth)
            return ELOOP;
        const auto preferredName = fileNameFromText(wrapper.preferredFilename().value_or(std::u16string()));
        std::vector<std::string> memberNames;
        for (const auto& [key, member] : wrapper.fileWrappers()) {
            memberNames.push_back(fileNameFromText(key));
            if (!isFileName(memberNames.back()) || isOwnName(memberNames.back()))
                return EINVAL;
        }
        std::vector<std::string_view> names(memberNames.begin(), memberNames.end());
        if (wrapper.isRegularFile())
            names.emplace_back(kContentsName);
        if (wrapper.isSymbolicLink())
            names.emplace_back(kLinkDestinationName);
        if (!preferredName.empty())
            names.insert(names.end(), {kPreferredName, kUTF8PreferredName});
        names.emplace_back(kAttributesName);
        writeNames(names);
        auto sizeOffset = m_bytes.size();
        m_bytes.append(4 * names.size(), '\0');
        return writeValues(wrapper, preferredName, sizeOffset, depth);
    }

private:
    void writeNames(const std::vector<std::string_view>& names)
    {
        appendInteger(m_bytes, kDictionaryRecord);
        appendInteger(m_bytes, names.size());
        for (const auto name : names) {
            appendInteger(m_bytes, name.size());
            m_bytes += name;
        }
    }

    int writeValues(const NSFileWrapper& wrapper, const std::string& preferredName, std::size_t sizeOffset,
                    std::size_t depth)
    {
        int failure = 0;
        const auto writeOne = [&](const auto& writeRecord) {
            const auto begin = m_bytes.size();
            failure = failure ? failure : writeRecord();
            const auto size = m_bytes.size() - begin;
            if (size >= kPaddedLength)
                failure = EFBIG;
            std::string bytes;
            appendInteger(bytes, size);
            m_bytes.replace(sizeOffset, bytes.size(), bytes);
            sizeOffset += bytes.size();
        };
        for (const auto& [key, member] : wrapper.fileWrappers())
            writeOne([&, &child = *member] { return writeWrapper(child, depth + 1); });
        if (wrapper.isRegularFile())
            writeOne([&] { return writeData(wrapper.regularFileContents()->bytes); });
        if (wrapper.isSymbolicLink())
            writeOne([&] { return writeData(wrapper.symbolicLinkDestination()); });
        if (!preferredName.empty()) {
            writeOne([&] { return writeData(inASCII(preferredName)); });
            writeOne([&] { return writeData(preferredName); });
        }
        writeOne([&] { return writeData(attributes(wrapper)); });
        return failure;
    }

    int writeData(std::string_view bytes)
    {
        if (bytes.size() >= kPaddedLength)
            return EFBIG;
        appendInteger(m_bytes, kDataRecord);
        appendInteger(m_bytes, bytes.size());
        m_bytes += bytes;
        return 0;
    }

    /// One record, of the file itself. What its 0, 2 and 1 mean is not known; they are the same in all files.
    static std::string attributes(const NSFileWrapper& wrapper)
    {
        const auto usual = wrapper.isDirectory() ? kFolderPermissions : kFilePermissions;
        const auto permissions = wrapper.fileAttributes().posixPermissions.value_or(usual);
        std::string record;
        appendInteger(record, 1);
        appendInteger(record, kContentsName.size());
        record += kContentsName;
        appendInteger(record, 4 * sizeof(std::uint32_t));
        for (const std::size_t value :
             {std::size_t{0}, std::size_t{permissions}, std::size_t{2}, std::size_t{1}})
            appendInteger(record, value);
        return record;
    }

    std::string& m_bytes;
};

NSFileWrapper::Ref FileWrapperSerialization::read(std::string_view bytes, NSError* error)
{
    ByteReader header(bytes);
    const bool isOurs = header.take(kMagic.size()) == kMagic && header.takeInteger() == kVersion;
    NSFileWrapper::Ref wrapper;
    if (isOurs && !header.failed())
        wrapper = Reader().readWrapper(header.take(header.remaining()), 0);
    if (!wrapper) {
        setError(error,
                 NSError::errorWithCode(NSCocoaError::FileReadCorruptFile,
                                        "The data is no serialised file wrapper."));
    }
    return wrapper;
}

std::optional<NSData> FileWrapperSerialization::write(const NSFileWrapper& fileWrapper, NSError* error)
{
    NSData data{std::string(kMagic)};
    appendInteger(data.bytes, kVersion);
    const int failure = Writer(data.bytes).writeWrapper(fileWrapper, 0);
    if (failure == 0)
        return data;
    const auto name = fileNameFromText(fileWrapper.preferredFilename().value_or(std::u16string()));
    setError(error, NSError::errorWithErrno(failure, "serialised file wrapper " + name));
    return std::nullopt;
}
