#pragma once

#include "platform/foundation/NSObject.h"
#include "service/CVLIndexingProtocol.h"
#include "service/IndexingEnvironment.h"

#include <atomic>
#include <memory>
#include <optional>

/// The object that a connection exports: carries each request out on the thread that delivers it. Every index
/// is opened and closed within one request; the only state is the custom folder.
class Corvel_Indexing final : public NSObject, public CVLIndexingProtocol {
public:
    /// Loads the extractors, for every object anew.
    explicit Corvel_Indexing(IndexingEnvironment environment = {});

    /// The folder that the host handed over last; none when its bookmark could not be resolved. May be asked
    /// from any thread.
    [[nodiscard]] std::optional<NSURL> customFolderURL() const;

    void setCustomFolderBookmarkData(std::string_view bookmarkData) override;
    void indexItemWithIdentifier(std::string_view identifier, std::string_view textRecognitionData,
                                 const std::optional<NSURL>& fileURL, const AttachmentsInfo& attachmentsInfo,
                                 const std::optional<NSURL>& indexFileURL,
                                 const ReplyBlock& withReply) override;
    void moveFileURL(const std::optional<NSURL>& fileURL, const std::optional<NSURL>& toFileURL,
                     const std::optional<NSURL>& indexFileURL, const ReplyBlock& withReply) override;
    void removeFileURLs(const std::vector<std::string_view>& fileURLs,
                        const std::optional<NSURL>& indexFileURL, const ReplyBlock& withReply) override;

private:
    IndexingEnvironment m_environment;
    std::atomic<std::shared_ptr<const NSURL>> m_customFolderURL;
};
