#pragma once

#include "cli/IndexReport.h"
#include "cli/ItemWalk.h"
#include "client/IndexingClient.h"
#include "platform/foundation/NSURL.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// Whether items that the index holds as they are on disk are sent again.
enum class UnchangedItems { Skip, Send };

/// What a user says about one item instead of what would be found out.
struct ItemDetails {
    std::optional<std::string> identifier;
    std::optional<std::string> recognizedText;
    std::optional<AttachmentsInfo> attachmentsInfo;

    [[nodiscard]] bool isEmpty() const { return !identifier && !recognizedText && !attachmentsInfo; }
};

struct IndexRunOptions {
    NSURL indexURL = NSURL::fileURLWithPath("/");
    UnchangedItems unchangedItems = UnchangedItems::Skip;
    ItemDetails details;
    ItemWalkOptions walk;
};

/// Sends every item at and below `paths` to the service, one at a time over each of `clients`, each of which
/// has a thread of its own while the run lasts. The outcome of every item goes to `report`. When the service
/// goes away, what remains is reported as not sent; the run always ends.
void runIndexing(const std::vector<std::string>& paths, const IndexRunOptions& options,
                 std::vector<std::unique_ptr<IndexingClient>> clients, IndexReport& report);
