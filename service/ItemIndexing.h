#pragma once

#include "service/CVLIndexingProtocol.h"
#include "service/IndexingEnvironment.h"

#include <optional>
#include <string_view>

/// One request to index an item; borrowed.
struct ItemIndexingRequest {
    /// Echoed in the reply, never interpreted.
    std::string_view identifier;
    /// Text that the host recognised in the item; if there is any, it is the item's whole text.
    std::string_view textRecognitionData;
    const std::optional<NSURL>& fileURL;
    const AttachmentsInfo& attachmentsInfo;
    const std::optional<NSURL>& indexFileURL;
};

/// Puts the item and its attachments into the index, all or nothing. The reply is called once the index is
/// closed; its "Error" is IndexNotOpened, ItemUnreachable or AddFailed.
void indexItem(const ItemIndexingRequest& request, const IndexingEnvironment& environment,
               const ReplyBlock& reply);
