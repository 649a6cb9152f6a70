#include "platform/search/IndexFile.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/search/FTS5Tokenizer.h"
#include "platform/search/IndexHeader.h"
#include "platform/search/SearchableName.h"
#include "platform/search/StoredText.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

using IndexFile::Error;

constexpr mode_t kFileMode = 0600;

// detail=full keeps positions for phrases; the text itself stays outside, packed, in document.text.
constexpr const char* kSchema = R"sql(
CREATE TABLE node(
    id INTEGER PRIMARY KEY,
    parent INTEGER NOT NULL,
    name TEXT NOT NULL,
    document INTEGER,
    UNIQUE(parent, name));
CREATE TABLE document(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    node INTEGER NOT NULL,
    modified INTEGER,
    size INTEGER,
    text BLOB NOT NULL);
CREATE VIEW searchable AS
    SELECT document.id AS id, corvel_name(node.name) AS name, corvel_text(document.text) AS text
    FROM document JOIN node ON node.id = document.node;
CREATE VIRTUAL TABLE fulltext USING fts5(
    name, text, content='searchable', content_rowid='id', tokenize='corvel');
INSERT INTO fulltext(fulltext, rank) VALUES('automerge', 8);
INSERT INTO fulltext(fulltext, rank) VALUES('rank', 'bm25(4.0, 1.0)');
)sql";

// Every connection: removed content is overwritten. A commit leaves the syncing to EmbeddedIndex::flush,
// which does it when the next writer may already go on.
constexpr const char* kConnectionSettings = R"sql(
PRAGMA synchronous = NORMAL;
PRAGMA secure_delete = ON;
PRAGMA cell_size_check = ON;
)sql";

extern "C" void nameFunction(sqlite3_context* context, int /*count*/, sqlite3_value** arguments)
{
    try {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(arguments[0]));
        const auto length = static_cast<std::size_t>(sqlite3_value_bytes(arguments[0]));
        const auto name = bytes ? searchableName({bytes, length}) : std::string();
        sqlite3_result_text64(context, name.data(), name.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    } catch (const std::exception&) {
        sqlite3_result_error_nomem(context);
    }
}

