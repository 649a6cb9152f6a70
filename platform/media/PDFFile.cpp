#include "platform/media/PDFFile.h"

#include "platform/foundation/Unicode.h"

#include <fmt/format.h>
#include <poppler/ErrorCodes.h>
#include <poppler/GlobalParams.h>
#include <poppler/PDFDoc.h>
#include <poppler/TextOutputDev.h>
#include <poppler/UTF.h>

#include <array>
#include <fcntl.h>
#include <malloc.h>
#include <sstream>
#include <unistd.h>
#include <utility>

// The library's core is used rather than its C++ wrapper: only the core can be interrupted within a page,
// reads text outside the visible part of a page, and keeps the colour profiles from one page to the next.

namespace {

// The library keeps the objects of every page it has seen until the file is closed. Opening anew costs a walk
// through the pages before, so that it has to be worth it.
constexpr std::size_t kPagesBetweenOpenings = 500;
constexpr std::size_t kGrowthBetweenOpenings = std::size_t{64} << 20;
constexpr std::size_t kMostGrowthWithinPage = std::size_t{128} << 20;
constexpr unsigned kChecksBetweenMemoryReadings = 1024;
// Finding the lines of a page takes time that grows with the square of its characters; a full page has
// 10,000.
constexpr std::size_t kMostCharactersOfPage = 250'000;
constexpr double kResolution = 72;

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

/// Sets the library up for the rest of the process, with its messages dropped.
void startLibrary()
{
    static const GlobalParamsIniter initer([](ErrorCategory, Goffset, const char*) {});
}

void appendToString(void* stream, const char* text, int length)
{
    static_cast<std::string*>(stream)->append(text, static_cast<std::size_t>(length));
}

/// Watches over the reading of one page.
class PageWatch {
public:
    PageWatch() = default;

    explicit PageWatch(std::chrono::steady_clock::time_point deadline)
        : m_deadline(deadline)
        , m_residentAtStart(residentByteCount())
    {
    }

    /// Whether reading was ended before the page was.
    [[nodiscard]] bool hasEnded() const { return m_hasEnded; }

    /// Looks whether reading has to end; once it has, it has for good.
    bool check()
    {
        m_hasEnded = m_hasEnded || std::chrono::steady_clock::now() >= m_deadline;
        if (!m_hasEnded && ++m_checks % kChecksBetweenMemoryReadings == 0)
            m_hasEnded = residentByteCount() > m_residentAtStart + kMostGrowthWithinPage;
        return m_hasEnded;
    }

    /// Counts a character; false when the page has too many.
    bool takeCharacter()
    {
        m_hasEnded = m_hasEnded || ++m_characterCount > kMostCharactersOfPage;
        return !m_hasEnded;
    }

private:
    std::chrono::steady_clock::time_point m_deadline;
    std::size_t m_residentAtStart = 0;
    std::size_t m_characterCount = 0;
    unsigned m_checks = 0;
    bool m_hasEnded = false;
};

/// Collects the text of one page after the other.
class PageTextOutput final : public TextOutputDev {
public:
    PageTextOutput()
        : TextOutputDev(appendToString, &m_text, false, 0, false)
    {
        setTextPageBreaks(false);
    }

    void beginPage(std::chrono::steady_clock::time_point deadline)
    {
        m_text.clear();
        m_watch = PageWatch(deadline);
    }

    [[nodiscard]] const std::string& text() const { return m_text; }

    [[nodiscard]] bool isCut() const { return m_watch.hasEnded(); }

    /// Asked by the library every few operators; true leaves the stream of operators it is in, but only that
    /// one.
    static bool shouldLeave(void* output) { return static_cast<PageTextOutput*>(output)->m_watch.check(); }

    // Forms within forms are how few bytes make endless pages. At the end they are taken over, and not drawn.
    bool useDrawForm() override { return m_watch.check(); }

    void drawForm(Ref /*form*/) override { }

