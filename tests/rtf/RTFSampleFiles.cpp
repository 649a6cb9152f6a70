#include "tests/rtf/RTFSampleFiles.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

std::vector<fs::path> rtfSamples()
{
    std::vector<fs::path> found;
    const fs::path root = fs::path(CORVEL_SAMPLES_DIR) / "rtf";
    if (!fs::is_directory(root))
        return found;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const bool isInPackage = entry.path().parent_path().extension() == ".rtfd";
        if (!isInPackage && (entry.path().extension() == ".rtf" || entry.path().extension() == ".rtfd"))
            found.push_back(entry.path());
    }
    std::sort(found.begin(), found.end());
    return found;
}

fs::path rtfSampleExpectation(const fs::path& sample)
{
    return sample.extension() == ".rtfd" ? fs::path(sample.native() + ".txt")
                                         : fs::path(sample).replace_extension(".txt");
}

std::string rtfSampleDocument(const fs::path& sample)
{
    return bytesOfFile(sample.extension() == ".rtfd" ? sample / "TXT.rtf" : sample);
}

std::string bytesOfFile(const fs::path& path)
{
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}
