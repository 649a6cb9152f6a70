#include "platform/media/ContentReader.h"
#include "platform/media/EPUBReader.h"
#include "platform/media/EmailReader.h"
#include "platform/media/HTMLReader.h"
#include "platform/media/ImageDescriptionReader.h"
#include "platform/media/LegacyWordReader.h"
#include "platform/media/OfficeOpenXMLReader.h"
#include "platform/media/OpenDocumentReader.h"
#include "platform/media/PDFReader.h"
#include "platform/media/PlainTextReader.h"
#include "platform/media/RTFReader.h"
#include "platform/media/XMLReader.h"
#include "platform/types/UTType.h"

#include <array>
#include <string_view>

namespace {

struct Row {
    std::string_view typeIdentifier;
    ContentReader reader;
};

// The first row that a type conforms to has its reader: narrow types stand before the wide ones they belong
// to.
constexpr std::array kReaders{
    Row{"org.openxmlformats.wordprocessingml.document", readOfficeOpenXML},
    Row{"org.openxmlformats.spreadsheetml.sheet", readOfficeOpenXML},
    Row{"org.openxmlformats.presentationml.presentation", readOfficeOpenXML},
    Row{"org.oasis-open.opendocument", readOpenDocument},
    Row{"org.oasis-open.opendocument.flat", readOpenDocument},
    Row{"org.idpf.epub-container", readEPUB},
    Row{"com.microsoft.word.doc", readLegacyWord},
    Row{kUTTypePDF, readPDF},
    Row{kUTTypeRTF, readRTF},
    Row{kUTTypeRTFD, readRTF},
    Row{kUTTypePlainText, readPlainText},
    Row{kUTTypeEmailMessage, readEmail},
    Row{kUTTypeHTML, readHTML},
    Row{"public.xml", readXML},
    Row{kUTTypeText, readPlainText},
    Row{kUTTypeImage, readImageDescription},
};

} // namespace

ContentReader contentReaderForType(std::string_view typeIdentifier)
{
    const auto type = UTType::typeWithIdentifier(typeIdentifier);
    for (const auto& row : kReaders) {
        if (type && type->conformsToType(row.typeIdentifier))
            return row.reader;
    }
    return nullptr;
}
