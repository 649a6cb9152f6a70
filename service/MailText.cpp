#include "service/MailText.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/NSLog.h"
#include "platform/media/ContentLimits.h"
#include "platform/media/MCOMessageParser.h"
#include "service/JoinedLines.h"

#include <cerrno>
#include <vector>

std::optional<std::string> readMailMessage(const NSURL& url, NSError* error)
{
    const auto file = FileDescriptor::openForReading(url.path());
    constexpr std::size_t kMostBytes = ContentLimits().wholeFileBytes;
    auto bytes = file.isValid() ? readFile(file.get(), kMostBytes + 1) : std::nullopt;
    if (!bytes) {
        setError(error, NSError::errorWithErrno(errno, url.path()));
    } else if (bytes->size() > kMostBytes) {
        bytes->resize(kMostBytes);
        NSLog("The message {} was cut at {} bytes", url.path(), kMostBytes);
    }
    return bytes;
}

std::optional<std::string> textOfMailMessage(const NSURL& url, NSError* error)
{
    const auto bytes = readMailMessage(url, error);
    if (!bytes)
        return std::nullopt;
    const MCOMessageParser parser(*bytes);
    const auto& header = parser.header();
    std::vector<std::string> pieces;
    if (header.from)
        pieces.push_back(header.from->nonEncodedRFC822String());
    // A message may have several senders; all of them are whom it is from.
    for (const auto* addresses : {&header.furtherFrom, &header.to, &header.cc, &header.bcc}) {
        for (const auto& address : *addresses)
            pieces.push_back(address.nonEncodedRFC822String());
    }
    if (header.subject)
        pieces.push_back(*header.subject);
    pieces.push_back(parser.plainTextBodyRenderingAndStripWhitespace(true));
    return joinedLines(pieces);
}
