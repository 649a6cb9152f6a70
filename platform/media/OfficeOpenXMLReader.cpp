#include "platform/media/OfficeOpenXMLReader.h"

#include "platform/media/OfficePackage.h"
#include "platform/media/PresentationReader.h"
#include "platform/media/SpreadsheetReader.h"
#include "platform/media/WordprocessingReader.h"

#include <string>

namespace {

ReadResult readMainPart(OfficePackage& package, const std::string& mainPart, ContentSink& sink)
{
    const auto root = package.rootElementOf(mainPart);
    if (root == "workbook")
        return readWorkbook(package, mainPart, sink);
    if (root == "presentation")
        return readPresentation(package, mainPart, sink);
    return readWordprocessingDocument(package, mainPart, sink);
}

} // namespace

ReadResult readOfficeOpenXML(const ContentSource& source, ContentSink& sink)
{
    ReadResult failure;
    auto package = OfficePackage::open(source, sink, failure);
    if (!package)
        return failure;
    const auto mainPart = package->mainPart();
    if (sink.isFull())
        return {};
    if (mainPart.empty())
        return {ContentStatus::Damaged, "the container holds no document"};
    package->readProperties();
    return readMainPart(*package, mainPart, sink);
}
