#pragma once

#include "tests/support/TemporaryFolder.h"
#include "tests/transcript/ChildProcess.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// A user at work in an empty folder: commands are typed there, with a service of the test's own listening on
/// "service.sock".
class Transcript : public testing::Test {
protected:
    Transcript();

    /// Runs corvel with these arguments and gives what it did.
    [[nodiscard]] ChildProcess::Outcome corvel(const std::vector<std::string>& arguments,
                                               std::string_view input = {}) const;
    /// The same, going on in the background.
    [[nodiscard]] std::unique_ptr<ChildProcess> startCorvel(const std::vector<std::string>& arguments,
                                                            const std::vector<std::string>& environment
                                                            = {}) const;
    /// corvel index --index notes.index --socket service.sock, and these arguments.
    [[nodiscard]] ChildProcess::Outcome index(const std::vector<std::string>& arguments) const;
    /// The paths of the hits for a query, relative to the folder, best first.
    [[nodiscard]] std::vector<std::string> search(const std::string& query, std::size_t limit = 100) const;

    /// Makes notes.index.
    void createIndex() const;
    /// Starts the service and waits until it listens.
    void startService();

    [[nodiscard]] ChildProcess& service() { return *m_service; }

    [[nodiscard]] const TemporaryFolder& folder() const { return m_folder; }

private:
    TemporaryFolder m_folder;
    std::unique_ptr<ChildProcess> m_service;
};
