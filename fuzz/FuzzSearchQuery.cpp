// Any query text gives an expression that FTS5 accepts, or a problem.

#include "platform/search/FTS5Tokenizer.h"
#include "platform/search/SearchQuery.h"

#include <sqlite3.h>

#include <cstdint>
#include <cstdlib>

namespace {

sqlite3_stmt* preparedSearch()
{
    sqlite3* database = nullptr;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_open(":memory:", &database) != SQLITE_OK || registerFTS5Tokenizer(database) != SQLITE_OK)
        std::abort();
    (void)sqlite3_exec(database, "CREATE VIRTUAL TABLE t USING fts5(a, b, tokenize='corvel')", nullptr,
                       nullptr, nullptr);
    if (sqlite3_prepare_v2(database, "SELECT rowid FROM t WHERE t MATCH ?1", -1, &statement, nullptr)
        != SQLITE_OK)
        std::abort();
    return statement;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static sqlite3_stmt* const statement = preparedSearch();
    std::string problem;
    const auto expression = SearchQuery::expressionFor({reinterpret_cast<const char*>(data), size}, problem);
    if (!expression)
        return 0;
    sqlite3_bind_text(statement, 1, expression->data(), static_cast<int>(expression->size()), SQLITE_STATIC);
    if (sqlite3_step(statement) != SQLITE_DONE)
        std::abort();
    sqlite3_reset(statement);
    return 0;
}
