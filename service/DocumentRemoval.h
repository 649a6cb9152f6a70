#pragma once

#include "service/CVLIndexingProtocol.h"
#include "service/IndexingEnvironment.h"

#include <optional>
#include <string_view>
#include <vector>

/// Removes the documents of `fileURLs` with all beneath them, and compacts the index when its identifiers
/// have run far ahead of its documents. What is no URL or not in the index is skipped. The reply is called
/// once the index is closed; its only "Error" is IndexNotOpened.
/// @throws SKIndexException when the removal cannot be made durable; the reply was not called then.
void removeDocuments(const std::vector<std::string_view>& fileURLs, const std::optional<NSURL>& indexFileURL,
                     const IndexingEnvironment& environment, const ReplyBlock& reply);