extern "C" void textFunction(sqlite3_context* context, int /*count*/, sqlite3_value** arguments)
{
    try {
        const auto* bytes = static_cast<const char*>(sqlite3_value_blob(arguments[0]));
        const auto length = static_cast<std::size_t>(sqlite3_value_bytes(arguments[0]));
        const auto text = StoredText::unpack({bytes, bytes ? length : 0});
        if (!text)
            sqlite3_result_error_code(context, SQLITE_CORRUPT);
        else
            sqlite3_result_text64(context, text->data(), text->size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    } catch (const std::exception&) {
        sqlite3_result_error_nomem(context);
    }
}

void addFunction(sqlite3* database, const char* name,
                 void (*function)(sqlite3_context*, int, sqlite3_value**))
{
    constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    const int code
        = sqlite3_create_function_v2(database, name, 1, kFlags, nullptr, function, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        throw SQLiteError(code, sqlite3_errmsg(database));
}

void prepareConnection(SQLiteDatabase& database)
{
    (void)sqlite3_db_config(database.handle(), SQLITE_DBCONFIG_DEFENSIVE, 1,
                            nullptr); // Cannot fail on an open one.
    (void)sqlite3_db_config(database.handle(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    addFunction(database.handle(), "corvel_name", nameFunction);
    addFunction(database.handle(), "corvel_text", textFunction);
    const int code = registerFTS5Tokenizer(database.handle());
    if (code != SQLITE_OK)
        throw SQLiteError(code, "the tokenizer cannot be registered");
    database.execute(kConnectionSettings);
}

std::string reasonOf(int code)
{
    return std::generic_category().message(code);
}

bool checkHeader(const std::string& path, NSError* error)
{
    IndexHeader header;
    const auto result = IndexHeader::read(path, header);
    if (result == IndexHeader::Result::Unreadable) {
        setError(error, IndexFile::error(Error::CannotOpen, fmt::format("{}: {}", path, reasonOf(errno))));
        return false;
    }
    if (result == IndexHeader::Result::Foreign || header.applicationID != IndexFile::kApplicationID) {
        setError(error, IndexFile::error(Error::NotAnIndex, path + ": this is not an index"));
        return false;
    }
    if (header.userVersion > IndexFile::kFormatVersion) {
        setError(error,
                 IndexFile::error(Error::NewerFormat,
                                  fmt::format("{}: its format {} is newer than {}, the newest known", path,
                                              header.userVersion, IndexFile::kFormatVersion)));
        return false;
    }
    return true;
}

bool hasWriteAheadLog(const std::string& path)
{
    struct stat status { };

    return ::stat((path + "-wal").c_str(), &status) == 0 && status.st_size > 0;
}

std::unique_ptr<SQLiteDatabase> connect(const std::string& path, SQLiteOpen mode,
                                        std::chrono::milliseconds timeout)
{
    auto database = std::make_unique<SQLiteDatabase>(path, mode, timeout);
    prepareConnection(*database);
    // The first question to the file: fails here if it is damaged, and not in the middle of a request.
    for (const char* table : {"node", "document", "fulltext"})
        database->requireTable(table);
    return database;
}

std::unique_ptr<SQLiteDatabase> openForReading(const std::string& path, std::chrono::milliseconds timeout)
{
    // A reader that may write checkpoints the log when it is the last to close; it never changes the content.
    try {
        const bool mayWrite = ::access(path.c_str(), W_OK) == 0;
        auto database = connect(path, mayWrite ? SQLiteOpen::ReadWrite : SQLiteOpen::ReadOnly, timeout);
        database->execute("PRAGMA query_only = ON");
        return database;
    } catch (const SQLiteError& error) {
        // Without a place for its locks SQLite reads only a file that nobody can be writing.
        const bool noPlaceForLocks = error.code() == SQLITE_CANTOPEN || error.code() == SQLITE_READONLY;
        if (!noPlaceForLocks || hasWriteAheadLog(path))
            throw;
        return connect(path, SQLiteOpen::Immutable, timeout);
    }
}

std::unique_ptr<SQLiteDatabase> openForWriting(const std::string& path, std::chrono::milliseconds timeout)
{
    auto database = connect(path, SQLiteOpen::ReadWrite, timeout);
    if (database->isReadOnly())
        throw SQLiteError(SQLITE_READONLY, "it may only be read");
    return database;
}

void fillNewFile(const std::string& path)
{
    SQLiteDatabase database(path, SQLiteOpen::Create, IndexFile::kDefaultBusyTimeout);
    prepareConnection(database);
    database.execute("PRAGMA journal_mode = WAL");
    database.execute(fmt::format("BEGIN; PRAGMA application_id = {}; PRAGMA user_version = {};",
                                 IndexFile::kApplicationID, IndexFile::kFormatVersion)
                         .c_str());
    database.execute(kSchema);
    database.execute("COMMIT");
}

bool failToCreate(NSError* error, const std::string& path, const std::string& reason)
{
    setError(error, IndexFile::error(Error::CannotCreate, fmt::format("{}: {}", path, reason)));
    return false;
}

void removeWithCompanions(const std::string& path)
{
    for (const auto* suffix : {"", "-wal", "-shm", "-journal"})
        (void)::unlink((path + suffix).c_str()); // Most of them were never made.
}

// Gives the file its name, never over another file; errno tells why not. Some file systems know only one of
// the ways.
bool putInPlace(const std::string& scratch, const std::string& path)
{
    if (::renameat2(AT_FDCWD, scratch.c_str(), AT_FDCWD, path.c_str(), RENAME_NOREPLACE) != 0
        && (errno != EINVAL || ::link(scratch.c_str(), path.c_str()) != 0))
        return false;
    const auto slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    const FileDescriptor directory(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    (void)::fsync(
        directory.get()); // The index is there; only a power cut right now could take the empty file back.
    return true;
}

} // namespace

NSError IndexFile::error(Error code, const std::string& description)
{
    return {kErrorDomain, static_cast<int>(code), {{std::string(NSLocalizedDescriptionKey), description}}};
}

bool IndexFile::create(const std::string& path, NSError* error)
{
    struct stat status { };

    if (path.empty() || ::lstat(path.c_str(), &status) == 0)
        return failToCreate(error, path, reasonOf(path.empty() ? EINVAL : EEXIST));
    // Made beside its place and put there when whole, unless somebody else was faster.
    std::string scratch = path + ".XXXXXX";
    const FileDescriptor file(::mkostemp(scratch.data(), O_CLOEXEC));
    if (!file.isValid() || ::fchmod(file.get(), kFileMode) != 0)
        return failToCreate(error, path, reasonOf(errno));
    try {
        fillNewFile(scratch);
    } catch (const SQLiteError& failure) {
        removeWithCompanions(scratch);
        return failToCreate(error, path, failure.what());
    }
    const bool placed = putInPlace(scratch, path);
    const int code = errno;
    removeWithCompanions(scratch);
    return placed || failToCreate(error, path, reasonOf(code));
}

std::unique_ptr<SQLiteDatabase> IndexFile::open(const std::string& path, SKIndexAccess access,
                                                std::chrono::milliseconds busyTimeout, NSError* error)
{
    if (!checkHeader(path, error))
        return nullptr;
    try {
        return access == SKIndexAccess::Write ? openForWriting(path, busyTimeout)
                                              : openForReading(path, busyTimeout);
    } catch (const SQLiteError& failure) {
        const bool damaged = failure.code() == SQLITE_CORRUPT || failure.code() == SQLITE_NOTADB
            || failure.code() == SQLITE_ERROR;
        setError(error,
                 IndexFile::error(damaged ? Error::Damaged : Error::CannotOpen,
                                  fmt::format("{}: {}", path, failure.what())));
        return nullptr;
    }
}
