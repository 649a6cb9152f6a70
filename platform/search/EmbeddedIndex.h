#pragma once

#include "platform/search/DocumentStore.h"
#include "platform/search/DocumentTree.h"
#include "platform/search/IndexFile.h"
#include "platform/search/SKIndex.h"
#include "platform/search/SQLiteDatabase.h"
#include "platform/search/WriterTurn.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

/// The index in one file on this machine, over SQLite. A write transaction begins with the first change and
/// ends with `flush`; texts are extracted before it begins.
class EmbeddedIndex final : public SKIndex {
public:
    [[nodiscard]] static std::unique_ptr<EmbeddedIndex>
    open(const NSURL& url, SKIndexAccess access, std::chrono::milliseconds busyTimeout, NSError* error);

    bool addDocumentWithText(const SKDocumentRef& document, std::string_view text,
                             SKReplace replace) override;
    bool addDocument(const SKDocumentRef& document, const std::optional<std::string>& mimeTypeHint,
                     SKReplace replace) override;
    bool removeDocument(const SKDocumentRef& document) override;
    bool renameDocument(const SKDocumentRef& document, std::string_view newName) override;
    bool moveDocument(const SKDocumentRef& document, const SKDocumentRef& newParent) override;
    bool flush() override;
    bool compact() override;

    std::int64_t documentCount() const override;
    SKDocumentID maximumDocumentID() const override;
    SKDocumentState documentState(const SKDocumentRef& document) const override;
    std::optional<SKDocumentID> documentID(const SKDocumentRef& document) const override;
    SKDocumentRef copyDocumentForDocumentID(SKDocumentID identifier) const override;
    std::optional<std::string> copyDocumentText(const SKDocumentRef& document) const override;
    std::optional<SKFileStamp> documentFileStamp(const SKDocumentRef& document) const override;
    std::unique_ptr<SKIndexDocumentIterator> documentIterator(const SKDocumentRef& parent) const override;
    bool search(std::string_view query, const SKSearchOptions& options, std::vector<SKSearchHit>& hits,
                NSError* error) const override;
    std::vector<std::string> check() const override;
    int formatVersion() const override;

    ~EmbeddedIndex() override;

private:
    EmbeddedIndex(std::string path, std::unique_ptr<SQLiteDatabase> database,
                  std::chrono::milliseconds busyTimeout);

    /// Runs `change` within the write transaction, which it begins when there is none. Waiting in vain for
    /// another writer gives false; any other failure rolls everything back and is thrown on.
    bool change(const std::function<bool()>& change);
    [[nodiscard]] bool begin();
    void rollBack() noexcept;
    [[nodiscard]] bool put(const SKDocumentRef& document, std::string_view text, SKReplace replace,
                           const std::optional<SKFileStamp>& stamp);
    [[nodiscard]] std::optional<SKFileStamp> settledStamp(const SKDocumentRef& document) const;
    void removeSubtree(NodeID top);
    [[nodiscard]] bool place(const DocumentTree::Node& node, NodeID parent, std::string_view name);
    [[nodiscard]] std::optional<DocumentTree::Node> documentNode(const SKDocumentRef& document) const;

    std::string m_path;
    std::chrono::milliseconds m_busyTimeout;
    std::chrono::system_clock::time_point m_openedAt;
    WriterTurn m_turn;
    std::unique_ptr<SQLiteDatabase> m_database;
    // Questions prepare and reset statements too; the index itself does not change by them.
    std::unique_ptr<DocumentTree> m_tree;
    std::unique_ptr<DocumentStore> m_store;
};
