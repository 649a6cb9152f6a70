// Writes those seeds of the fuzz targets that are no texts: a folder for each target, with a file for each
// seed.

#include "fuzz/Seeds.h"

#include <fmt/format.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace {

struct SeededTarget {
    const char* name;
    std::vector<Seed> (*seeds)();
};

constexpr std::array kTargets{
    SeededTarget{"FuzzKeyedUnarchiver", keyedArchiveSeeds},
    SeededTarget{"FuzzFileWrapper", fileWrapperSeeds},
    SeededTarget{"FuzzImage", imageSeeds},
    SeededTarget{"FuzzLegacyWord", legacyWordSeeds},
    SeededTarget{"FuzzNoteFile", noteFileSeeds},
    SeededTarget{"FuzzOfficeDocument", officeDocumentSeeds},
    SeededTarget{"FuzzPropertyList", propertyListSeeds},
    SeededTarget{"FuzzRTFReader", rtfSeeds},
    SeededTarget{"FuzzTextEncoding", textEncodingSeeds},
    SeededTarget{"FuzzWordReader", wordReaderSeeds},
};

void writeSeeds(const SeededTarget& target, const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    for (const auto& seed : target.seeds()) {
        std::ofstream file(folder / seed.name, std::ios::binary);
        file.write(seed.bytes.data(), static_cast<std::streamsize>(seed.bytes.size()));
        if (!file.flush())
            throw std::runtime_error((folder / seed.name).native() + " cannot be written");
    }
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2) {
        fmt::print(stderr, "usage: MakeSeeds FOLDER\n");
        return EXIT_FAILURE;
    }
    try {
        for (const auto& target : kTargets)
            writeSeeds(target, std::filesystem::path(arguments[1]) / target.name);
    } catch (const std::exception& exception) {
        fmt::print(stderr, "MakeSeeds: {}\n", exception.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
