#include "fuzz/SeedFiles.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

std::string bytesOfFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    if (!file || (file.peek() != std::ifstream::traits_type::eof() && !(bytes << file.rdbuf())))
        throw std::runtime_error(path.native() + " cannot be read");
    return bytes.str();
}

std::vector<std::string> filesOfFolder(const std::filesystem::path& folder)
{
    if (!std::filesystem::exists(folder))
        return {};
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    std::vector<std::string> files;
    std::transform(paths.begin(), paths.end(), std::back_inserter(files), bytesOfFile);
    return files;
}
