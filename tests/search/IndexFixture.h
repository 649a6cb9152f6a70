#pragma once

#include "platform/search/SKIndex.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// A fresh index and short words for what tests do with one. Documents are named by their paths.
class IndexFixture : public testing::Test {
protected:
    void SetUp() override
    {
        NSError error;
        m_index = SKIndex::createWithURL(indexURL(), &error);
        ASSERT_TRUE(m_index) << error.localizedDescription();
    }

    [[nodiscard]] NSURL indexURL() const { return m_folder.url("test.index"); }

    [[nodiscard]] std::string indexPath() const { return m_folder.file("test.index"); }

    [[nodiscard]] std::unique_ptr<SKIndex> open(SKIndexAccess access) const
    {
        NSError error;
        auto index = SKIndex::openWithURL(indexURL(), access, &error);
        EXPECT_TRUE(index) << error.localizedDescription();
        return index;
    }

    /// Closes the index, without a flush, and opens it again.
    void reopen(SKIndexAccess access = SKIndexAccess::Write)
    {
        m_index.reset();
        m_index = open(access);
    }

    [[nodiscard]] static SKDocumentRef document(std::string_view path)
    {
        return SKDocument::createWithURL(NSURL::fileURLWithPath(path));
    }

    [[nodiscard]] static SKDocumentRef child(std::string_view path, std::string_view name)
    {
        return SKDocument::create("", document(path), name);
    }

    [[nodiscard]] bool add(std::string_view path, std::string_view text) const
    {
        return m_index->addDocumentWithText(document(path), text, SKReplace::Yes);
    }

    /// The paths of all hits, sorted.
    [[nodiscard]] std::vector<std::string> found(std::string_view query) const
    {
        return found(*m_index, query);
    }

    [[nodiscard]] static std::vector<std::string> found(const SKIndex& index, std::string_view query)
    {
        SKSearchOptions options;
        options.limit = 1'000'000;
        std::vector<SKSearchHit> hits;
        NSError error;
        EXPECT_TRUE(index.search(query, options, hits, &error)) << error.localizedDescription();
        std::vector<std::string> paths;
        for (const auto& hit : hits)
            paths.push_back(hit.url.path());
        std::sort(paths.begin(), paths.end());
        return paths;
    }

    using Paths = std::vector<std::string>;

    /// Flushes, and expects that a check finds nothing.
    void expectSound() const
    {
        EXPECT_TRUE(m_index->flush());
        for (const auto& finding : m_index->check())
            ADD_FAILURE() << finding;
    }

    TemporaryFolder m_folder;
    std::unique_ptr<SKIndex> m_index;
};
