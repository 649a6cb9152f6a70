#include "platform/foundation/KeyedEncoder.h"

#include "platform/foundation/KeyedArchive.h"
#include "platform/foundation/PropertyListLimits.h"

#include <algorithm>
#include <utility>

KeyedEncoder::KeyedEncoder()
{
    m_objects.push_back(m_writer.addASCII(kArchiveNull));
}

void KeyedEncoder::failWithError(NSError error)
{
    if (!m_error)
        m_error = std::move(error);
}

void KeyedEncoder::fail(std::string_view reason)
{
    failWithError(NSError::errorWithCode(NSCocoaError::PropertyListWriteInvalid, reason));
}

void KeyedEncoder::add(std::string_view key, Reference value)
{
    m_frame->keys.push_back(m_writer.addASCII(key));
    m_frame->values.push_back(value);
}

KeyedEncoder::UID KeyedEncoder::newUID()
{
    m_objects.push_back(0);
    return m_objects.size() - 1;
}

/// UID 0 is not among the leaves: a text "$null" is a text, and gets an object of its own.
KeyedEncoder::UID KeyedEncoder::UIDForLeaf(Reference leaf)
{
    if (leaf >= m_leaves.size())
        m_leaves.resize(std::max<std::size_t>(leaf + std::size_t{1}, 2 * m_leaves.size()));
    if (m_leaves[leaf] == 0) {
        m_leaves[leaf] = newUID();
        m_objects.back() = leaf;
    }
    return m_leaves[leaf];
}

KeyedEncoder::UID KeyedEncoder::UIDForClass(const NSClass& archived)
{
    const auto known = m_classes.find(archived.name);
    if (known != m_classes.end())
        return known->second;
    std::vector<Reference> chain;
    for (const auto* ancestor = &archived; ancestor; ancestor = ancestor->superclass)
        chain.push_back(m_writer.addASCII(ancestor->name));
    const std::vector<Reference> keys{m_writer.addASCII(kArchiveClassNameKey),
                                      m_writer.addASCII(kArchiveClassesKey)};
    const std::vector<Reference> values{chain.front(), m_writer.addArray(chain)};
    const auto uid = newUID();
    m_objects[uid] = m_writer.addDictionary(keys, values);
    m_classes.emplace(archived.name, uid);
    return uid;
}

template <typename Encode>
KeyedEncoder::UID KeyedEncoder::encodeNew(const NSClass& archived, const Encode& encode)
{
    const auto uid = newUID();
    if (m_depth >= kMaximumPropertyListDepth)
        fail("The objects to be archived are nested too deeply.");
    if (m_error)
        return uid;
    Frame frame;
    auto* const holder = std::exchange(m_frame, &frame);
    ++m_depth;
    encode(uid);
    --m_depth;
    add(kArchiveClassKey, m_writer.addUID(UIDForClass(archived)));
    m_frame = holder;
    m_objects[uid] = m_writer.addDictionary(frame.keys, frame.values);
    return uid;
}

void KeyedEncoder::encodeDictionary(const NSAny::Dictionary& dictionary)
{
    std::vector<Reference> keys;
    keys.reserve(dictionary.size());
    for (const auto& [key, value] : dictionary)
        keys.push_back(m_writer.addUID(UIDForLeaf(m_writer.addText(key))));
    add("NS.keys", m_writer.addArray(keys));
    std::vector<NSAny> values;
    values.reserve(dictionary.size());
    for (const auto& [key, value] : dictionary)
        values.push_back(value);
    encodeArrayOfObjects(values, "NS.objects");
}

KeyedEncoder::UID KeyedEncoder::UIDForShared(const NSAny& object)
{
    const auto* identity = object.identity();
    if (const auto known = m_shared.find(identity); known != m_shared.end()) {
        if (m_open.contains(known->second))
            fail("An object to be archived holds itself.");
        return known->second;
    }
    m_kept.push_back(object);
    const auto enclose = [this, &object, identity](UID uid) {
        m_shared.emplace(identity, uid);
        m_open.insert(uid);
        encodeContents(object);
        m_open.erase(uid);
    };
    if (object.array())
        return encodeNew(NSArrayClass, enclose);
    if (object.dictionary())
        return encodeNew(NSDictionaryClass, enclose);
    if (object.url())
        return encodeNew(NSURLClass, enclose);
    if (const auto* coded = dynamic_cast<const NSCoding*>(object.anyObject()))
        return encodeNew(coded->classForCoder(), enclose);
    fail("One of the objects to be archived belongs to a class that cannot be archived.");
    return 0;
}

