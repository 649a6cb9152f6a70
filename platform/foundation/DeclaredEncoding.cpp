#include "platform/foundation/DeclaredEncoding.h"

#include <algorithm>
#include <cctype>

namespace {

constexpr std::size_t kDeclarationReach = 4096;
constexpr std::size_t kCodingLineReach = 512;

std::string lowerCaseHead(std::string_view bytes)
{
    std::string head(bytes.substr(0, kDeclarationReach));
    std::transform(head.begin(), head.end(), head.begin(), [](unsigned char byte) {
        return byte < 0x80 ? static_cast<char>(std::tolower(byte)) : static_cast<char>(byte);
    });
    return head;
}

bool isNameByte(char byte)
{
    return std::isalnum(static_cast<unsigned char>(byte)) != 0 || byte == '-' || byte == '_' || byte == ':'
        || byte == '.';
}

/// The name behind `offset`, over blanks, an equals sign and a quote.
std::string nameAt(std::string_view text, std::size_t offset)
{
    while (offset < text.size() && std::string_view(" \t=\"'").find(text[offset]) != std::string_view::npos)
        ++offset;
    const auto* const end = std::find_if_not(text.begin() + offset, text.end(), isNameByte);
    return std::string(text.begin() + offset, end);
}

std::string nameBehind(std::string_view text, std::string_view keyword)
{
    const auto found = text.find(keyword);
    return found == std::string_view::npos ? std::string() : nameAt(text, found + keyword.size());
}

std::string xmlDeclaration(std::string_view head)
{
    const auto start = head.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos || !head.substr(start).starts_with("<?xml"))
        return {};
    return nameBehind(head.substr(start, head.find("?>", start) - start), "encoding");
}

std::string metaElement(std::string_view head)
{
    for (auto found = head.find("<meta"); found != std::string_view::npos;
         found = head.find("<meta", found + 1)) {
        const auto end = std::min(head.find('>', found), head.size());
        if (auto name = nameBehind(head.substr(found, end - found), "charset"); !name.empty())
            return name;
    }
    return {};
}

// Editors look for it in the first two lines.
std::string codingLine(std::string_view head)
{
    const auto firstEnd = std::min(head.find('\n'), head.size() - 1);
    const auto secondEnd = std::min(head.find('\n', firstEnd + 1), head.size());
    const auto lines = head.substr(0, std::min(secondEnd, kCodingLineReach));
    const auto found = lines.find("coding");
    if (found == std::string_view::npos || found + 6 >= lines.size()
        || (lines[found + 6] != ':' && lines[found + 6] != '='))
        return {};
    return nameAt(lines, found + 7);
}

} // namespace

std::string declaredCharsetName(std::string_view bytes)
{
    if (bytes.empty())
        return {};
    const auto head = lowerCaseHead(bytes);
    if (auto name = xmlDeclaration(head); !name.empty())
        return name;
    if (auto name = metaElement(head); !name.empty())
        return name;
    return codingLine(head);
}
