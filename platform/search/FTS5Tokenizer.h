#pragma once

struct sqlite3;

/// The name under which the tokenizer is known to FTS5.
inline constexpr const char* kFTS5TokenizerName = "corvel";

/// Makes `Tokenizer` available to FTS5 on one connection. @return an SQLite result code.
[[nodiscard]] int registerFTS5Tokenizer(sqlite3* database);
