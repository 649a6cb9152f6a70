#pragma once

#include "platform/media/ContentReader.h"
#include "platform/media/PartStatus.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The members of a zip file by name, in any order, each expanded as a stream. All members together give no
/// more bytes than the sink's limits allow, counted anew for every reading. It reads stored and deflated
/// members only, the two kinds that documents have: the other methods let a few bytes ask for gigabytes of
/// working memory.
class ZipContainer {
public:
    /// Takes a member's bytes piece by piece; false ends the reading.
    using Consumer = std::function<bool(std::string_view)>;

    /// None, with status and reason in `failure`, when the source is no zip file, is cut off, or cannot be
    /// read. `source` and `sink` must outlive the container.
    [[nodiscard]] static std::optional<ZipContainer> open(const ContentSource& source, ContentSink& sink,
                                                          ReadResult& failure);
    ZipContainer(ZipContainer&& other) noexcept;
    ZipContainer& operator=(ZipContainer&& other) = delete;
    ZipContainer(const ZipContainer&) = delete;
    ZipContainer& operator=(const ZipContainer&) = delete;
    ~ZipContainer();

    /// Names are compared without ASCII case, a leading slash and the kind of slash. Of two members with one
    /// name the first counts.
    [[nodiscard]] bool hasMember(std::string_view name) const;
    /// The name as the directory has it; empty when there is no such member.
    [[nodiscard]] std::string_view storedName(std::string_view name) const;

    /// The names in the order of the directory, as UTF-8.
    [[nodiscard]] const std::vector<std::string>& memberNames() const { return m_names; }

    /// Gives a member's bytes to `consumer`. `Read` also when the consumer ended the reading.
    [[nodiscard]] PartStatus readMember(std::string_view name, const Consumer& consumer);

private:
    class Archive;

    ZipContainer(std::unique_ptr<Archive> archive, ContentSink& sink);

    void readDirectory();

    std::unique_ptr<Archive> m_archive;
    ContentSink& m_sink;
    std::vector<std::string> m_names;
    std::unordered_map<std::string, std::size_t> m_indexByName;
    std::size_t m_expandedByteCount = 0;
};
