#include "platform/media/OpenDocumentReader.h"

#include "platform/media/DocumentProperties.h"
#include "platform/media/OfficePackage.h"
#include "platform/media/OpenDocumentHandler.h"
#include "platform/media/XMLHandlerPair.h"
#include "platform/media/ZipContainer.h"

#include <string_view>

namespace {

/// Looks through the list of members for encrypted ones.
class ManifestHandler final : public XMLHandler {
public:
    void startElement(std::string_view localName, const XMLAttributes&) override
    {
        isEncrypted = isEncrypted || localName == "encryption-data";
    }

    bool isEncrypted = false;
};

ReadResult readFlatDocument(const ContentSource& source, ContentSink& sink)
{
    OpenDocumentHandler text(OpenDocumentHandler::Extent::Everything, sink);
    DocumentProperties properties(sink);
    XMLHandlerPair handler(text, properties);
    const auto status = readXMLSource(source, handler, sink);
    if (!status)
        return {ContentStatus::Unreadable, "the file cannot be read"};
    return resultOfMainPart(*status);
}

ReadResult readPackedDocument(ZipContainer& container, ContentSink& sink)
{
    ManifestHandler manifest;
    DocumentProperties properties(sink);
    // Only the body decides whether the document is damaged: it reads without manifest, description and
    // styles.
    (void)readXMLMember(container, "META-INF/manifest.xml", manifest, sink);
    if (manifest.isEncrypted)
        return {ContentStatus::Locked, "the document is encrypted"};
    (void)readXMLMember(container, "meta.xml", properties, sink);
    OpenDocumentHandler body(OpenDocumentHandler::Extent::Everything, sink);
    const auto status = readXMLMember(container, "content.xml", body, sink);
    sink.breakLine();
    OpenDocumentHandler headers(OpenDocumentHandler::Extent::HeadersAndFooters, sink);
    (void)readXMLMember(container, "styles.xml", headers, sink);
    return resultOfMainPart(status);
}

bool beginsAsXML(const ContentSource& source)
{
    std::string start;
    constexpr std::size_t kProbeByteCount = 64;
    if (!readSourceBytes(source, kProbeByteCount, start))
        return false;
    const auto first = start.find_first_not_of(" \t\r\n\xEF\xBB\xBF\xFE\xFF");
    return first != std::string::npos && start[first] == '<';
}

} // namespace

ReadResult readOpenDocument(const ContentSource& source, ContentSink& sink)
{
    if (beginsAsXML(source))
        return readFlatDocument(source, sink);
    ReadResult failure;
    auto container = ZipContainer::open(source, sink, failure);
    if (!container)
        return failure;
    return readPackedDocument(*container, sink);
}
