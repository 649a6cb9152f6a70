#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// The marks that SQLite keeps in a file's first bytes for applications.
struct IndexHeader {
    std::uint32_t applicationID = 0;
    std::uint32_t userVersion = 0;

    enum class Result {
        Read,
        /// No SQLite database.
        Foreign,
        /// Not there, no regular file, or not to be read; errno tells why.
        Unreadable,
    };

    /// Reads the marks without running SQLite's recovery, so that a foreign database is left as it is.
    [[nodiscard]] static Result read(const std::string& path, IndexHeader& header);
};
