#pragma once

#include "platform/foundation/FileDescriptor.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct PDFPageText {
    std::string text;
    /// Whether reading was given up before the page's end.
    bool isCut = false;
};

/// An open PDF as the PDF library reads it: lazily, page by page, never as a whole. Different files may be
/// used on different threads at once; one file belongs to one thread at a time.
class PDFFile {
public:
    /// Opens the regular file behind `descriptor`, which is the file's own from then on. None when it is no
    /// PDF.
    [[nodiscard]] static std::optional<PDFFile> open(FileDescriptor descriptor);
    /// Opens a PDF in memory. `bytes` are borrowed for the life of the object.
    [[nodiscard]] static std::optional<PDFFile> open(std::string_view bytes);

    PDFFile(PDFFile&& other) noexcept;
    PDFFile& operator=(PDFFile&& other) noexcept;
    PDFFile(const PDFFile&) = delete;
    PDFFile& operator=(const PDFFile&) = delete;
    ~PDFFile();

    /// True while a password is missing. The empty password was tried on opening.
    [[nodiscard]] bool isLocked() const;
    /// The same file, opened anew with the user's or the owner's password; none when it is neither.
    [[nodiscard]] std::optional<PDFFile> unlockedWithPassword(std::string_view password) const;
    /// The number of pages that the file claims to have; it may lie. 0 while it is locked.
    [[nodiscard]] std::size_t pageCount() const;
    /// The text of a page as UTF-8, in reading order with words at line ends joined; empty for a page that is
    /// not there or cannot be read. A page that is not done at `deadline`, or holds too much, gives what was
    /// read of it. Now and then the file is opened anew to drop what the library keeps of its pages.
    [[nodiscard]] PDFPageText textOfPage(std::size_t index, std::chrono::steady_clock::time_point deadline);
    /// An entry of the document's description, such as "Title"; empty when there is none.
    [[nodiscard]] std::string information(const std::string& key) const;

private:
    struct Library;
    PDFFile(FileDescriptor descriptor, std::string_view bytes);
    [[nodiscard]] bool load(std::string password);
    [[nodiscard]] bool reopenIfGrown();

    FileDescriptor m_descriptor;
    std::string_view m_bytes;
    std::string m_password;
    std::unique_ptr<Library> m_library;
    std::size_t m_residentAtOpening = 0;
    std::size_t m_pagesSinceOpening = 0;
};
