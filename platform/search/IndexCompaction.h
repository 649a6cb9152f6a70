#pragma once

#include "platform/search/SQLiteDatabase.h"

#include <string>

/// Within a write transaction: numbers the documents from 1 without gaps, in their order, and builds the
/// full-text tables anew, so that no term of a removed text is left in them. @throws SKIndexException
void renumberDocuments(const SQLiteDatabase& database);

/// Outside a transaction: gives unused pages and the write-ahead log back to the file system. Each step is
/// whole or undone after a crash. One log line says so when another connection or a full disk is in the way:
/// nothing is lost by it.
void shrinkFile(SQLiteDatabase& database, const std::string& path);
