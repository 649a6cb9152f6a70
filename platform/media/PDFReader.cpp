#include "platform/media/PDFReader.h"

#include "platform/media/PDFDocument.h"

#include <array>
#include <memory>
#include <string_view>

namespace {

struct Attribute {
    std::string_view key;
    std::string_view fieldName;
};

constexpr auto kAttributes = std::to_array<Attribute>({
    {"Title", "title"},
    {"Author", "author"},
    {"Subject", "subject"},
    {"Keywords", "keywords"},
});

void readAttributes(const PDFDocument& document, ContentSink& sink)
{
    for (const auto& attribute : kAttributes)
        sink.addField(attribute.fieldName, document.documentAttribute(attribute.key));
}

void readPages(const PDFDocument& document, ContentSink& sink)
{
    const auto count = document.pageCount();
    for (std::size_t index = 0; index < count && !sink.isFull(); ++index) {
        const auto page = document.pageAtIndex(index);
        if (page && !sink.append(page->string()))
            break;
        sink.breakLine();
    }
    if (const auto note = document.cutNote(); !note.empty())
        sink.noteCut(note);
}

} // namespace

ReadResult readPDF(const ContentSource& source, ContentSink& sink)
{
    const auto document = source.isFile() ? PDFDocument::initWithFileDescriptor(source.fileDescriptor)
                                          : PDFDocument::initWithData(source.bytes);
    if (!document)
        return {ContentStatus::Damaged, "not a PDF document"};
    if (document->isLocked())
        return {ContentStatus::Locked, "the PDF document needs a password"};
    readAttributes(*document, sink);
    readPages(*document, sink);
    return {};
}
