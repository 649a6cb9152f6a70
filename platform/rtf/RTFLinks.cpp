#include "platform/rtf/RTFLinks.h"

#include "platform/foundation/Unicode.h"

#include <algorithm>

namespace {

constexpr std::string_view kLinkWord = "HYPERLINK";

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}

char inUpperCase(char byte)
{
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}

std::string_view withoutBlanksBefore(std::string_view text)
{
    const auto* const start = std::find_if_not(text.begin(), text.end(), isBlank);
    return text.substr(static_cast<std::size_t>(start - text.begin()));
}

bool isLinkInstruction(std::string_view instruction)
{
    return instruction.size() >= kLinkWord.size()
        && std::equal(kLinkWord.begin(), kLinkWord.end(), instruction.begin(),
                      [](char one, char other) { return one == inUpperCase(other); });
}

/// Takes the next argument off: in quotes, or up to a blank.
std::string takeArgument(std::string_view& rest)
{
    rest = withoutBlanksBefore(rest);
    const bool isQuoted = rest.starts_with('"');
    if (isQuoted)
        rest.remove_prefix(1);
    const auto* const end = std::find_if(
        rest.begin(), rest.end(), [isQuoted](char byte) { return isQuoted ? byte == '"' : isBlank(byte); });
    std::string argument(rest.begin(), end);
    rest.remove_prefix(argument.size());
    if (isQuoted && !rest.empty())
        rest.remove_prefix(1);
    return argument;
}

/// What of an address may not stand between quotes in an instruction.
bool isEncoded(unsigned char byte)
{
    return byte <= 0x20 || byte == 0x7F || byte == '"';
}

} // namespace

std::optional<std::string> addressOfLink(const NSAny& link)
{
    if (const auto* const url = link.url())
        return url->absoluteString();
    const auto* const text = link.string();
    return text && !text->empty() ? std::optional(UTF8FromUTF16(*text)) : std::nullopt;
}

NSAny linkOfAddress(std::string_view address)
{
    if (address.empty())
        return {};
    const auto url = NSURL::URLWithString(address);
    return url && !url->scheme().empty() ? NSAny(*url) : NSAny(UTF16FromUTF8(address));
}

std::string addressOfInstruction(std::string_view instruction)
{
    auto rest = withoutBlanksBefore(instruction);
    if (!isLinkInstruction(rest))
        return {};
    rest.remove_prefix(kLinkWord.size());
    std::string address;
    std::string fragment;
    for (rest = withoutBlanksBefore(rest); !rest.empty(); rest = withoutBlanksBefore(rest)) {
        if (!rest.starts_with('\\') || rest.size() < 2) {
            auto argument = takeArgument(rest);
            if (address.empty())
                address = std::move(argument);
            continue;
        }
        const char option = rest[1];
        rest.remove_prefix(2);
        if (option == 'l')
            fragment = takeArgument(rest);
        else if (option == 'o' || option == 't')
            (void)takeArgument(rest);
    }
    return fragment.empty() ? address : address + '#' + fragment;
}

void writeLinkStart(RTFOutput& output, std::string_view address)
{
    std::string encoded;
    for (const char byte : address) {
        if (isEncoded(static_cast<unsigned char>(byte)))
            encoded += percentEncodedPathComponent({&byte, 1});
        else
            encoded += byte;
    }
    output.raw("{\\field{\\*\\fldinst{HYPERLINK \"");
    output.text(UTF16FromUTF8(encoded));
    output.raw("\"}}{\\fldrslt ");
}

void writeLinkEnd(RTFOutput& output)
{
    output.raw("}}");
}
