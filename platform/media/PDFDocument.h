#pragma once

#include "platform/foundation/NSURL.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

class PDFPageTexts;

/// A page of a PDF document. It keeps the document's file open, and may outlive the document.
class PDFPage {
public:
    /// The page's text in reading order, as UTF-8; empty when it has none or cannot be read.
    [[nodiscard]] std::string string() const;

private:
    friend class PDFDocument;
    PDFPage(std::shared_ptr<PDFPageTexts> pages, std::size_t index);

    std::shared_ptr<PDFPageTexts> m_pages;
    std::size_t m_index;
};

/// A PDF document, open for reading. Documents that are opened from one file within a
/// PDFTextCache::RequestScope share what was read. Different documents may be used on different threads;
/// those of one scope on its thread only.
class PDFDocument {
public:
    /// Opens the file at `url`. Null when it is not a regular file, cannot be read, or is no PDF.
    [[nodiscard]] static std::unique_ptr<PDFDocument> initWithURL(const NSURL& url);
    /// Opens the file behind a descriptor, which stays the caller's.
    [[nodiscard]] static std::unique_ptr<PDFDocument> initWithFileDescriptor(int descriptor);
    /// Opens a PDF in memory. `data` is borrowed for the life of the document and its pages.
    [[nodiscard]] static std::unique_ptr<PDFDocument> initWithData(std::string_view data);

    /// Made by the functions above.
    explicit PDFDocument(std::shared_ptr<PDFPageTexts> pages);

    /// Whether a password is missing. A document that opens with the empty password is not locked.
    [[nodiscard]] bool isLocked() const;
    /// Unlocks this document only, not others of the same file. True when it was not locked.
    [[nodiscard]] bool unlockWithPassword(std::string_view password);
    /// 0 while the document is locked; at most the limit on pages, whatever the file claims.
    [[nodiscard]] std::size_t pageCount() const;
    /// None when `index` is not below the number of pages.
    [[nodiscard]] std::optional<PDFPage> pageAtIndex(std::size_t index) const;

    /// An entry of the document's description ("Title", "Author", "Subject", "Keywords") as UTF-8; empty for
    /// none.
    [[nodiscard]] std::string documentAttribute(std::string_view name) const;
    /// Which limit kept pages from being read, as a sentence; empty when none did.
    [[nodiscard]] std::string cutNote() const;

private:
    std::shared_ptr<PDFPageTexts> m_pages;
};
