#include "platform/media/WordprocessingReader.h"

#include "platform/media/DocumentProperties.h"
#include "platform/media/OfficeTextHandler.h"
#include "platform/media/XMLHandlerPair.h"
#include "platform/types/UTType.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>

namespace {

constexpr std::array<std::string_view, 7> kTextParts{"header",   "footer",      "footnotes", "endnotes",
                                                     "comments", "diagramData", "chart"};

void readInsertedDocument(OfficePackage& package, const std::string& part, ContentSink& sink)
{
    const auto dot = part.rfind('.');
    const auto type
        = dot == std::string::npos ? std::nullopt : UTType::typeWithFilenameExtension(part.substr(dot + 1));
    const auto bytes = package.bytesOf(part, sink.limits().wholeFileBytes);
    if (!type || !bytes)
        return;
    ContentSource inserted;
    inserted.bytes = *bytes;
    inserted.typeIdentifier = type->identifier();
    inserted.name = part;
    const auto depth = sink.containerDepth();
    sink.setContainerDepth(depth + 1);
    (void)readContentInto(inserted, sink); // Its failure is no failure of the document around it.
    sink.setContainerDepth(depth);
    sink.breakLine();
}

} // namespace

void readFurtherPart(OfficePackage& package, const OfficePackage::Relationship& relationship,
                     ContentSink& sink)
{
    sink.breakLine();
    if (relationship.kind == "aFChunk") {
        readInsertedDocument(package, relationship.target, sink);
        return;
    }
    OfficeTextHandler handler(sink);
    (void)package.readPart(relationship.target, handler); // What could be read is text of the document.
}

ReadResult readWordprocessingDocument(OfficePackage& package, std::string_view mainPart, ContentSink& sink)
{
    OfficeTextHandler body(sink);
    const auto status = package.readPart(mainPart, body);
    std::set<std::string> readParts;
    for (const auto& relationship : package.relationshipsOf(mainPart)) {
        const bool holdsText
            = std::find(kTextParts.begin(), kTextParts.end(), relationship.kind) != kTextParts.end();
        if (sink.isFull())
            break;
        if ((holdsText || relationship.kind == "aFChunk") && readParts.insert(relationship.target).second)
            readFurtherPart(package, relationship, sink);
    }
    return resultOfMainPart(status);
}

ReadResult readFlatWordprocessingDocument(const ContentSource& source, ContentSink& sink)
{
    OfficeTextHandler text(sink);
    DocumentProperties properties(sink);
    XMLHandlerPair handler(text, properties);
    const auto status = readXMLSource(source, handler, sink);
    if (!status)
        return {ContentStatus::Unreadable, "the file cannot be read"};
    return resultOfMainPart(*status);
}
