#pragma once

#include "platform/search/SKIndex.h"
#include "platform/search/SQLiteDatabase.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// What a document is indexed with; made before the write transaction begins.
struct DocumentContent {
    DocumentContent(std::string_view text, const std::optional<SKFileStamp>& stamp);

    /// Borrowed.
    std::string_view text;
    std::string packedText;
    std::optional<SKFileStamp> stamp;
};

/// The documents themselves: their packed texts, and the full-text table that is kept in step with them.
class DocumentStore {
public:
    explicit DocumentStore(const SQLiteDatabase& database);

    /// Prepares for adding, so that it need not be done within the write transaction.
    void prepareToAdd();
    /// Adds a document for `node` and gives its identifier.
    [[nodiscard]] SKDocumentID add(std::int64_t node, std::string_view name, const DocumentContent& content);
    /// Gives a document another content; its identifier stays.
    void replace(SKDocumentID document, std::string_view name, const DocumentContent& content);
    /// Changes the name under which a document is found.
    void rename(SKDocumentID document, std::string_view oldName, std::string_view newName);
    void remove(SKDocumentID document, std::string_view name);

    /// @throws SKIndexException when the document is missing or its text is damaged.
    [[nodiscard]] std::string text(SKDocumentID document);
    [[nodiscard]] std::optional<SKFileStamp> stamp(SKDocumentID document);
    [[nodiscard]] std::optional<std::int64_t> node(SKDocumentID document);

private:
    SQLiteStatement& indexStatement();
    SQLiteStatement& insertStatement();
    void index(SKDocumentID document, std::string_view name, std::string_view text);
    void unindex(SKDocumentID document, std::string_view name, std::string_view text);

    const SQLiteDatabase& m_database;
    std::optional<SQLiteStatement> m_index;
    std::optional<SQLiteStatement> m_unindex;
    std::optional<SQLiteStatement> m_insert;
    std::optional<SQLiteStatement> m_delete;
    std::optional<SQLiteStatement> m_text;
};
