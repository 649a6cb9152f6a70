#pragma once

#include <string>
#include <vector>

/// Everything that is wrong with the index at `path`, a sentence each: SQLite's and FTS5's own integrity
/// checks, and what must hold between the tree, the documents and the full-text table. An index that may only
/// be read is checked without FTS5's part.
[[nodiscard]] std::vector<std::string> findingsOfCheck(const std::string& path);
