#include "platform/search/DocumentStore.h"

#include "platform/search/SearchableName.h"
#include "platform/search/StoredText.h"

#include <fmt/format.h>

namespace {

SQLiteStatement& prepared(std::optional<SQLiteStatement>& statement, const SQLiteDatabase& database,
                          const char* sql)
{
    if (!statement)
        statement.emplace(database.prepare(sql));
    return *statement;
}

void bindStamp(SQLiteStatement& statement, int index, const std::optional<SKFileStamp>& stamp)
{
    if (!stamp) {
        statement.bindNull(index).bindNull(index + 1);
        return;
    }
    statement.bind(index, stamp->modificationTime).bind(index + 1, stamp->size);
}

} // namespace

DocumentContent::DocumentContent(std::string_view contentText, const std::optional<SKFileStamp>& fileStamp)
    : text(contentText)
    , packedText(StoredText::pack(contentText))
    , stamp(fileStamp)
{
}

DocumentStore::DocumentStore(const SQLiteDatabase& database)
    : m_database(database)
{
}

SQLiteStatement& DocumentStore::indexStatement()
{
    return prepared(m_index, m_database, "INSERT INTO fulltext(rowid, name, text) VALUES(?1, ?2, ?3)");
}

SQLiteStatement& DocumentStore::insertStatement()
{
    return prepared(m_insert, m_database,
                    "INSERT INTO document(node, modified, size, text) VALUES(?1, ?2, ?3, ?4)");
}

void DocumentStore::prepareToAdd()
{
    (void)indexStatement(); // Each is kept for when it is needed.
    (void)insertStatement();
}

void DocumentStore::index(SKDocumentID document, std::string_view name, std::string_view text)
{
    const auto searchable = searchableName(name);
    indexStatement().bind(1, document).bindText(2, searchable).bindText(3, text).run();
}

// The full-text table keeps no text: to forget a document it has to be told what it was given.
void DocumentStore::unindex(SKDocumentID document, std::string_view name, std::string_view text)
{
    const auto searchable = searchableName(name);
    prepared(m_unindex, m_database,
             "INSERT INTO fulltext(fulltext, rowid, name, text) VALUES('delete', ?1, ?2, ?3)")
        .bind(1, document)
        .bindText(2, searchable)
        .bindText(3, text)
        .run();
}

SKDocumentID DocumentStore::add(std::int64_t node, std::string_view name, const DocumentContent& content)
{
    auto& insert = insertStatement();
    bindStamp(insert.bind(1, node), 2, content.stamp);
    insert.bindBlob(4, content.packedText).run();
    const auto identifier = m_database.lastInsertedRow();
    index(identifier, name, content.text);
    return identifier;
}

void DocumentStore::replace(SKDocumentID document, std::string_view name, const DocumentContent& content)
{
    unindex(document, name, text(document));
    auto update = m_database.prepare("UPDATE document SET modified = ?2, size = ?3, text = ?4 WHERE id = ?1");
    bindStamp(update.bind(1, document), 2, content.stamp);
    update.bindBlob(4, content.packedText).run();
    index(document, name, content.text);
}

void DocumentStore::rename(SKDocumentID document, std::string_view oldName, std::string_view newName)
{
    const auto kept = text(document);
    unindex(document, oldName, kept);
    index(document, newName, kept);
}

void DocumentStore::remove(SKDocumentID document, std::string_view name)
{
    unindex(document, name, text(document));
    prepared(m_delete, m_database, "DELETE FROM document WHERE id = ?1").bind(1, document).run();
}

std::string DocumentStore::text(SKDocumentID document)
{
    auto& statement = prepared(m_text, m_database, "SELECT text FROM document WHERE id = ?1");
    const SQLiteReset atEnd(statement);
    auto text = statement.bind(1, document).step() ? StoredText::unpack(statement.blob(0)) : std::nullopt;
    if (!text)
        throw SKIndexException(fmt::format("the text of document {} is damaged", document));
    return std::move(*text);
}

std::optional<SKFileStamp> DocumentStore::stamp(SKDocumentID document)
{
    auto statement = m_database.prepare("SELECT modified, size FROM document WHERE id = ?1");
    if (!statement.bind(1, document).step() || statement.isNull(0))
        return std::nullopt;
    return SKFileStamp{statement.integer(0), statement.integer(1)};
}

std::optional<std::int64_t> DocumentStore::node(SKDocumentID document)
{
    auto statement = m_database.prepare("SELECT node FROM document WHERE id = ?1");
    return statement.bind(1, document).step() ? std::optional(statement.integer(0)) : std::nullopt;
}
