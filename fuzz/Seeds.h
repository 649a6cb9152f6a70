#pragma once

#include <string>
#include <vector>

/// A sound input for a fuzz target to begin with.
struct Seed {
    /// Of its file.
    std::string name;
    std::string bytes;
};

[[nodiscard]] std::vector<Seed> imageSeeds();
[[nodiscard]] std::vector<Seed> keyedArchiveSeeds();
[[nodiscard]] std::vector<Seed> fileWrapperSeeds();
[[nodiscard]] std::vector<Seed> legacyWordSeeds();
[[nodiscard]] std::vector<Seed> noteFileSeeds();
[[nodiscard]] std::vector<Seed> officeDocumentSeeds();
[[nodiscard]] std::vector<Seed> propertyListSeeds();
[[nodiscard]] std::vector<Seed> rtfSeeds();
[[nodiscard]] std::vector<Seed> textEncodingSeeds();
[[nodiscard]] std::vector<Seed> wordReaderSeeds();
