#pragma once

#include "client/IndexingClient.h"
#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What a host tells the service of an item's attachments when it knows no more of them than their names.
struct ItemAttachments {
    AttachmentsInfo info;
    /// A sentence for each attachment that was left out.
    std::vector<std::string> notes;
};

/// The attachments of the item at `url`: the member files of a note or RTFD package, or the named attachments
/// of an e-mail message; none for any other item. What cannot be read has none: its request tells why. At
/// most 10,000 are listed.
[[nodiscard]] ItemAttachments attachmentsOfItem(const NSURL& url);

/// Reads what a user gives for an item's attachments: a JSON object that holds an object of strings for each
/// attachment's file name, as {"scan.png": {"TextRecognitionString": "invoice"}}.
/// @return none with the reason in `error` for anything else.
[[nodiscard]] std::optional<AttachmentsInfo> attachmentsInfoFromJSON(std::string_view json,
                                                                     NSError* error = nullptr);
