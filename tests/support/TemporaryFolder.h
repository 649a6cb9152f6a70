#pragma once

#include "platform/foundation/NSURL.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

/// A fresh folder that goes away with the object.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "corvel-test-XXXXXX").native();
        if (!::mkdtemp(pattern.data()))
            throw std::runtime_error("no temporary folder");
        m_path = std::filesystem::canonical(pattern);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    ~TemporaryFolder()
    {
        std::error_code ignored; // A test that leaves an undeletable file has failed by other means.
        std::filesystem::remove_all(m_path, ignored);
    }

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    [[nodiscard]] std::string file(std::string_view name) const { return (m_path / name).native(); }

    [[nodiscard]] NSURL url(std::string_view name) const { return NSURL::fileURLWithPath(file(name)); }

    /// Writes a file, making its folders, and gives its path.
    std::string write(std::string_view name, std::string_view bytes) const
    {
        const auto target = m_path / name;
        std::filesystem::create_directories(target.parent_path());
        std::ofstream(target, std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return target.native();
    }

private:
    std::filesystem::path m_path;
};
