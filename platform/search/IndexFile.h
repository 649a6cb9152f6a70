#pragma once

#include "platform/foundation/NSError.h"
#include "platform/search/SKIndex.h"
#include "platform/search/SQLiteDatabase.h"

#include <chrono>
#include <memory>
#include <string>

/// The index as a file: what marks it, how it is made and opened. docs/index-format.md describes what is in
/// it.
namespace IndexFile {

/// "Crvl", in SQLite's header.
inline constexpr std::int64_t kApplicationID = 0x4372766C;
inline constexpr int kFormatVersion = 1;
/// How long one writer waits for another; longer than any one request may take.
inline constexpr std::chrono::milliseconds kDefaultBusyTimeout = std::chrono::minutes(2);

enum class Error : int {
    /// The file is there already, or cannot be made.
    CannotCreate = 1,
    /// The file is not there, or may not be read or (for writing) written.
    CannotOpen = 2,
    NotAnIndex = 3,
    NewerFormat = 4,
    Damaged = 5,
    BadQuery = 6,
};

inline constexpr std::string_view kErrorDomain = "SKIndexErrorDomain";

[[nodiscard]] NSError error(Error code, const std::string& description);

/// Makes an empty index, whole or not at all. @return false with the reason in `error`.
[[nodiscard]] bool create(const std::string& path, NSError* error);

/// A connection that knows the index's tokenizer and functions; null with the reason in `error`. The head of
/// the file is checked before SQLite sees it, so that a foreign file is never touched.
[[nodiscard]] std::unique_ptr<SQLiteDatabase> open(const std::string& path, SKIndexAccess access,
                                                   std::chrono::milliseconds busyTimeout, NSError* error);

} // namespace IndexFile
