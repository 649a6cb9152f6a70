#pragma once

#include "platform/media/ContentLimits.h"
#include "platform/media/PDFFile.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// The texts of a PDF's pages, taken from it when they are asked for. Bounds on text and time hold for all
/// pages together: once one is reached, further pages are empty at once.
class PDFPageTexts {
public:
    struct Bounds {
        std::size_t textBytes = 0;
        std::chrono::steady_clock::time_point deadline;
    };

    /// With bounds, texts are kept, so that each page is read from the file once; without, nothing is kept.
    PDFPageTexts(PDFFile file, std::optional<Bounds> bounds);

    [[nodiscard]] const PDFFile& file() const { return m_file; }

    /// The number of pages that can be asked for. Below that of the file when the file has, or claims, too
    /// many.
    [[nodiscard]] std::size_t pageCount() const;
    [[nodiscard]] std::string textOfPage(std::size_t index);

    /// The pages of the same file, opened anew with a password; null when it is the wrong one.
    [[nodiscard]] std::shared_ptr<PDFPageTexts> unlockedWithPassword(std::string_view password) const;

    /// What kept pages from being read, as a sentence; empty when nothing did.
    [[nodiscard]] const std::string& cutNote() const { return m_cutNote; }

private:
    [[nodiscard]] bool isSpent();
    [[nodiscard]] std::string readPage(std::size_t index, std::chrono::steady_clock::time_point deadline);

    PDFFile m_file;
    std::optional<Bounds> m_bounds;
    std::vector<std::optional<std::string>> m_texts;
    std::size_t m_keptByteCount = 0;
    std::string m_cutNote;
};

/// Lets the steps of one request share the PDF they are about: whoever opens a file that was opened before
/// gets the same open document and the texts that were found so far. A file is the same while its device,
/// inode, size and time of change are. Only the last file is kept.
class PDFTextCache {
public:
    /// While it lives, PDFs that are opened on this thread are shared; what is kept goes with it. The limits
    /// on text and time hold for the whole request. A scope within a scope has a cache of its own.
    class RequestScope {
    public:
        explicit RequestScope(const ContentLimits& limits = {});
        RequestScope(const RequestScope&) = delete;
        RequestScope& operator=(const RequestScope&) = delete;
        ~RequestScope();

    private:
        std::unique_ptr<PDFTextCache> m_cache;
        PDFTextCache* m_outer;
    };

    explicit PDFTextCache(PDFPageTexts::Bounds bounds);

    /// The pages of the regular file behind `descriptor`, through this thread's scope if there is one. Null
    /// when the file is not regular or no PDF.
    [[nodiscard]] static std::shared_ptr<PDFPageTexts> pagesOfFile(FileDescriptor descriptor);

private:
    struct FileIdentity {
        std::uint64_t device = 0;
        std::uint64_t inode = 0;
        std::int64_t byteCount = 0;
        std::int64_t changeSeconds = 0;
        std::int64_t changeNanoseconds = 0;

        friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
    };

    [[nodiscard]] static std::optional<FileIdentity> identityOfFile(int descriptor);
    [[nodiscard]] std::shared_ptr<PDFPageTexts> sharedPages(FileDescriptor descriptor,
                                                            const FileIdentity& identity);

    PDFPageTexts::Bounds m_bounds;
    FileIdentity m_identity;
    std::shared_ptr<PDFPageTexts> m_pages;
};
