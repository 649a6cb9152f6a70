#include "platform/media/ZipContainer.h"

#include "platform/media/LittleEndian.h"
#include "platform/media/SourceBytes.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <span>
#include <utility>
#include <zip.h>

namespace {

constexpr std::size_t kChunkByteCount = 32768;
/// The library makes a table as long as the directory says it is before it looks at the first member.
constexpr std::uint64_t kDirectoryEntryLimit = 1'000'000;
// What the library may read to open a container: it keeps the whole directory, names and comments included.
constexpr std::uint64_t kDirectoryByteLimit = std::uint64_t{32} << 20;
/// The records that end a zip file stand within this many bytes of its end.
constexpr std::size_t kTailByteCount = 65536 + 256;

struct FileCloser {
    void operator()(zip_file_t* file) const
    {
        (void)zip_fclose(file);
    } // Nothing is written, nothing can be lost.
};

struct ArchiveCloser {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};

std::string normalisedName(std::string_view name)
{
    std::string result(name.substr(std::min(name.find_first_not_of("/\\"), name.size())));
    for (auto& character : result) {
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
        else if (character == '\\')
            character = '/';
    }
    return result;
}

/// The largest number of members that a record at the file's end claims in the form for large files; in the
/// usual form no more than 65,535 can be claimed.
std::uint64_t claimedEntryCount(const SourceBytes& bytes)
{
    constexpr std::string_view kLocatorMark = "PK\x06\x07";
    std::string tail(static_cast<std::size_t>(std::min<std::uint64_t>(kTailByteCount, bytes.byteCount())),
                     '\0');
    tail.resize(bytes.readAt(bytes.byteCount() - tail.size(), tail).value_or(0));
    std::uint64_t largest = 0;
    auto mark = tail.find(kLocatorMark);
    for (; mark != std::string::npos; mark = tail.find(kLocatorMark, mark + kLocatorMark.size())) {
        std::array<char, 56> record{};
        const auto count = bytes.readAt(littleEndian(tail, mark + 8, 8), record).value_or(0);
        const std::string_view fields(record.data(), count);
        largest = std::max({largest, littleEndian(fields, 24, 8), littleEndian(fields, 32, 8)});
    }
    return largest;
}

} // namespace

/// The library's archive over our bytes, which it asks for through `onCommand`.
class ZipContainer::Archive {
public:
    explicit Archive(const SourceBytes& bytes)
        : m_bytes(bytes)
    {
    }

    Archive(const Archive&) = delete;
    Archive& operator=(const Archive&) = delete;
    ~Archive() = default;

    [[nodiscard]] bool open();

    /// Whether the file system refused to give bytes.
    [[nodiscard]] bool isRefused() const { return m_isRefused; }

    [[nodiscard]] zip_t* handle() const { return m_archive.get(); }

private:
    static zip_int64_t onCommand(void* self, void* data, zip_uint64_t byteCount, zip_source_cmd_t command);
    zip_int64_t read(void* data, zip_uint64_t byteCount);
    zip_int64_t seek(void* data, zip_uint64_t byteCount);
    zip_int64_t describe(void* data) const;

    SourceBytes m_bytes;
    std::uint64_t m_position = 0;
    std::uint64_t m_openingByteCount = 0;
    bool m_isOpening = true;
    bool m_isRefused = false;
    zip_error_t m_error{};
    std::unique_ptr<zip_t, ArchiveCloser> m_archive;
};

bool ZipContainer::Archive::open()
{
    if (claimedEntryCount(m_bytes) > kDirectoryEntryLimit)
        return false;
    auto* source = zip_source_function_create(onCommand, this, nullptr);
    if (!source)
        return false;
    m_archive.reset(zip_open_from_source(source, ZIP_RDONLY, nullptr));
    if (!m_archive)
        zip_source_free(source);
    m_isOpening = false;
    return m_archive != nullptr;
}

zip_int64_t ZipContainer::Archive::onCommand(void* self, void* data, zip_uint64_t byteCount,
                                             zip_source_cmd_t command)
{
    auto& archive = *static_cast<Archive*>(self);
    switch (command) {
    case ZIP_SOURCE_OPEN:
        archive.m_position = 0;
        return 0;
    case ZIP_SOURCE_READ:
        return archive.read(data, byteCount);
    case ZIP_SOURCE_SEEK:
        return archive.seek(data, byteCount);
    case ZIP_SOURCE_TELL:
        return static_cast<zip_int64_t>(archive.m_position);
    case ZIP_SOURCE_STAT:
        return archive.describe(data);
    case ZIP_SOURCE_ERROR:
        return zip_error_to_data(&archive.m_error, data, byteCount);
    case ZIP_SOURCE_CLOSE:
    case ZIP_SOURCE_FREE:
        return 0;
    case ZIP_SOURCE_SUPPORTS:
        return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_SEEK,
                                              ZIP_SOURCE_TELL, ZIP_SOURCE_STAT, ZIP_SOURCE_ERROR,
                                              ZIP_SOURCE_CLOSE, ZIP_SOURCE_FREE, ZIP_SOURCE_SUPPORTS, -1);
    default:
        zip_error_set(&archive.m_error, ZIP_ER_OPNOTSUPP, 0);
        return -1;
    }
}

