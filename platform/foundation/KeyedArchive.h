#pragma once

#include "platform/foundation/BinaryPropertyList.h"
#include "platform/foundation/NSClassTable.h"
#include "platform/foundation/NSError.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

// The names that the keyed form gives its own parts.
inline constexpr std::string_view kArchiveVersionKey = "$version";
inline constexpr std::string_view kArchiverKey = "$archiver";
inline constexpr std::string_view kArchiveTopKey = "$top";
inline constexpr std::string_view kArchiveObjectsKey = "$objects";
inline constexpr std::string_view kArchiveClassKey = "$class";
inline constexpr std::string_view kArchiveClassNameKey = "$classname";
inline constexpr std::string_view kArchiveClassesKey = "$classes";
inline constexpr std::string_view kArchiveNull = "$null";
inline constexpr std::string_view kArchiverName = "NSKeyedArchiver";
inline constexpr std::int64_t kArchiveVersion = 100000;

/// A keyed archive as a table of objects by their UIDs, not yet decoded.
class KeyedArchive {
public:
    using Reference = BinaryPropertyList::Reference;
    using UID = std::uint64_t;

    /// Checks that the list is an archive: version, objects and top level; the name of the archiver may be
    /// any. None, with CoderReadCorrupt in `error`, when it is none.
    [[nodiscard]] static std::optional<KeyedArchive> createWithList(BinaryPropertyList list,
                                                                    NSError* error = nullptr);

    [[nodiscard]] const BinaryPropertyList& list() const { return m_list; }

    /// The dictionary of the top level.
    [[nodiscard]] Reference top() const { return m_top; }

    [[nodiscard]] std::size_t objectCount() const { return m_list.count(m_objects); }

    /// `uid` must be below the count.
    [[nodiscard]] Reference object(UID uid) const
    {
        return m_list.element(m_objects, static_cast<std::size_t>(uid));
    }

private:
    KeyedArchive(BinaryPropertyList list, Reference top, Reference objects);

    BinaryPropertyList m_list;
    Reference m_top;
    Reference m_objects;
};

/// What an archive says of a class, and what that means here.
struct ArchivedClass {
    /// As the archive names it.
    std::string name;
    /// The class of that name, else its nearest ancestor that can be made; null when there is none.
    const NSClass* known = nullptr;
};

/// The classes of one archive, each looked up once.
class ArchivedClasses {
public:
    ArchivedClasses(const KeyedArchive& archive, const NSClassTable& table)
        : m_archive(archive)
        , m_table(table)
    {
    }

    /// The class whose record has the UID; null when there is no well-formed record. Valid as long as this
    /// object lives.
    [[nodiscard]] const ArchivedClass* classWithUID(KeyedArchive::UID uid);

private:
    [[nodiscard]] std::optional<ArchivedClass> readRecord(KeyedArchive::UID uid) const;
    [[nodiscard]] const NSClass* decodableClass(std::string_view name) const;

    const KeyedArchive& m_archive;
    const NSClassTable& m_table;
    std::unordered_map<KeyedArchive::UID, ArchivedClass> m_classes;
};
