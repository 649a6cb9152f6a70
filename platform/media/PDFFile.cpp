#include "platform/media/PDFFile.h"

#include "platform/foundation/Unicode.h"

#include <fmt/format.h>

#include <array>
#include <fcntl.h>
#include <limits>
#include <malloc.h>
#include <mutex>
#include <poppler-document.h>
#include <poppler-global.h>
#include <poppler-page.h>
#include <sstream>
#include <unistd.h>
#include <utility>

namespace {

// The library keeps the objects of every page it has seen until the file is closed. Opening anew costs a walk
// through the pages before, so that it has to be worth it.
constexpr std::size_t kPagesBetweenOpenings = 500;
constexpr std::size_t kGrowthBetweenOpenings = std::size_t{64} << 20;

/// The memory that this process occupies, in bytes; 0 when the system does not say.
std::size_t residentByteCount()
{
    const auto file = FileDescriptor::openForReading("/proc/self/statm");
    std::array<char, 128> buffer{};
    if (!file.isValid() || ::read(file.get(), buffer.data(), buffer.size() - 1) <= 0)
        return 0;
    std::istringstream numbers(buffer.data());
    std::size_t total = 0;
    std::size_t resident = 0;
    numbers >> total >> resident;
    return resident * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

void silenceLibrary()
{
    static std::once_flag once;
    std::call_once(once,
                   [] { poppler::set_debug_error_function([](const std::string&, void*) {}, nullptr); });
}

std::string textFrom(const poppler::ustring& text)
{
    return UTF8FromUTF16(std::u16string(text.begin(), text.end()));
}

} // namespace

struct PDFFile::Library {
    std::unique_ptr<poppler::document> document;
};

PDFFile::PDFFile(FileDescriptor descriptor, std::string_view bytes)
    : m_descriptor(std::move(descriptor))
    , m_bytes(bytes)
    , m_library(std::make_unique<Library>())
    , m_residentAtOpening(residentByteCount())
{
}

PDFFile::PDFFile(PDFFile&& other) noexcept = default;
PDFFile& PDFFile::operator=(PDFFile&& other) noexcept = default;
PDFFile::~PDFFile() = default;

std::optional<PDFFile> PDFFile::open(FileDescriptor descriptor)
{
    PDFFile file(std::move(descriptor), {});
    if (!file.load({}))
        return std::nullopt;
    return file;
}

std::optional<PDFFile> PDFFile::open(std::string_view bytes)
{
    PDFFile file({}, bytes);
    if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()) || !file.load({}))
        return std::nullopt;
    return file;
}

bool PDFFile::load(std::string password)
{
    silenceLibrary();
    m_password = std::move(password);
    // The file is opened through its descriptor, so that a name that changes hands meanwhile does not matter.
    std::unique_ptr<poppler::document> document(
        m_descriptor.isValid() ? poppler::document::load_from_file(
            fmt::format("/proc/self/fd/{}", m_descriptor.get()), m_password, m_password)
                               : poppler::document::load_from_raw_data(
                                   m_bytes.data(), static_cast<int>(m_bytes.size()), m_password, m_password));
    if (!document)
        return false;
    m_library->document = std::move(document);
    return true;
}

bool PDFFile::isLocked() const
{
    return m_library->document && m_library->document->is_locked();
}

std::optional<PDFFile> PDFFile::unlockedWithPassword(std::string_view password) const
{
    PDFFile file(m_descriptor.isValid() ? FileDescriptor(::fcntl(m_descriptor.get(), F_DUPFD_CLOEXEC, 0))
                                        : FileDescriptor(),
                 m_bytes);
    if (file.m_descriptor.isValid() != m_descriptor.isValid() || !file.load(std::string(password))
        || file.isLocked())
        return std::nullopt;
    return file;
}

std::size_t PDFFile::pageCount() const
{
    const int count = !m_library->document || isLocked() ? 0 : m_library->document->pages();
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

bool PDFFile::reopenIfGrown()
{
    if (residentByteCount() < m_residentAtOpening + kGrowthBetweenOpenings)
        return true;
    m_library->document.reset();
    (void)::malloc_trim(0); // Whether there was anything to give back does not matter.
    return load(m_password);
}

std::string PDFFile::textOfPage(std::size_t index)
{
    if (index >= pageCount())
        return {};
    if (++m_pagesSinceOpening % kPagesBetweenOpenings == 0 && !reopenIfGrown())
        return {};
    const std::unique_ptr<poppler::page> page(m_library->document->create_page(static_cast<int>(index)));
    if (!page)
        return {};
    return textFrom(page->text(poppler::rectf(), poppler::page::non_raw_non_physical_layout));
}

std::string PDFFile::information(const std::string& key) const
{
    return !m_library->document || isLocked() ? std::string() : textFrom(m_library->document->info_key(key));
}
