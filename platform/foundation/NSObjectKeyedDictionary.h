#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"

#include <utility>
#include <vector>

/// A dictionary some keys of which are no texts: what NSAny's own dictionaries cannot hold. Archived as any
/// dictionary is, and read as this when it must be, so that reading and writing loses nothing. Entries keep
/// their order; two dictionaries are equal when they have equal entries in one order.
class NSObjectKeyedDictionary final : public NSCoding {
public:
    using Entries = std::vector<std::pair<NSAny, NSAny>>;

    explicit NSObjectKeyedDictionary(Entries entries)
        : m_entries(std::move(entries))
    {
    }

    [[nodiscard]] const Entries& entries() const { return m_entries; }

    /// Nil when there is no such key.
    [[nodiscard]] NSAny objectForKey(const NSAny& key) const;

    [[nodiscard]] bool isEqual(const NSObject& other) const override;

    [[nodiscard]] std::size_t hash() const override { return m_entries.size(); }

    [[nodiscard]] const NSClass& classForCoder() const override { return NSDictionaryClass; }

    void encodeWithCoder(NSCoder& coder) const override;

private:
    Entries m_entries;
};