    void drawChar(GfxState* state, double x, double y, double dx, double dy, double originX, double originY,
                  CharCode code, int byteCount, const Unicode* characters, int characterCount) override
    {
        if (m_watch.takeCharacter())
            TextOutputDev::drawChar(state, x, y, dx, dy, originX, originY, code, byteCount, characters,
                                    characterCount);
    }

private:
    std::string m_text;
    PageWatch m_watch;
};

struct LibraryFree {
    void operator()(Unicode* characters) const { gfree(characters); }
};

/// A text string of the format: UTF-16, UTF-8, or the format's own encoding.
std::string textFrom(const GooString& bytes)
{
    Unicode* characters = nullptr;
    const int count = TextStringToUCS4(bytes.toStr(), &characters);
    const std::unique_ptr<Unicode, LibraryFree> owner(characters);
    std::string text;
    for (int index = 0; index < count; ++index)
        appendUTF8(text, characters[index]);
    return text;
}

} // namespace

struct PDFFile::Library {
    explicit Library(std::unique_ptr<PDFDoc> openDocument)
        : document(std::move(openDocument))
    {
    }

    [[nodiscard]] bool isLocked() const { return document->getErrorCode() == errEncrypted; }

    std::unique_ptr<PDFDoc> document;
    PageTextOutput output;
};

PDFFile::PDFFile(FileDescriptor descriptor, std::string_view bytes)
    : m_descriptor(std::move(descriptor))
    , m_bytes(bytes)
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
    if (!file.load({}))
        return std::nullopt;
    return file;
}

bool PDFFile::load(std::string password)
{
    startLibrary();
    m_password = std::move(password);
    const std::optional<GooString> key(std::in_place, m_password);
    std::unique_ptr<PDFDoc> document;
    if (m_descriptor.isValid()) {
        // Through the descriptor, so that a name that changes hands meanwhile does not matter.
        const auto name = fmt::format("/proc/self/fd/{}", m_descriptor.get());
        document = std::make_unique<PDFDoc>(std::make_unique<GooString>(name), key, key);
    } else {
        auto stream = std::make_unique<MemStream>(m_bytes.data(), 0, static_cast<Goffset>(m_bytes.size()),
                                                  Object(objNull));
        document = std::make_unique<PDFDoc>(stream.release(), key, key);
    }
    if (!document->isOk() && document->getErrorCode() != errEncrypted)
        return false;
    m_library = std::make_unique<Library>(std::move(document));
    return true;
}

bool PDFFile::isLocked() const
{
    return m_library && m_library->isLocked();
}

std::optional<PDFFile> PDFFile::unlockedWithPassword(std::string_view password) const
{
    auto descriptor = m_descriptor.isValid() ? FileDescriptor(::fcntl(m_descriptor.get(), F_DUPFD_CLOEXEC, 0))
                                             : FileDescriptor();
    if (descriptor.isValid() != m_descriptor.isValid())
        return std::nullopt;
    PDFFile file(std::move(descriptor), m_bytes);
    if (!file.load(std::string(password)) || file.isLocked())
        return std::nullopt;
    return file;
}

std::size_t PDFFile::pageCount() const
{
    const int count = !m_library || isLocked() ? 0 : m_library->document->getNumPages();
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

bool PDFFile::reopenIfGrown()
{
    if (residentByteCount() < m_residentAtOpening + kGrowthBetweenOpenings)
        return true;
    m_library.reset();
    (void)::malloc_trim(0); // Whether there was anything to give back does not matter.
    return load(m_password);
}

PDFPageText PDFFile::textOfPage(std::size_t index, std::chrono::steady_clock::time_point deadline)
{
    if (index >= pageCount() || (++m_pagesSinceOpening % kPagesBetweenOpenings == 0 && !reopenIfGrown()))
        return {};
    auto& output = m_library->output;
    output.beginPage(deadline);
    m_library->document->displayPage(&output, static_cast<int>(index) + 1, kResolution, kResolution, 0, true,
                                     false, false, PageTextOutput::shouldLeave, &output);
    return {validUTF8(output.text()), output.isCut()};
}

std::string PDFFile::information(const std::string& key) const
{
    if (!m_library || isLocked())
        return {};
    const auto entry = m_library->document->getDocInfoStringEntry(key.c_str());
    return entry ? textFrom(*entry) : std::string();
}
