#pragma once

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Per attachment file name, what the host knows of it.
using AttachmentsInfo = std::map<std::string, std::map<std::string, std::string>>;

/// The answer to a request: "ItemIdentifier" for an index request, "Error" when it failed.
using ReplyDictionary = std::map<std::string, NSErrorValue>;
using ReplyBlock = std::function<void(const ReplyDictionary&)>;

inline constexpr std::string_view kItemIdentifierKey = "ItemIdentifier";
inline constexpr std::string_view kErrorKey = "Error";
/// The one key of an attachment's entry that the service reads: text that the host recognised in the
/// attachment.
inline constexpr std::string_view kTextRecognitionStringKey = "TextRecognitionString";

/// The answer of a request that failed, or, without an identifier, of one that carries none.
[[nodiscard]] inline ReplyDictionary failureReply(NSError error)
{
    return {{std::string(kErrorKey), std::make_shared<const NSError>(std::move(error))}};
}

/// The requests that the host sends. A URL is none where the host sent none or one that cannot be parsed.
/// Views live for the call. Each request that has a reply calls it exactly once, before it returns.
class CVLIndexingProtocol {
public:
    virtual ~CVLIndexingProtocol() = default;

    /// Hands over access to a folder that the user chose.
    virtual void setCustomFolderBookmarkData(std::string_view bookmarkData) = 0;

    /// Puts an item into the index, in place of what the index held for it.
    virtual void
    indexItemWithIdentifier(std::string_view identifier, std::string_view textRecognitionData,
                            const std::optional<NSURL>& fileURL, const AttachmentsInfo& attachmentsInfo,
                            const std::optional<NSURL>& indexFileURL, const ReplyBlock& withReply)
        = 0;

    /// Renames an item within its folder, or moves it to another folder under its old name.
    virtual void moveFileURL(const std::optional<NSURL>& fileURL, const std::optional<NSURL>& toFileURL,
                             const std::optional<NSURL>& indexFileURL, const ReplyBlock& withReply)
        = 0;

    /// Removes items with all beneath them.
    virtual void removeFileURLs(const std::vector<std::string_view>& fileURLs,
                                const std::optional<NSURL>& indexFileURL, const ReplyBlock& withReply)
        = 0;
};
