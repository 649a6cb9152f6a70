#include "platform/word/WordDocumentReader.h"
#include "tests/support/WordPackageBytes.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

constexpr char kPackage = 'p';

/// The part that the bytes are tried as: mutations of packed bytes rarely get past their packing.
std::string packageAround(char kind, std::string_view xml)
{
    WordPackageBytes document;
    const std::string bytes(xml);
    document.parts = {{"i", "image", "image.png", "bytes"}, {"l", "hyperlink", "http://x", {}, true}};
    document.body = "<w:p><w:pPr><w:pStyle w:val='S'/><w:numPr><w:numId w:val='1'/></w:numPr></w:pPr>"
        + wordRun("text", "<w:rStyle w:val='C'/>") + "<w:r><w:footnoteReference w:id='1'/></w:r></w:p>";
    if (kind == 's')
        document.parts.push_back({"s", "styles", "styles.xml", bytes});
    else if (kind == 'n')
        document.parts.push_back({"n", "numbering", "numbering.xml", bytes});
    else if (kind == 'f')
        document.parts.push_back({"f", "footnotes", "footnotes.xml", bytes});
    else if (kind == 't')
        document.parts.push_back({"t", "theme", "theme.xml", bytes});
    else
        document.body = bytes;
    return document.file();
}

} // namespace

// The first byte says which part the rest is, or that it is a whole package.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string_view rest(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto kind = static_cast<char>(data[0]);
    const auto bytes = kind == kPackage ? std::string(rest) : packageAround(kind, rest);
    ContentSource source;
    source.bytes = bytes;
    ContentSink sink(ContentLimits{});
    WordDocument document;
    const auto result = readWordDocument(source, sink, document);
    if (result.status != ContentStatus::Read)
        return 0;
    // Of every paragraph all has one style, as it should be in any text.
    NSMutableAttributedString fixed(document.text);
    fixed.fixAttributesInRange({0, fixed.length()});
    if (!(fixed == document.text))
        std::abort();
    return 0;
}
