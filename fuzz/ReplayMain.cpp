// Runs a fuzz target over known inputs, the same each time: every seed, and a fixed number of mutations of
// them.
//
// The target runs in a process of its own, which finds each input in memory that both share. So whatever ends
// that process, a failed check, a sanitizer, a stack that overflows or an input that takes for ever, the
// input that did it is still there, and is kept in a file.

#include "fuzz/Mutator.h"
#include "fuzz/SeedFiles.h"

#include <fmt/format.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr std::size_t kMutationCount = 5000;
constexpr unsigned kSecondsForOneInput = 30;
constexpr int kUsageError = 2;
constexpr const char* kUsage
    = "usage: {} FOLDER-OR-FILE...\n"
      "Runs the target over the seeds in the folders and mutations of them, and over "
      "the files as they are.\n";

/// What the process that runs the target is doing.
struct Progress {
    bool isDone;
    std::size_t inputCount;
    std::size_t byteCount;
    char bytes[Mutator::kMaximumByteCount]; // NOLINT(modernize-avoid-c-arrays): lies in shared memory
};

Progress& sharedProgress()
{
    void* const memory
        = ::mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::system_error(errno, std::generic_category(), "mmap");
    return *static_cast<Progress*>(memory);
}

void runTarget(std::string_view input, Progress& progress)
{
    progress.byteCount = input.copy(static_cast<char*>(progress.bytes), sizeof(progress.bytes));
    ++progress.inputCount;
    // An allocation of just this size, so that AddressSanitizer sees what is read beyond it.
    const std::vector<std::uint8_t> bytes(input.begin(), input.end());
    ::alarm(kSecondsForOneInput);
    (void)LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    ::alarm(0);
}

struct Inputs {
    /// Run as they are.
    std::vector<std::string> files;
    /// Run as they are, and what mutations make of them; none unless a folder was named.
    std::optional<std::vector<std::string>> seeds;
};

Inputs readInputs(const std::vector<std::filesystem::path>& paths)
{
    Inputs inputs;
    for (const auto& path : paths) {
        if (std::filesystem::is_regular_file(path)) {
            inputs.files.push_back(bytesOfFile(path));
            continue;
        }
        auto seeds = filesOfFolder(path);
        if (!inputs.seeds)
            inputs.seeds.emplace();
        std::move(seeds.begin(), seeds.end(), std::back_inserter(*inputs.seeds));
    }
    return inputs;
}

void runInputs(const Inputs& inputs, Progress& progress)
{
    for (const auto& input : inputs.files)
        runTarget(input, progress);
    if (!inputs.seeds)
        return;
    for (const auto& seed : *inputs.seeds)
        runTarget(seed, progress);
    Mutator mutator(*inputs.seeds);
    for (std::size_t count = 0; count < kMutationCount; ++count)
        runTarget(mutator.next(), progress);
}

std::string causeOf(int status)
{
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM)
        return fmt::format("no end after {} seconds", kSecondsForOneInput);
    if (WIFSIGNALED(status))
        return fmt::format("signal {}", WTERMSIG(status));
    return fmt::format("exit status {}", WEXITSTATUS(status));
}

/// Says what ended the target's process, and keeps the input that did.
void report(const std::string& name, const Progress& progress, int status)
{
    if (progress.isDone) {
        fmt::print(stderr, "{}: {} after the last input\n", name, causeOf(status));
        return;
    }
    const auto path = std::filesystem::absolute(name + "-failure");
    std::ofstream file(path, std::ios::binary);
    file.write(static_cast<const char*>(progress.bytes), static_cast<std::streamsize>(progress.byteCount));
    fmt::print(stderr, "{}: {} at input {}, which {} {}\n", name, causeOf(status), progress.inputCount,
               file.flush() ? "is kept in" : "cannot be written to", path.native());
}

int replay(const std::string& name, const Inputs& inputs)
{
    auto& progress = sharedProgress();
    const pid_t child = ::fork();
    if (child < 0)
        throw std::system_error(errno, std::generic_category(), "fork");
    if (child == 0) {
        runInputs(inputs, progress);
        progress.isDone = true;
        return EXIT_SUCCESS;
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR)
            throw std::system_error(errno, std::generic_category(), "waitpid");
    }
    if (status != 0) {
        report(name, progress, status);
        return EXIT_FAILURE;
    }
    fmt::print("{}: {} inputs\n", name, progress.inputCount);
    return EXIT_SUCCESS;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    const std::vector<std::filesystem::path> paths(arguments + 1, arguments + argumentCount);
    const auto name = std::filesystem::path(arguments[0]).filename().native();
    if (paths.empty()) {
        fmt::print(stderr, kUsage, name);
        return kUsageError;
    }
    try {
        return replay(name, readInputs(paths));
    } catch (const std::exception& exception) {
        fmt::print(stderr, "{}: {}\n", name, exception.what());
        return EXIT_FAILURE;
    }
}
