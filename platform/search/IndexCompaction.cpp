#include "platform/search/IndexCompaction.h"

#include "platform/foundation/NSLog.h"

#include <vector>

namespace {

std::vector<SKDocumentID> documentIDs(const SQLiteDatabase& database)
{
    std::vector<SKDocumentID> identifiers;
    auto statement = database.prepare("SELECT id FROM document ORDER BY id");
    while (statement.step())
        identifiers.push_back(statement.integer(0));
    return identifiers;
}

} // namespace

void renumberDocuments(const SQLiteDatabase& database)
{
    auto moveDocument = database.prepare("UPDATE document SET id = ?2 WHERE id = ?1");
    auto moveNode = database.prepare(
        "UPDATE node SET document = ?2 WHERE id = (SELECT node FROM document WHERE id = ?2)");
    const auto identifiers = documentIDs(database);
    SKDocumentID next = 0;
    for (const auto identifier : identifiers) {
        // Going upwards, every smaller number is either taken by its new owner or free.
        if (identifier == ++next)
            continue;
        moveDocument.bind(1, identifier).bind(2, next).run();
        moveNode.bind(2, next).run();
    }
    database.prepare("UPDATE sqlite_sequence SET seq = ?1 WHERE name = 'document'").bind(1, next).run();
    database.prepare("INSERT INTO fulltext(fulltext) VALUES('rebuild')").run();
    database.prepare("INSERT INTO fulltext(fulltext) VALUES('optimize')").run();
}

void shrinkFile(SQLiteDatabase& database, const std::string& path)
{
    try {
        database.execute("VACUUM");
        database.execute("PRAGMA wal_checkpoint(TRUNCATE)");
    } catch (const SQLiteError& error) {
        NSLog("Couldn't shrink {}: {}", path, error.what());
    }
}
