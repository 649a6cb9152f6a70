#include "platform/foundation/BinaryPropertyListValues.h"

#include "platform/foundation/BinaryPropertyListWriter.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/foundation/PropertyListLimits.h"

#include <unordered_map>
#include <utility>

namespace {

using Reference = BinaryPropertyList::Reference;
using Kind = BinaryPropertyList::Kind;

/// Makes values from references, each once. Functions give none when the list is malformed.
class ValueReader {
public:
    explicit ValueReader(const BinaryPropertyList& list)
        : m_list(list)
        , m_entries(list.objectCount())
        , m_countLimit(kMaximumExpandedCount + list.objectCount())
    {
    }

    [[nodiscard]] std::optional<NSAny> read(Reference reference);

    [[nodiscard]] std::string_view reason() const { return m_reason; }

private:
    struct Entry {
        NSAny value;
        /// How many values a walk over this one meets; 0 while it is not read.
        std::uint64_t count = 0;
        bool isOpen = false;
    };

    std::nullopt_t fail(std::string_view reason);
    [[nodiscard]] bool add(Reference contained, std::uint64_t& count);
    [[nodiscard]] std::optional<NSAny> readCollection(Reference reference, std::uint64_t& count);
    [[nodiscard]] std::optional<NSAny> readArray(Reference reference, std::uint64_t& count);
    [[nodiscard]] std::optional<NSAny> readDictionary(Reference reference, std::uint64_t& count);
    [[nodiscard]] std::optional<NSAny> readLeaf(Reference reference);

    const BinaryPropertyList& m_list;
    std::vector<Entry> m_entries;
    std::uint64_t m_countLimit;
    unsigned m_depth = 0;
    std::string_view m_reason;
};

std::nullopt_t ValueReader::fail(std::string_view reason)
{
    m_reason = reason;
    return std::nullopt;
}

bool ValueReader::add(Reference contained, std::uint64_t& count)
{
    if (!read(contained))
        return false;
    count += m_entries[contained].count;
    if (count <= m_countLimit)
        return true;
    fail("Its shared contents grow without bound.");
    return false;
}

std::optional<NSAny> ValueReader::readArray(Reference reference, std::uint64_t& count)
{
    NSAny::Array elements;
    elements.reserve(m_list.count(reference));
    for (std::size_t index = 0; index < m_list.count(reference); ++index) {
        const auto element = m_list.element(reference, index);
        if (!add(element, count))
            return std::nullopt;
        elements.push_back(m_entries[element].value);
    }
    return NSAny(std::move(elements));
}

std::optional<NSAny> ValueReader::readDictionary(Reference reference, std::uint64_t& count)
{
    NSAny::Dictionary dictionary;
    for (std::size_t index = 0; index < m_list.count(reference); ++index) {
        const auto key = m_list.key(reference, index);
        const auto value = m_list.entryValue(reference, index);
        if (m_list.kind(key) != Kind::Text)
            return fail("A dictionary has a key that is no text.");
        if (!add(key, count) || !add(value, count))
            return std::nullopt;
        dictionary.insert_or_assign(*m_entries[key].value.string(), m_entries[value].value);
    }
    return NSAny(std::move(dictionary));
}

std::optional<NSAny> ValueReader::readCollection(Reference reference, std::uint64_t& count)
{
    if (m_depth >= kMaximumPropertyListDepth)
        return fail("It is nested too deeply.");
    m_entries[reference].isOpen = true;
    ++m_depth;
    auto value = m_list.kind(reference) == Kind::Array ? readArray(reference, count)
                                                       : readDictionary(reference, count);
    --m_depth;
    m_entries[reference].isOpen = false;
    return value;
}

std::optional<NSAny> ValueReader::readLeaf(Reference reference)
{
    if (m_list.kind(reference) == Kind::UID) {
        const auto uid = m_list.UIDValue(reference);
        if (!uid)
            return fail("It holds a UID of more than 64 bits.");
        return NSAny(std::make_shared<const NSKeyedArchiverUID>(*uid));
    }
    auto value = m_list.value(reference);
    return value ? std::optional(std::move(value)) : fail("It holds a null.");
}

std::optional<NSAny> ValueReader::read(Reference reference)
{
    auto& entry = m_entries[reference];
    if (entry.count > 0)
        return entry.value;
    if (entry.isOpen)
        return fail("A collection holds itself.");
    const auto kind = m_list.kind(reference);
    std::uint64_t count = 1 + m_list.byteCount(reference) / kBytesPerExpandedValue;
    auto value = kind == Kind::Array || kind == Kind::Dictionary ? readCollection(reference, count)
                                                                 : readLeaf(reference);
    if (!value)
        return std::nullopt;
    entry.value = *value;
    entry.count = count;
    return value;
}

/// Adds a value and what it holds to a writer. Functions give none when it is no property list.
class ValueWriter {
public:
    [[nodiscard]] std::optional<Reference> add(const NSAny& value);

