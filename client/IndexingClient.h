#pragma once

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Per attachment file name, what the host knows of it; the service reads the key "TextRecognitionString".
using AttachmentsInfo = std::map<std::string, std::map<std::string, std::string>>;

/// What a request was answered with. Without an error it was carried out, and survives a power cut.
struct IndexingReply {
    /// Only in the answer to an index request.
    std::optional<std::string> itemIdentifier;
    /// Of domain "CVLIndexingError".
    std::optional<NSError> error;
};

struct IndexingClientOptions {
    /// The socket to connect to; empty means $XDG_RUNTIME_DIR/corvel/indexing.sock, with the service started
    /// on demand when nothing listens there. A socket that is named is never started for.
    std::string socketPath;
    /// The service's program; empty means `corvel-indexing` beside the calling program, else on the search
    /// path.
    std::string servicePath;
};

/// One connection to the indexing service with its four requests as typed calls. Calls wait for their answer
/// and belong to one thread at a time; open one client for each thread. An index may be kept open for reading
/// meanwhile, which also makes the service's commits cheaper.
class IndexingClient {
public:
    /// Connects; null with the reason in `error` when no service can be reached.
    [[nodiscard]] static std::unique_ptr<IndexingClient> connect(const IndexingClientOptions& options = {},
                                                                 NSError* error = nullptr);

    IndexingClient(const IndexingClient&) = delete;
    IndexingClient& operator=(const IndexingClient&) = delete;
    ~IndexingClient();

    /// Hands over a user-chosen folder as bookmark data (see NSURLBookmark.h). There is no answer; false when
    /// it could not be sent.
    [[nodiscard]] bool setCustomFolderBookmarkData(std::string_view bookmarkData, NSError* error = nullptr);

    /// The calls below give none, with the reason in `error`, when the service did not answer: it is unknown
    /// then whether the request was carried out, and the client is of no further use.
    [[nodiscard]] std::optional<IndexingReply>
    indexItemWithIdentifier(std::string_view identifier, std::string_view textRecognitionData,
                            const NSURL& fileURL, const AttachmentsInfo& attachmentsInfo,
                            const NSURL& indexFileURL, NSError* error = nullptr);
    [[nodiscard]] std::optional<IndexingReply> moveFileURL(const NSURL& fileURL, const NSURL& toFileURL,
                                                           const NSURL& indexFileURL,
                                                           NSError* error = nullptr);
    [[nodiscard]] std::optional<IndexingReply> removeFileURLs(const std::vector<std::string>& fileURLs,
                                                              const NSURL& indexFileURL,
                                                              NSError* error = nullptr);

private:
    class Connection;
    explicit IndexingClient(std::unique_ptr<Connection> connection);

    std::unique_ptr<Connection> m_connection;
};
