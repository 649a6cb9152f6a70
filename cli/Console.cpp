#include "cli/Console.h"

#include "platform/foundation/Unicode.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <unistd.h>

namespace {

constexpr std::string_view kClearLine = "\r\033[K";

std::mutex& errorMutex()
{
    static std::mutex mutex;
    return mutex;
}

bool hasVariable(const char* name)
{
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): nobody sets variables
    return value && *value;
}

bool isCapableTerminal(int descriptor)
{
    const char* terminal = std::getenv("TERM"); // NOLINT(concurrency-mt-unsafe): nobody sets variables
    return ::isatty(descriptor) == 1 && terminal && std::string_view(terminal) != "dumb";
}

void write(std::FILE* stream, std::string_view text)
{
    (void)std::fwrite(text.data(), 1, text.size(),
                      stream); // isOutputIntact tells; of standard error nobody is told.
    (void)std::fflush(stream);
}

bool isControl(char32_t character)
{
    constexpr char32_t kFirstPrintable = 0x20;
    constexpr char32_t kDelete = 0x7F;
    constexpr char32_t kLastC1Control = 0x9F;
    const bool isLineSeparator = character == 0x2028 || character == 0x2029;
    const bool isDirection
        = (character >= 0x202A && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
    return character < kFirstPrintable || (character >= kDelete && character <= kLastC1Control)
        || isLineSeparator || isDirection;
}

// Guarded by errorMutex.
bool& isProgressShown()
{
    static bool isShown = false;
    return isShown;
}

void clearProgress()
{
    if (isProgressShown())
        write(stderr, kClearLine);
    isProgressShown() = false;
}

} // namespace

bool isOutputTerminal()
{
    static const bool isTerminal = isCapableTerminal(STDOUT_FILENO);
    return isTerminal;
}

bool isErrorTerminal()
{
    static const bool isTerminal = isCapableTerminal(STDERR_FILENO);
    return isTerminal;
}

bool isOutputStyled()
{
    static const bool isStyled = isOutputTerminal() && !hasVariable("NO_COLOR");
    return isStyled;
}

void printLine(std::string_view line)
{
    write(stdout, std::string(line) + '\n');
}

bool isOutputIntact()
{
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

void printError(std::string_view what, std::string_view why)
{
    printNote("corvel: " + printable(what) + ": " + printable(why));
}

void printNote(std::string_view line)
{
    const std::scoped_lock lock(errorMutex());
    clearProgress();
    write(stderr, std::string(line) + '\n');
}

void showProgress(std::string_view text)
{
    const std::scoped_lock lock(errorMutex());
    clearProgress();
    if (text.empty())
        return;
    write(stderr, text);
    isProgressShown() = true;
}

std::string printable(std::string_view text)
{
    std::string line;
    line.reserve(text.size());
    for (std::size_t offset = 0; offset < text.size();) {
        const char32_t character = nextCodePoint(text, offset);
        appendUTF8(line, isControl(character) ? U'?' : character);
    }
    return line;
}

std::string displayPath(const std::string& path)
{
    std::error_code failure;
    const auto folder = std::filesystem::current_path(failure).native() + '/';
    const bool isBelow = !failure && folder.size() < path.size() && path.starts_with(folder);
    const auto shown = isBelow ? path.substr(folder.size()) : path;
    return isOutputTerminal() ? printable(shown) : shown;
}
