#pragma once

#include "service/CVLIndexingProtocol.h"
#include "service/IndexingEnvironment.h"

#include <optional>

/// Renames the document of `fileURL` when `toFileURL` is in the same folder, else moves it to that folder. A
/// change of folder and name at once is a move alone: the document keeps its old name there. The reply is
/// called before the index is closed; its "Error" is IndexNotOpened or MoveFailed.
/// @throws SKIndexException when the index cannot go on; the reply was not called then.
void moveDocument(const std::optional<NSURL>& fileURL, const std::optional<NSURL>& toFileURL,
                  const std::optional<NSURL>& indexFileURL, const IndexingEnvironment& environment,
                  const ReplyBlock& reply);
