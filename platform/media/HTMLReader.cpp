#include "platform/media/HTMLReader.h"

#include "platform/foundation/TextEncoding.h"
#include "platform/html/HTMLText.h"

#include <string>
#include <string_view>

ReadResult readHTML(const ContentSource& source, ContentSink& sink)
{
    const auto byteLimit = sink.limits().wholeFileBytes;
    std::string read;
    if (source.isFile() && !readSourceBytes(source, byteLimit, read))
        return {ContentStatus::Unreadable, "the file cannot be read"};
    const auto bytes = source.isFile() ? std::string_view(read) : source.bytes.substr(0, byteLimit);
    const bool isWhole = bytes.size() < byteLimit;
    if (!isWhole)
        sink.noteCut("the page was cut at the size limit of files");
    const auto encoding = textEncodingForBytes(bytes, isWhole);
    const auto title = renderHTMLText(bytes, encoding.name,
                                      [&sink](std::string_view piece) { return sink.append(piece); });
    sink.addField("title", title);
    return {};
}
