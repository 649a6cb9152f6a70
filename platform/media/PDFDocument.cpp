#include "platform/media/PDFDocument.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/media/PDFTextCache.h"

#include <fcntl.h>
#include <utility>

namespace {

std::unique_ptr<PDFDocument> documentOf(FileDescriptor descriptor)
{
    if (!descriptor.isValid())
        return nullptr;
    auto pages = PDFTextCache::pagesOfFile(std::move(descriptor));
    if (!pages)
        return nullptr;
    return std::make_unique<PDFDocument>(std::move(pages));
}

} // namespace

PDFPage::PDFPage(std::shared_ptr<PDFPageTexts> pages, std::size_t index)
    : m_pages(std::move(pages))
    , m_index(index)
{
}

std::string PDFPage::string() const
{
    return m_pages->textOfPage(m_index);
}

PDFDocument::PDFDocument(std::shared_ptr<PDFPageTexts> pages)
    : m_pages(std::move(pages))
{
}

std::unique_ptr<PDFDocument> PDFDocument::initWithURL(const NSURL& url)
{
    return documentOf(FileDescriptor::openForReading(url.path()));
}

std::unique_ptr<PDFDocument> PDFDocument::initWithFileDescriptor(int descriptor)
{
    return documentOf(FileDescriptor(::fcntl(descriptor, F_DUPFD_CLOEXEC, 0)));
}

std::unique_ptr<PDFDocument> PDFDocument::initWithData(std::string_view data)
{
    auto file = PDFFile::open(data);
    return file
        ? std::make_unique<PDFDocument>(std::make_shared<PDFPageTexts>(std::move(*file), std::nullopt))
        : nullptr;
}

bool PDFDocument::isLocked() const
{
    return m_pages->file().isLocked();
}

bool PDFDocument::unlockWithPassword(std::string_view password)
{
    if (!isLocked())
        return true;
    auto unlocked = m_pages->unlockedWithPassword(password);
    if (!unlocked)
        return false;
    m_pages = std::move(unlocked);
    return true;
}

std::size_t PDFDocument::pageCount() const
{
    return m_pages->pageCount();
}

std::optional<PDFPage> PDFDocument::pageAtIndex(std::size_t index) const
{
    if (index >= pageCount())
        return std::nullopt;
    return PDFPage(m_pages, index);
}

std::string PDFDocument::documentAttribute(std::string_view name) const
{
    return m_pages->file().information(std::string(name));
}

std::string PDFDocument::cutNote() const
{
    if (m_pages->file().pageCount() > m_pages->pageCount())
        return "pages beyond the limit were left out";
    return m_pages->cutNote();
}
