#include "platform/media/PDFTextCache.h"

#include <algorithm>
#include <sys/stat.h>
#include <utility>

namespace {

thread_local PDFTextCache* currentCache = nullptr;

} // namespace

PDFPageTexts::PDFPageTexts(PDFFile file, std::optional<Bounds> bounds)
    : m_file(std::move(file))
    , m_bounds(bounds)
{
}

std::size_t PDFPageTexts::pageCount() const
{
    return std::min(m_file.pageCount(), ContentLimits().pages);
}

bool PDFPageTexts::isSpent()
{
    const bool isFull = m_keptByteCount >= m_bounds->textBytes;
    const bool isLate = std::chrono::steady_clock::now() >= m_bounds->deadline;
    if (isFull)
        m_cutNote = "the text of the pages was cut at its size limit";
    else if (isLate)
        m_cutNote = "reading the pages was stopped at its time limit";
    return isFull || isLate;
}

std::string PDFPageTexts::readPage(std::size_t index, std::chrono::steady_clock::time_point deadline)
{
    auto page = m_file.textOfPage(index, deadline);
    if (page.isCut && m_cutNote.empty())
        m_cutNote = "a page was too large and was cut";
    return std::move(page.text);
}

std::string PDFPageTexts::textOfPage(std::size_t index)
{
    if (!m_bounds)
        return readPage(index, std::chrono::steady_clock::now() + ContentLimits().time);
    if (index < m_texts.size() && m_texts[index])
        return *m_texts[index];
    if (isSpent() || index >= pageCount())
        return {};
    if (index >= m_texts.size())
        m_texts.resize(index + 1);
    m_texts[index] = readPage(index, m_bounds->deadline);
    m_keptByteCount += m_texts[index]->size();
    return *m_texts[index];
}

std::shared_ptr<PDFPageTexts> PDFPageTexts::unlockedWithPassword(std::string_view password) const
{
    auto unlocked = m_file.unlockedWithPassword(password);
    return unlocked ? std::make_shared<PDFPageTexts>(std::move(*unlocked), m_bounds) : nullptr;
}

PDFTextCache::PDFTextCache(PDFPageTexts::Bounds bounds)
    : m_bounds(bounds)
{
}

PDFTextCache::RequestScope::RequestScope(const ContentLimits& limits)
    : m_cache(std::make_unique<PDFTextCache>(
        PDFPageTexts::Bounds{limits.textBytes, std::chrono::steady_clock::now() + limits.time}))
    , m_outer(std::exchange(currentCache, m_cache.get()))
{
}

PDFTextCache::RequestScope::~RequestScope()
{
    currentCache = m_outer;
}

std::optional<PDFTextCache::FileIdentity> PDFTextCache::identityOfFile(int descriptor)
{
    struct stat status { };

    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
                        status.st_mtim.tv_nsec};
}

std::shared_ptr<PDFPageTexts> PDFTextCache::pagesOfFile(FileDescriptor descriptor)
{
    const auto identity = identityOfFile(descriptor.get());
    if (!identity)
        return nullptr;
    if (currentCache)
        return currentCache->sharedPages(std::move(descriptor), *identity);
    auto file = PDFFile::open(std::move(descriptor));
    return file ? std::make_shared<PDFPageTexts>(std::move(*file), std::nullopt) : nullptr;
}

std::shared_ptr<PDFPageTexts> PDFTextCache::sharedPages(FileDescriptor descriptor,
                                                        const FileIdentity& identity)
{
    if (m_pages && m_identity == identity)
        return m_pages;
    m_pages.reset();
    if (auto file = PDFFile::open(std::move(descriptor)))
        m_pages = std::make_shared<PDFPageTexts>(std::move(*file), m_bounds);
    m_identity = identity;
    return m_pages;
}
