// corvel-manual FOLDER: writes the pages of the manual into a folder. Run by the build.

#include "cli/Console.h"
#include "cli/ManualPage.h"
#include "cli/Program.h"
#include "service/ServiceOptions.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>

namespace {

constexpr int kServiceSection = 8;

std::vector<ManualPage> allPages()
{
    CLI::App program(kProgramSummary, kProgramName);
    (void)addCommands(program); // Only the declarations are wanted.
    auto pages = manualPages(program);
    CLI::App service(kServiceSummary, kServiceName);
    ServiceOptions options;
    declareServiceOptions(service, options);
    pages.push_back(manualPage(service, kServiceName, kServiceSection));
    return pages;
}

/// Below FOLDER, each page in the folder of its section, "man1".
bool write(const ManualPage& page, const std::filesystem::path& folder)
{
    const auto section = folder / ("man" + std::to_string(page.section));
    std::filesystem::create_directories(section);
    std::ofstream file(section / page.fileName(), std::ios::binary);
    file << page.roff;
    return static_cast<bool>(file.flush());
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2) {
        printNote("usage: corvel-manual FOLDER");
        return static_cast<int>(ExitStatus::Usage);
    }
    try {
        for (const auto& page : allPages()) {
            if (!write(page, arguments[1])) {
                printError(page.fileName(), "could not be written");
                return EXIT_FAILURE;
            }
        }
        return EXIT_SUCCESS;
    } catch (const std::exception& exception) {
        printError("manual", exception.what());
        return EXIT_FAILURE;
    }
}
