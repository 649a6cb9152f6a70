#include "platform/search/SQLiteDatabase.h"

#include "platform/foundation/NSURL.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <limits>
#include <thread>

namespace {

constexpr int kPrimaryCodeMask = 0xFF;

[[noreturn]] void failOn(sqlite3* database, int code)
{
    throw SQLiteError(code & kPrimaryCodeMask,
                      database ? sqlite3_errmsg(database) : sqlite3_errstr(code & kPrimaryCodeMask));
}

int openFlags(SQLiteOpen mode)
{
    constexpr int kAlways = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_URI;
    switch (mode) {
    case SQLiteOpen::ReadWrite:
        return kAlways | SQLITE_OPEN_READWRITE;
    case SQLiteOpen::ReadOnly:
    case SQLiteOpen::Immutable:
        return kAlways | SQLITE_OPEN_READONLY;
    case SQLiteOpen::Create:
        return kAlways | SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    }
    return kAlways;
}

} // namespace

SQLiteError::SQLiteError(int code, const std::string& message)
    : SKIndexException(message)
    , m_code(code)
{
}

bool SQLiteError::isBusy() const
{
    return m_code == SQLITE_BUSY || m_code == SQLITE_LOCKED;
}

void SQLiteStatement::Finalizer::operator()(sqlite3_stmt* statement) const
{
    (void)sqlite3_finalize(statement); // Repeats the error of the last step, which was thrown already.
}

SQLiteStatement::SQLiteStatement(sqlite3* database, std::string_view sql)
{
    sqlite3_stmt* statement = nullptr;
    const int code
        = sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()), 0, &statement, nullptr);
    m_statement.reset(statement);
    if (code != SQLITE_OK)
        failOn(database, code);
}

void SQLiteStatement::fail() const
{
    auto* database = sqlite3_db_handle(m_statement.get());
    failOn(database, sqlite3_errcode(database));
}

SQLiteStatement& SQLiteStatement::bind(int index, std::int64_t value)
{
    if (sqlite3_bind_int64(m_statement.get(), index, value) != SQLITE_OK)
        fail();
    return *this;
}

SQLiteStatement& SQLiteStatement::bindText(int index, std::string_view value)
{
    if (sqlite3_bind_text64(m_statement.get(), index, value.empty() ? "" : value.data(), value.size(),
                            SQLITE_STATIC, SQLITE_UTF8)
        != SQLITE_OK)
        fail();
    return *this;
}

SQLiteStatement& SQLiteStatement::bindBlob(int index, std::string_view value)
{
    if (sqlite3_bind_blob64(m_statement.get(), index, value.empty() ? "" : value.data(), value.size(),
                            SQLITE_STATIC)
        != SQLITE_OK)
        fail();
    return *this;
}

SQLiteStatement& SQLiteStatement::bindNull(int index)
{
    if (sqlite3_bind_null(m_statement.get(), index) != SQLITE_OK)
        fail();
    return *this;
}

bool SQLiteStatement::step()
{
    const int code = sqlite3_step(m_statement.get());
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        fail();
    return false;
}

void SQLiteStatement::run()
{
    const SQLiteReset atEnd(*this);
    while (step()) { }
}

void SQLiteStatement::reset()
{
    (void)sqlite3_reset(m_statement.get()); // Repeats the error of the last step, which was thrown already.
    (void)sqlite3_clear_bindings(m_statement.get());
}

bool SQLiteStatement::isNull(int column) const
{
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

std::int64_t SQLiteStatement::integer(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

double SQLiteStatement::real(int column) const
{
    return sqlite3_column_double(m_statement.get(), column);
}

std::string_view SQLiteStatement::text(int column) const
{
    const auto* bytes = sqlite3_column_text(m_statement.get(), column);
    return {reinterpret_cast<const char*>(bytes),
            static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column))};
}

std::string_view SQLiteStatement::blob(int column) const
{
    const auto* bytes = sqlite3_column_blob(m_statement.get(), column);
    return {static_cast<const char*>(bytes),
            static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column))};
}

void SQLiteDatabase::Closer::operator()(sqlite3* database) const
{
    (void)sqlite3_close_v2(database); // Statements that outlive the connection keep it until they go.
}

SQLiteDatabase::SQLiteDatabase(const std::string& path, SQLiteOpen mode,
                               std::chrono::milliseconds busyTimeout)
    : m_busyClock(std::make_unique<BusyClock>(BusyClock{busyTimeout, {}}))
{
    // Always a URI, so that a name with a question mark or a percent sign is a name and nothing else.
    std::string uri = NSURL::fileURLWithPath(path).absoluteString();
    if (mode == SQLiteOpen::Immutable)
        uri += "?immutable=1";
    sqlite3* database = nullptr;
    const int code = sqlite3_open_v2(uri.c_str(), &database, openFlags(mode), nullptr);
    m_database.reset(database);
    if (code != SQLITE_OK)
        failOn(database, code);
    if (sqlite3_busy_handler(database, &SQLiteDatabase::onBusy, m_busyClock.get()) != SQLITE_OK)
        failOn(database, sqlite3_errcode(database));
}

// SQLite's own handler sleeps whole milliseconds, longer than most of our transactions last.
int SQLiteDatabase::onBusy(void* context, int callNumber)
{
    constexpr std::chrono::microseconds kFirstPause{50};
    constexpr std::chrono::microseconds kLongestPause{2000};
    constexpr int kPausesOfOneLength = 8;
    auto& clock = *static_cast<BusyClock*>(context);
    const auto now = std::chrono::steady_clock::now();
    if (callNumber == 0)
        clock.start = now;
    if (now - clock.start >= clock.timeout)
        return 0;
    const int doublings = std::min(callNumber / kPausesOfOneLength, 10);
    std::this_thread::sleep_for(std::min(kFirstPause * (1 << doublings), kLongestPause));
    return 1;
}

void SQLiteDatabase::execute(const char* sql)
{
    const int code = sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        failOn(m_database.get(), code);
}

std::optional<std::int64_t> SQLiteDatabase::integer(std::string_view sql) const
{
    auto statement = prepare(sql);
    if (!statement.step() || statement.isNull(0))
        return std::nullopt;
    return statement.integer(0);
}

void SQLiteDatabase::requireTable(const char* name) const
{
    const int code = sqlite3_table_column_metadata(m_database.get(), "main", name, nullptr, nullptr, nullptr,
                                                   nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        failOn(m_database.get(), code);
}

void SQLiteDatabase::syncLog() const
{
    sqlite3_file* log = nullptr;
    int code = sqlite3_file_control(m_database.get(), "main", SQLITE_FCNTL_JOURNAL_POINTER, &log);
    if (code == SQLITE_OK && log && log->pMethods)
        code = log->pMethods->xSync(log, SQLITE_SYNC_NORMAL | SQLITE_SYNC_DATAONLY);
    if (code != SQLITE_OK)
        throw SQLiteError(code & kPrimaryCodeMask, sqlite3_errstr(code));
}

bool SQLiteDatabase::isReadOnly() const
{
    return sqlite3_db_readonly(m_database.get(), "main") != 0;
}

bool SQLiteDatabase::isInTransaction() const
{
    return sqlite3_get_autocommit(m_database.get()) == 0;
}

std::int64_t SQLiteDatabase::lastInsertedRow() const
{
    return sqlite3_last_insert_rowid(m_database.get());
}
