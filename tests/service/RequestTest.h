#pragma once

#include "platform/foundation/NSLog.h"
#include "service/CVLIndexingError.h"
#include "service/Corvel_Indexing.h"
#include "tests/service/RecordingIndex.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/// A service object over a recording index and a folder of items. The reply is an event among those of the
/// index.
class RequestTest : public testing::Test {
protected:
    using Events = std::vector<std::string>;

    RequestTest();

    /// Sends an index request for a file of the folder, with "id" as its identifier.
    void indexItem(const std::string& name, const AttachmentsInfo& attachmentsInfo = {},
                   std::string_view textRecognitionData = {});
    [[nodiscard]] ReplyBlock replyBlock();
    /// The reply's "Error", of CVLIndexingErrorDomain; 0 without one.
    [[nodiscard]] int errorCode() const;
    [[nodiscard]] std::string identifierInReply() const;
    [[nodiscard]] const std::map<std::string, NSErrorValue>& errorUserInfo() const;

    TemporaryFolder folder;
    std::shared_ptr<IndexRecord> record = std::make_shared<IndexRecord>();
    IndexingEnvironment environment;
    const std::optional<NSURL> indexURL;
    std::vector<ReplyDictionary> replies;
    std::vector<std::string> log;

private:
    NSLogCapture m_capture;
};
