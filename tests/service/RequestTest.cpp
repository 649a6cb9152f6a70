#include "tests/service/RequestTest.h"

RequestTest::RequestTest()
    : environment(recordingEnvironment(record))
    , indexURL(folder.url("library.index"))
    , m_capture([this](std::string_view line) { log.emplace_back(line); })
{
    record->prefix = NSURL::fileURLWithPath(folder.path().native()).absoluteString() + "/";
}

void RequestTest::indexItem(const std::string& name, const AttachmentsInfo& attachmentsInfo,
                            std::string_view textRecognitionData)
{
    Corvel_Indexing service(environment);
    service.indexItemWithIdentifier("id", textRecognitionData, folder.url(name), attachmentsInfo, indexURL,
                                    replyBlock());
}

ReplyBlock RequestTest::replyBlock()
{
    return [this](const ReplyDictionary& reply) {
        record->note("reply");
        replies.push_back(reply);
    };
}

int RequestTest::errorCode() const
{
    if (replies.size() != 1)
        return -1;
    const auto found = replies.front().find("Error");
    if (found == replies.front().end())
        return 0;
    const auto& error = std::get<std::shared_ptr<const NSError>>(found->second);
    return error->domain() == "CVLIndexingError" ? error->code() : -2;
}

std::string RequestTest::identifierInReply() const
{
    const auto found = replies.at(0).find("ItemIdentifier");
    return found == replies.at(0).end() ? "" : std::get<std::string>(found->second);
}

const std::map<std::string, NSErrorValue>& RequestTest::errorUserInfo() const
{
    return std::get<std::shared_ptr<const NSError>>(replies.at(0).at("Error"))->userInfo();
}