    [[nodiscard]] const BinaryPropertyListWriter& writer() const { return m_writer; }

    [[nodiscard]] std::string_view reason() const { return m_reason; }

private:
    std::nullopt_t fail(std::string_view reason);
    [[nodiscard]] std::optional<Reference> addLeaf(const NSAny& value);
    [[nodiscard]] std::optional<Reference> addCollection(const NSAny& value);
    [[nodiscard]] std::optional<Reference> addArray(const NSAny::Array& array);
    [[nodiscard]] std::optional<Reference> addDictionary(const NSAny::Dictionary& dictionary);

    BinaryPropertyListWriter m_writer;
    std::unordered_map<const void*, Reference> m_collections;
    unsigned m_depth = 0;
    std::string_view m_reason;
};

std::nullopt_t ValueWriter::fail(std::string_view reason)
{
    m_reason = reason;
    return std::nullopt;
}

std::optional<Reference> ValueWriter::addLeaf(const NSAny& value)
{
    if (value.isBoolean())
        return m_writer.addBoolean(value.boolValue());
    if (value.isInteger())
        return m_writer.addInteger(value.integerValue());
    if (value.isReal())
        return m_writer.addReal(value.doubleValue());
    if (const auto date = value.date())
        return m_writer.addDate(*date);
    if (const auto* text = value.string())
        return m_writer.addText(*text);
    if (const auto* data = value.data())
        return m_writer.addData(data->bytes);
    if (const auto uid = value.object<NSKeyedArchiverUID>())
        return m_writer.addUID(uid->value());
    return fail(value.isNil() ? "A property list cannot hold nil."
                              : "A property list cannot hold an object.");
}

std::optional<Reference> ValueWriter::addArray(const NSAny::Array& array)
{
    std::vector<Reference> elements;
    elements.reserve(array.size());
    for (const auto& value : array) {
        const auto element = add(value);
        if (!element)
            return std::nullopt;
        elements.push_back(*element);
    }
    return m_writer.addArray(elements);
}

std::optional<Reference> ValueWriter::addDictionary(const NSAny::Dictionary& dictionary)
{
    std::vector<Reference> keys;
    std::vector<Reference> values;
    for (const auto& [name, value] : dictionary) {
        keys.push_back(m_writer.addText(name));
        const auto added = add(value);
        if (!added)
            return std::nullopt;
        values.push_back(*added);
    }
    return m_writer.addDictionary(keys, values);
}

std::optional<Reference> ValueWriter::addCollection(const NSAny& value)
{
    const auto known = m_collections.find(value.identity());
    if (known != m_collections.end())
        return known->second;
    if (m_depth >= kMaximumPropertyListDepth)
        return fail("The property list is nested too deeply.");
    ++m_depth;
    const auto added = value.array() ? addArray(*value.array()) : addDictionary(*value.dictionary());
    --m_depth;
    if (added)
        m_collections.emplace(value.identity(), *added);
    return added;
}

std::optional<Reference> ValueWriter::add(const NSAny& value)
{
    return value.array() || value.dictionary() ? addCollection(value) : addLeaf(value);
}

} // namespace

NSAny valueOfPropertyList(const BinaryPropertyList& list, NSError* error)
{
    ValueReader reader(list);
    auto value = reader.read(list.root());
    if (value)
        return std::move(*value);
    setError(error,
             NSError::errorWithCode(NSCocoaError::PropertyListReadCorrupt,
                                    "The property list is damaged. " + std::string(reader.reason())));
    return nullptr;
}

std::optional<std::string> binaryPropertyListWithValue(const NSAny& value, NSError* error)
{
    ValueWriter writer;
    const auto root = writer.add(value);
    auto bytes = root ? writer.writer().finish(*root) : std::nullopt;
    if (!bytes)
        setError(error,
                 NSError::errorWithCode(NSCocoaError::PropertyListWriteInvalid,
                                        root ? "The property list is too large." : writer.reason()));
    return bytes;
}
