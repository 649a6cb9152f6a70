#pragma once

#include "platform/search/SKIndex.h"
#include "platform/search/SQLiteDatabase.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The documents themselves: their packed texts, and the full-text table that is kept in step with them.
class DocumentStore {
public:
    explicit DocumentStore(const SQLiteDatabase& database);

    /// Adds a document for `node` and gives its identifier.
    [[nodiscard]] SKDocumentID add(std::int64_t node, std::string_view name, std::string_view text,
                                   const std::optional<SKFileStamp>& stamp);
    /// Gives a document another text and stamp; its identifier stays.
    void replace(SKDocumentID document, std::string_view name, std::string_view text,
                 const std::optional<SKFileStamp>& stamp);
    /// Changes the name under which a document is found.
    void rename(SKDocumentID document, std::string_view oldName, std::string_view newName);
    void remove(SKDocumentID document, std::string_view name);

    /// @throws SKIndexException when the document is missing or its text is damaged.
    [[nodiscard]] std::string text(SKDocumentID document);
    [[nodiscard]] std::optional<SKFileStamp> stamp(SKDocumentID document);
    [[nodiscard]] std::optional<std::int64_t> node(SKDocumentID document);

private:
    void index(SKDocumentID document, std::string_view name, std::string_view text);
    void unindex(SKDocumentID document, std::string_view name, std::string_view text);

    const SQLiteDatabase& m_database;
    std::optional<SQLiteStatement> m_index;
    std::optional<SQLiteStatement> m_unindex;
    std::optional<SQLiteStatement> m_insert;
    std::optional<SQLiteStatement> m_delete;
    std::optional<SQLiteStatement> m_text;
};
