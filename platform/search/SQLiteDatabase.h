#pragma once

#include "platform/search/SKIndex.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

/// SQLite could not do what was asked; `code` is its primary result code.
class SQLiteError : public SKIndexException {
public:
    SQLiteError(int code, const std::string& message);

    [[nodiscard]] int code() const { return m_code; }

    /// Another connection held its lock for longer than we wait.
    [[nodiscard]] bool isBusy() const;

private:
    int m_code;
};

/// A prepared statement. Bind, then step until false, then reset (which also drops the bindings). Views given
/// by column functions hold until the next step or reset.
class SQLiteStatement {
public:
    SQLiteStatement(sqlite3* database, std::string_view sql);

    SQLiteStatement& bind(int index, std::int64_t value);
    /// The text or bytes must stay until reset.
    SQLiteStatement& bindText(int index, std::string_view value);
    SQLiteStatement& bindBlob(int index, std::string_view value);
    SQLiteStatement& bindNull(int index);

    /// True while there is a row. @throws SQLiteError
    bool step();
    /// For statements without rows: steps once and resets.
    void run();
    void reset();

    [[nodiscard]] bool isNull(int column) const;
    [[nodiscard]] std::int64_t integer(int column) const;
    [[nodiscard]] double real(int column) const;
    [[nodiscard]] std::string_view text(int column) const;
    [[nodiscard]] std::string_view blob(int column) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };

    [[noreturn]] void fail() const;

    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
};

/// Resets a statement at the end of a scope, so that it holds no read lock and no bindings.
class SQLiteReset {
public:
    explicit SQLiteReset(SQLiteStatement& statement)
        : m_statement(statement)
    {
    }

    SQLiteReset(const SQLiteReset&) = delete;
    SQLiteReset& operator=(const SQLiteReset&) = delete;

    ~SQLiteReset() { m_statement.reset(); }

private:
    SQLiteStatement& m_statement;
};

enum class SQLiteOpen {
    ReadWrite,
    ReadOnly,
    /// For a file on a medium where nothing can be written, not even locks.
    Immutable,
    Create,
};

/// One connection; belongs to one thread at a time.
class SQLiteDatabase {
public:
    /// @throws SQLiteError
    SQLiteDatabase(const std::string& path, SQLiteOpen mode, std::chrono::milliseconds busyTimeout);

    [[nodiscard]] sqlite3* handle() const { return m_database.get(); }

    void execute(const char* sql);

    [[nodiscard]] SQLiteStatement prepare(std::string_view sql) const { return {m_database.get(), sql}; }

    /// The first column of the first row; none without a row.
    [[nodiscard]] std::optional<std::int64_t> integer(std::string_view sql) const;
    /// Reads the schema if need be. @throws SQLiteError when it is damaged or has no such table.
    void requireTable(const char* name) const;
    /// Makes everything committed so far durable: returns when the disk has the write-ahead log. @throws
    /// SQLiteError
    void syncLog() const;
    [[nodiscard]] bool isReadOnly() const;
    [[nodiscard]] bool isInTransaction() const;
    [[nodiscard]] std::int64_t lastInsertedRow() const;

private:
    struct Closer {
        void operator()(sqlite3* database) const;
    };

    struct BusyClock {
        std::chrono::milliseconds timeout;
        std::chrono::steady_clock::time_point start;
    };

    static int onBusy(void* context, int callNumber);

    std::unique_ptr<BusyClock> m_busyClock;
    std::unique_ptr<sqlite3, Closer> m_database;
};
