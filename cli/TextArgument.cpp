#include "cli/TextArgument.h"

#include "cli/Console.h"
#include "platform/foundation/Unicode.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <unistd.h>

std::optional<std::string> readStandardInput()
{
    std::string bytes;
    std::array<char, 65536> buffer{};
    while (true) {
        const auto count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
        if (count == 0)
            return bytes;
        if (count > 0)
            bytes.append(buffer.data(), static_cast<std::size_t>(count));
        else if (errno != EINTR)
            return std::nullopt;
    }
}

std::optional<std::u16string> textOfArgument(const std::string& argument, std::string_view command)
{
    const auto bytes = argument == kStandardInput ? readStandardInput() : argument;
    if (!bytes) {
        printError(command, "standard input: " + std::system_category().message(errno));
        return std::nullopt;
    }
    if (!isValidUTF8(*bytes)) {
        printError(command, "the text is not UTF-8");
        return std::nullopt;
    }
    return UTF16FromUTF8(*bytes);
}

std::optional<std::u16string> lineOfArgument(const std::string& argument, std::string_view command)
{
    auto text = textOfArgument(argument, command);
    if (!text || argument != kStandardInput)
        return text;
    if (text->ends_with(u'\n'))
        text->pop_back();
    if (text->ends_with(u'\r'))
        text->pop_back();
    return text;
}

void printText(std::string_view text)
{
    if (text.ends_with('\n'))
        text.remove_suffix(1);
    if (!isOutputTerminal()) {
        printLine(text);
        return;
    }
    while (true) {
        const auto end = text.find('\n');
        printLine(printable(text.substr(0, end)));
        if (end == std::string_view::npos)
            return;
        text.remove_prefix(end + 1);
    }
}

void printText(std::u16string_view text)
{
    printText(UTF8FromUTF16(text));
}
