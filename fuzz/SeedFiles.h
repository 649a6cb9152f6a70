#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// The bytes of a file. @throws std::runtime_error when it cannot be read.
[[nodiscard]] std::string bytesOfFile(const std::filesystem::path& path);

/// The files of a folder in the order of their names; none when there is no such folder.
[[nodiscard]] std::vector<std::string> filesOfFolder(const std::filesystem::path& folder);
