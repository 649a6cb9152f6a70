#include "platform/media/EmailReader.h"

#include "platform/media/MCOMessageParser.h"
#include "platform/types/UTType.h"

#include <string>

namespace {

void addLine(ContentSink& sink, std::string_view text)
{
    (void)sink.append(text); // A full sink stays as it is; the attachments' loop asks it.
    sink.breakLine();
}

void addHeader(ContentSink& sink, const MCOMessageHeader& header)
{
    if (header.from)
        addLine(sink, header.from->nonEncodedRFC822String());
    for (const auto* addresses : {&header.furtherFrom, &header.to, &header.cc, &header.bcc}) {
        for (const auto& address : *addresses)
            addLine(sink, address.nonEncodedRFC822String());
    }
    if (header.subject)
        addLine(sink, *header.subject);
}

/// The type that says how to read the attachment: the declared one, else what its name says; programs that
/// know no better declare any file a stream of bytes.
std::string typeOfAttachment(const MCOAttachment& attachment)
{
    const auto declared = UTType::typeWithMIMEType(attachment.mimeType());
    if (declared && contentReaderForType(declared->identifier()))
        return declared->identifier();
    const auto& name = attachment.filename();
    const auto dot = name.rfind('.');
    const auto named
        = dot == std::string::npos ? std::nullopt : UTType::typeWithFilenameExtension(name.substr(dot + 1));
    return named ? named->identifier() : std::string(kUTTypeData);
}

void addAttachment(ContentSink& sink, const MCOAttachment& attachment)
{
    addLine(sink, attachment.filename());
    const auto type = typeOfAttachment(attachment);
    if (attachment.isInlineText() || !contentReaderForType(type))
        return;
    const auto data = attachment.data();
    // The message reads well without an attachment that doesn't.
    (void)readContentInto({.bytes = data, .typeIdentifier = type, .name = attachment.filename()}, sink);
    sink.breakLine();
}

} // namespace

ReadResult readEmail(const ContentSource& source, ContentSink& sink)
{
    const auto byteLimit = sink.limits().wholeFileBytes;
    std::string read;
    if (source.isFile() && !readSourceBytes(source, byteLimit, read))
        return {ContentStatus::Unreadable, "the file cannot be read"};
    const auto bytes = source.isFile() ? std::string_view(read) : source.bytes.substr(0, byteLimit);
    if (bytes.size() == byteLimit)
        sink.noteCut("the message was cut at the size limit of files");
    const MCOMessageParser parser(bytes);
    addHeader(sink, parser.header());
    addLine(sink, parser.plainTextBodyRenderingAndStripWhitespace(true));
    const auto depth = sink.containerDepth();
    sink.setContainerDepth(depth + 1);
    for (const auto& attachment : parser.attachments()) {
        if (sink.isFull())
            break;
        addAttachment(sink, attachment);
    }
    sink.setContainerDepth(depth);
    return {};
}
