// Any bytes are a document of a package, or are refused. What is read can be written, and what is written is
// read as the same text from then on.

#include "platform/rtf/NSAttributedStringRTF.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

namespace Formats = NSAttributedStringDocumentFormats;

NSAttributedString again(const NSAttributedString& text)
{
    const auto package = Formats::RTFDFileWrapperFromRange(text, {0, text.length()});
    auto read = package ? Formats::initWithRTFDFileWrapper(*package) : std::nullopt;
    if (!read)
        std::abort();
    return std::move(*read);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto package = NSFileWrapper::initDirectoryWithFileWrappers({});
    package->addRegularFileWithContents({std::string(data, data + size)}, u"TXT.rtf");
    package->addRegularFileWithContents({"PNG"}, u"a.png");
    NSAny::Dictionary attributes;
    const auto text = Formats::initWithRTFDFileWrapper(*package, &attributes);
    if (!text)
        return 0;
    if (text->length() > size)
        std::abort();
    const auto once = again(*text);
    if (again(once).string() != once.string())
        std::abort();
    return 0;
}