zip_int64_t ZipContainer::Archive::read(void* data, zip_uint64_t byteCount)
{
    const std::span buffer(static_cast<char*>(data), static_cast<std::size_t>(byteCount));
    const auto count = m_bytes.readAt(m_position, buffer);
    if (!count) {
        m_isRefused = true;
        zip_error_set(&m_error, ZIP_ER_READ, errno);
        return -1;
    }
    m_position += *count;
    m_openingByteCount += *count;
    if (m_isOpening && m_openingByteCount > kDirectoryByteLimit) {
        zip_error_set(&m_error, ZIP_ER_MEMORY, 0);
        return -1;
    }
    return static_cast<zip_int64_t>(*count);
}

zip_int64_t ZipContainer::Archive::seek(void* data, zip_uint64_t byteCount)
{
    const auto target
        = zip_source_seek_compute_offset(m_position, m_bytes.byteCount(), data, byteCount, &m_error);
    if (target < 0)
        return -1;
    m_position = static_cast<std::uint64_t>(target);
    return 0;
}

zip_int64_t ZipContainer::Archive::describe(void* data) const
{
    auto& description = *static_cast<zip_stat_t*>(data);
    zip_stat_init(&description);
    description.valid = ZIP_STAT_SIZE;
    description.size = m_bytes.byteCount();
    return sizeof(description);
}

ZipContainer::ZipContainer(std::unique_ptr<Archive> archive, ContentSink& sink)
    : m_archive(std::move(archive))
    , m_sink(sink)
{
}

ZipContainer::ZipContainer(ZipContainer&& other) noexcept = default;
ZipContainer::~ZipContainer() = default;

std::optional<ZipContainer> ZipContainer::open(const ContentSource& source, ContentSink& sink,
                                               ReadResult& failure)
{
    const auto bytes = SourceBytes::open(source);
    auto archive = bytes ? std::make_unique<Archive>(*bytes) : nullptr;
    if (archive && archive->open()) {
        ZipContainer container(std::move(archive), sink);
        container.readDirectory();
        return container;
    }
    if (!archive || archive->isRefused())
        failure = {ContentStatus::Unreadable, "the file cannot be read"};
    else
        failure = {ContentStatus::Damaged, "the file is no zip container, or not a whole one"};
    return std::nullopt;
}

void ZipContainer::readDirectory()
{
    const auto count = static_cast<std::uint64_t>(zip_get_num_entries(m_archive->handle(), 0));
    if (count > m_sink.limits().entries)
        m_sink.noteCut("the container's further members were left out");
    const auto end = std::min<std::uint64_t>(count, m_sink.limits().entries);
    for (std::uint64_t index = 0; index < end; ++index) {
        const auto* name = zip_get_name(m_archive->handle(), index, ZIP_FL_ENC_GUESS);
        m_names.emplace_back(name ? name : "");
        m_indexByName.try_emplace(normalisedName(m_names.back()), m_names.size() - 1);
    }
}

bool ZipContainer::hasMember(std::string_view name) const
{
    return m_indexByName.contains(normalisedName(name));
}

std::string_view ZipContainer::storedName(std::string_view name) const
{
    const auto found = m_indexByName.find(normalisedName(name));
    return found == m_indexByName.end() ? std::string_view() : m_names[found->second];
}

PartStatus ZipContainer::readMember(std::string_view name, const Consumer& consumer)
{
    const auto found = m_indexByName.find(normalisedName(name));
    if (found == m_indexByName.end())
        return PartStatus::Absent;
    zip_stat_t description{};
    if (zip_stat_index(m_archive->handle(), found->second, 0, &description) != 0)
        return PartStatus::Damaged;
    if (description.encryption_method != ZIP_EM_NONE)
        return PartStatus::Locked;
    if (description.comp_method != ZIP_CM_STORE && description.comp_method != ZIP_CM_DEFLATE)
        return PartStatus::Damaged;
    const std::unique_ptr<zip_file_t, FileCloser> file(
        zip_fopen_index(m_archive->handle(), found->second, 0));
    std::array<char, kChunkByteCount> chunk{};
    for (;;) {
        const auto count = file ? zip_fread(file.get(), chunk.data(), chunk.size()) : -1;
        if (count <= 0)
            return count == 0 ? PartStatus::Read : PartStatus::Damaged;
        m_expandedByteCount += static_cast<std::size_t>(count);
        if (m_expandedByteCount > m_sink.limits().expandedBytes)
            m_sink.noteCut("the container was cut at the limit of its expanded size");
        if (m_sink.isFull() || m_expandedByteCount > m_sink.limits().expandedBytes)
            return PartStatus::Cut;
        if (!consumer({chunk.data(), static_cast<std::size_t>(count)}))
            return PartStatus::Read;
    }
}
