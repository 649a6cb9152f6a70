#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// The documents (`.rtf`) and packages (`.rtfd`) of the samples, in the order of their names; packages count
/// as one. None where there are no samples.
[[nodiscard]] std::vector<std::filesystem::path> rtfSamples();

/// The file with the text that a sample should give; most samples have one.
[[nodiscard]] std::filesystem::path rtfSampleExpectation(const std::filesystem::path& sample);

/// The document of a sample, of packages that within them.
[[nodiscard]] std::string rtfSampleDocument(const std::filesystem::path& sample);

[[nodiscard]] std::string bytesOfFile(const std::filesystem::path& path);
