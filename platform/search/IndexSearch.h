#pragma once

#include "platform/search/DocumentTree.h"
#include "platform/search/SKIndex.h"
#include "platform/search/SQLiteDatabase.h"

#include <string_view>
#include <vector>

/// SKIndex::search over the embedded index.
[[nodiscard]] bool searchIndex(const SQLiteDatabase& database, DocumentTree& tree, std::string_view query,
                               const SKSearchOptions& options, std::vector<SKSearchHit>& hits,
                               NSError* error);
