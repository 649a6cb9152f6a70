#pragma once

#include "platform/foundation/NSURL.h"
#include "platform/search/SKDocument.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using SKDocumentID = std::int64_t;

/// Raised where an index cannot go on: its file is damaged, or the disk is full. The index is left as it was
/// at the last flush.
class SKIndexException : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

enum class SKIndexAccess { Read, Write };
enum class SKReplace { No, Yes };

/// What the file system said about a document's file when its text was added; tells whether it changed since.
struct SKFileStamp {
    /// Nanoseconds since 1970; of a package, the latest of its members and itself.
    std::int64_t modificationTime = 0;
    /// Bytes; of a package, of all its members.
    std::int64_t size = 0;

    /// The stamp of a file or package; none when it cannot be looked up.
    [[nodiscard]] static std::optional<SKFileStamp> stampOfFile(const NSURL& url);

    friend bool operator==(const SKFileStamp&, const SKFileStamp&) = default;
};

/// One hit of a search.
struct SKSearchHit {
    NSURL url;
    /// Greater is better; comparable within one search only.
    double score = 0;
    /// A piece of the text around the matches, with spaces for U+FFFC. Empty when the text is.
    std::string snippet;
    /// The document above, when that is a document too: the item of an attachment.
    std::optional<NSURL> parent;
};

struct SKSearchOptions {
    std::size_t limit = 20;
    std::size_t offset = 0;
    /// What stands before and after each match in a snippet.
    std::string matchStart = "[";
    std::string matchEnd = "]";
    bool snippets = true;
};

/// Walks the documents directly beneath one document, in the order of their names.
class SKIndexDocumentIterator {
public:
    virtual ~SKIndexDocumentIterator() = default;
    /// The next document; null at the end.
    [[nodiscard]] virtual SKDocumentRef copyNext() = 0;
};

/// A full-text index of documents in a tree, in one file. Changes take effect together at `flush`; closing
/// without it leaves the file as it was. Any number of processes may read while one writes; writers wait for
/// each other for a bounded time. One object belongs to one thread at a time. Texts are UTF-8; ill-formed
/// bytes are replaced.
class SKIndex {
public:
    /// Makes a new, empty index that only its owner may read; null with the reason in `error` when the file
    /// exists or cannot be made.
    [[nodiscard]] static std::unique_ptr<SKIndex> createWithURL(const NSURL& url, NSError* error = nullptr);

    /// Opens an existing index; null with the reason in `error` when the file is no index, of a newer format,
    /// damaged in its head, or (for writing) not writable. Such a file is left untouched.
    [[nodiscard]] static std::unique_ptr<SKIndex> openWithURL(const NSURL& url, SKIndexAccess access,
                                                              NSError* error = nullptr);

    SKIndex() = default;
    SKIndex(const SKIndex&) = delete;
    SKIndex& operator=(const SKIndex&) = delete;
    /// Closes without a flush.
    virtual ~SKIndex() = default;

    /// Puts `document` into the index with `text`, as a whole in place of what the index held for it; its
    /// children stay.
    /// @return false when it is there and may not be replaced, or another writer did not finish in time.
    /// @throws SKIndexException when the index is damaged or its disk full.
    [[nodiscard]] virtual bool addDocumentWithText(const SKDocumentRef& document, std::string_view text,
                                                   SKReplace replace)
        = 0;

    /// Reads the file at the document's URL, with the extractor for `mimeTypeHint` or else for the file's
    /// type, and adds the document with what it gives. A file that is readable but of unknown kind, damaged
    /// or locked is added with its name alone, and one log line says why.
    /// @return false also when the file cannot be read.
    [[nodiscard]] virtual bool addDocument(const SKDocumentRef& document,
                                           const std::optional<std::string>& mimeTypeHint, SKReplace replace)
        = 0;

    /// Removes the document and all beneath it; a folder that is no document but holds some likewise.
    /// @return false when the index holds neither.
    /// @throws SKIndexException also when another writer did not finish in time.
    [[nodiscard]] virtual bool removeDocument(const SKDocumentRef& document) = 0;

    /// Gives the document (or a folder of documents) a new name in its place. What had that name is replaced
    /// with all beneath it. @return false when the index does not hold it, or the name is empty, "." or ".."
    /// or holds a slash or NUL.
    [[nodiscard]] virtual bool renameDocument(const SKDocumentRef& document, std::string_view newName) = 0;

    /// Puts the document (or a folder of documents) with all beneath it under `newParent`, keeping its name.
    /// What had that name there is replaced with all beneath it.
    /// @return false when the index does not hold it, or `newParent` is the document itself or beneath it.
    [[nodiscard]] virtual bool moveDocument(const SKDocumentRef& document, const SKDocumentRef& newParent)
        = 0;

    /// Makes all changes since the last flush durable. @return false when that fails: nothing of them is
    /// kept, unless it was the disk that failed at the very end; then they may be.
    [[nodiscard]] virtual bool flush() = 0;

    /// Numbers the documents from 1 without gaps, merges the full-text tables and gives unused space back.
    /// Changes not flushed are flushed first. Crash-safe. @return false when it could not be done; the index
    /// is as before.
    [[nodiscard]] virtual bool compact() = 0;

    /// The number of documents. @throws SKIndexException when the index is damaged; so do all questions
    /// below.
    [[nodiscard]] virtual std::int64_t documentCount() const = 0;
    /// The highest identifier given since the last compaction; 0 when none was.
    [[nodiscard]] virtual SKDocumentID maximumDocumentID() const = 0;

    [[nodiscard]] virtual SKDocumentState documentState(const SKDocumentRef& document) const = 0;
    /// None when the index does not hold the document.
    [[nodiscard]] virtual std::optional<SKDocumentID> documentID(const SKDocumentRef& document) const = 0;
    /// Null when no document has this identifier.
    [[nodiscard]] virtual SKDocumentRef copyDocumentForDocumentID(SKDocumentID identifier) const = 0;
    /// The text the document was added with; none when the index does not hold it.
    [[nodiscard]] virtual std::optional<std::string>
    copyDocumentText(const SKDocumentRef& document) const = 0;
    /// The stamp its file had when it was added; none when the index does not hold it or it had no file.
    [[nodiscard]] virtual std::optional<SKFileStamp>
    documentFileStamp(const SKDocumentRef& document) const = 0;
    /// The documents directly beneath `parent`; those of folders that are no documents are not among them.
    [[nodiscard]] virtual std::unique_ptr<SKIndexDocumentIterator>
    documentIterator(const SKDocumentRef& parent) const = 0;

    /// The best hits for a query, best first. The query language is described in docs/search.md.
    /// @return false with the reason in `error` when the query cannot be understood.
    [[nodiscard]] virtual bool search(std::string_view query, const SKSearchOptions& options,
                                      std::vector<SKSearchHit>& hits, NSError* error = nullptr) const = 0;

    /// What is wrong with the index, a sentence each; empty for a sound one.
    [[nodiscard]] virtual std::vector<std::string> check() const = 0;

    /// The version of the file's format.
    [[nodiscard]] virtual int formatVersion() const = 0;
};

/// Makes the extractors for non-text formats available to `SKIndex::addDocument`; before the first call it
/// reads text files only. May be called any number of times, from any thread.
void SKLoadDefaultExtractorPlugIns();

/// How often SKLoadDefaultExtractorPlugIns was called in this process.
[[nodiscard]] std::size_t SKDefaultExtractorPlugInLoadCount();