void KeyedEncoder::encodeContents(const NSAny& object)
{
    if (const auto* array = object.array()) {
        encodeArrayOfObjects(*array, "NS.objects");
    } else if (const auto* dictionary = object.dictionary()) {
        encodeDictionary(*dictionary);
    } else if (const auto* url = object.url()) {
        encodeObject(nullptr, "NS.base");
        add("NS.relative", m_writer.addUID(UIDForLeaf(m_writer.addASCII(url->absoluteString()))));
    } else if (const auto* coded = dynamic_cast<const NSCoding*>(object.anyObject())) {
        coded->encodeWithCoder(*this);
    }
}

KeyedEncoder::UID KeyedEncoder::UIDFor(const NSAny& object)
{
    if (object.isNil())
        return 0;
    if (object.isBoolean())
        return UIDForLeaf(m_writer.addBoolean(object.boolValue()));
    if (object.isInteger())
        return UIDForLeaf(m_writer.addInteger(object.integerValue()));
    if (object.isReal())
        return UIDForLeaf(m_writer.addReal(object.doubleValue()));
    if (const auto* text = object.string())
        return UIDForLeaf(m_writer.addText(*text));
    if (const auto* data = object.data())
        return UIDForLeaf(m_writer.addData(data->bytes));
    if (const auto date = object.date())
        return encodeNew(NSDateClass, [this, &date](UID /*uid*/) {
            encodeDouble(date->timeIntervalSinceReferenceDate, "NS.time");
        });
    return UIDForShared(object);
}

void KeyedEncoder::encodeObject(const NSAny& object, std::string_view key)
{
    add(key, m_writer.addUID(UIDFor(object)));
}

void KeyedEncoder::encodeBool(bool value, std::string_view key)
{
    add(key, m_writer.addBoolean(value));
}

void KeyedEncoder::encodeInteger(std::int64_t value, std::string_view key)
{
    add(key, m_writer.addInteger(value));
}

void KeyedEncoder::encodeFloat(float value, std::string_view key)
{
    encodeDouble(value, key);
}

void KeyedEncoder::encodeDouble(double value, std::string_view key)
{
    add(key, m_writer.addReal(value));
}

void KeyedEncoder::encodeBytes(std::string_view bytes, std::string_view key)
{
    add(key, m_writer.addData(bytes));
}

void KeyedEncoder::encodeInlineString(std::u16string_view text, std::string_view key)
{
    add(key, m_writer.addText(text));
}

void KeyedEncoder::encodeArrayOfObjects(std::span<const NSAny> objects, std::string_view key)
{
    std::vector<Reference> references;
    references.reserve(objects.size());
    for (const auto& object : objects) {
        if (object.isNil())
            fail("A collection to be archived holds nil.");
        if (m_error)
            return;
        references.push_back(m_writer.addUID(UIDFor(object)));
    }
    add(key, m_writer.addArray(references));
}

void KeyedEncoder::encodeMutableString(std::u16string_view text, std::string_view key)
{
    const auto uid = encodeNew(NSMutableStringClass,
                               [this, text](UID /*uid*/) { encodeInlineString(text, "NS.string"); });
    add(key, m_writer.addUID(uid));
}

void KeyedEncoder::encodeMutableData(std::string_view bytes, std::string_view key)
{
    const auto uid
        = encodeNew(NSMutableDataClass, [this, bytes](UID /*uid*/) { encodeBytes(bytes, "NS.data"); });
    add(key, m_writer.addUID(uid));
}

void KeyedEncoder::encodeMutableArray(std::span<const NSAny> objects, std::string_view key)
{
    const auto uid = encodeNew(NSMutableArrayClass,
                               [this, objects](UID /*uid*/) { encodeArrayOfObjects(objects, "NS.objects"); });
    add(key, m_writer.addUID(uid));
}

std::optional<std::string> KeyedEncoder::finish(NSError* error)
{
    const std::vector<Reference> keys{m_writer.addASCII(kArchiveVersionKey), m_writer.addASCII(kArchiverKey),
                                      m_writer.addASCII(kArchiveTopKey),
                                      m_writer.addASCII(kArchiveObjectsKey)};
    const std::vector<Reference> values{
        m_writer.addInteger(kArchiveVersion), m_writer.addASCII(kArchiverName),
        m_writer.addDictionary(m_top.keys, m_top.values), m_writer.addArray(m_objects)};
    auto bytes = m_error ? std::nullopt : m_writer.finish(m_writer.addDictionary(keys, values));
    if (!bytes)
        fail("The archive is too large.");
    if (m_error)
        setError(error, *m_error);
    return bytes;
}
