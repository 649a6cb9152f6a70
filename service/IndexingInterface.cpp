#include "service/IndexingInterface.h"

#include "service/CVLIndexingProtocol.h"

namespace {

constexpr const char* kInterfaceName = "com.tessel.corvel.CVLIndexingProtocol";
constexpr const char* kObjectPath = "/com/tessel/corvel/Indexing";

CVLIndexingProtocol& protocolOf(NSObject& object)
{
    return dynamic_cast<CVLIndexingProtocol&>(object);
}

void setCustomFolderBookmarkData(NSObject& object, NSXPCDecoder& arguments, const NSXPCReply& /*reply*/)
{
    const auto data = arguments.decodeData();
    if (arguments.isGood())
        protocolOf(object).setCustomFolderBookmarkData(data);
}

void indexItemWithIdentifier(NSObject& object, NSXPCDecoder& arguments, const NSXPCReply& reply)
{
    const auto identifier = arguments.decodeString();
    const auto textRecognitionData = arguments.decodeData();
    const auto fileURL = NSURL::URLWithString(arguments.decodeString());
    const auto attachmentsInfo = arguments.decodeStringDictionaries();
    const auto indexFileURL = NSURL::URLWithString(arguments.decodeString());
    if (arguments.isGood())
        protocolOf(object).indexItemWithIdentifier(identifier, textRecognitionData, fileURL, attachmentsInfo,
                                                   indexFileURL, reply);
}

void moveFileURL(NSObject& object, NSXPCDecoder& arguments, const NSXPCReply& reply)
{
    const auto fileURL = NSURL::URLWithString(arguments.decodeString());
    const auto toFileURL = NSURL::URLWithString(arguments.decodeString());
    const auto indexFileURL = NSURL::URLWithString(arguments.decodeString());
    if (arguments.isGood())
        protocolOf(object).moveFileURL(fileURL, toFileURL, indexFileURL, reply);
}

void removeFileURLs(NSObject& object, NSXPCDecoder& arguments, const NSXPCReply& reply)
{
    const auto fileURLs = arguments.decodeStrings();
    const auto indexFileURL = NSURL::URLWithString(arguments.decodeString());
    if (arguments.isGood())
        protocolOf(object).removeFileURLs(fileURLs, indexFileURL, reply);
}

} // namespace

NSXPCInterface indexingInterface()
{
    static const auto interface = NSXPCInterface::interfaceWithProtocol(
        kInterfaceName, kObjectPath,
        {
            {"setCustomFolderBookmarkData", "ay", {"bookmarkData"}, false, &setCustomFolderBookmarkData},
            {"indexItemWithIdentifier",
             "saysa{sa{sv}}s",
             {"identifier", "textRecognitionData", "fileURL", "attachmentsInfo", "indexFileURL"},
             true,
             &indexItemWithIdentifier},
            {"moveFileURL", "sss", {"fileURL", "toFileURL", "indexFileURL"}, true, &moveFileURL},
            {"removeFileURLs", "ass", {"fileURLs", "indexFileURL"}, true, &removeFileURLs},
        });
    return interface;
}
