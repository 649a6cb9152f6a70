#include "platform/foundation/BinaryPropertyListWriter.h"

#include "platform/foundation/BinaryPropertyList.h"
#include "platform/foundation/PropertyListLimits.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::uint8_t kFalseMarker = 0x08;
constexpr std::uint8_t kTrueMarker = 0x09;
constexpr std::uint8_t kIntegerMarker = 0x10;
constexpr std::uint8_t kRealMarker = 0x23;
constexpr std::uint8_t kDateMarker = 0x33;
constexpr std::uint8_t kDataMarker = 0x40;
constexpr std::uint8_t kASCIIMarker = 0x50;
constexpr std::uint8_t kUTF16Marker = 0x60;
constexpr std::uint8_t kUIDMarker = 0x80;
constexpr std::uint8_t kArrayMarker = 0xA0;
constexpr std::uint8_t kDictionaryMarker = 0xD0;
/// Counts from here on follow the marker as an integer.
constexpr std::size_t kFirstLongCount = 15;

void appendByte(std::string& bytes, unsigned value)
{
    bytes.push_back(static_cast<char>(value));
}

void appendBigEndian(std::string& bytes, std::uint64_t number, std::size_t byteCount)
{
    for (auto shift = 8 * byteCount; shift > 0; shift -= 8)
        appendByte(bytes, static_cast<std::uint8_t>(number >> (shift - 8)));
}

/// The bytes that a number without sign needs: 1, 2, 4 or 8.
std::size_t sizeFor(std::uint64_t number)
{
    if (number <= UINT8_MAX)
        return 1;
    if (number <= UINT16_MAX)
        return 2;
    return number <= UINT32_MAX ? 4 : 8;
}

void appendInteger(std::string& bytes, std::uint64_t number)
{
    const auto size = sizeFor(number);
    appendByte(bytes, kIntegerMarker | static_cast<unsigned>(std::countr_zero(size)));
    appendBigEndian(bytes, number, size);
}

void appendMarker(std::string& bytes, std::uint8_t marker, std::size_t count)
{
    if (count < kFirstLongCount) {
        appendByte(bytes, marker | static_cast<unsigned>(count));
        return;
    }
    appendByte(bytes, marker | static_cast<unsigned>(kFirstLongCount));
    appendInteger(bytes, count);
}

bool isASCII(std::u16string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

} // namespace

std::string_view BinaryPropertyListWriter::bytesOf(const Object& object) const
{
    return std::string_view(m_values).substr(object.start, object.count);
}

/// The place of an equal value, or the free one where the value belongs.
std::size_t BinaryPropertyListWriter::placeOf(const Object& value) const
{
    const auto mask = m_places.size() - 1;
    auto place = value.hash & mask;
    for (; m_places[place] != 0; place = (place + 1) & mask) {
        const auto& known = m_objects[m_places[place] - 1];
        if (known.hash == value.hash && bytesOf(known) == bytesOf(value))
            break;
    }
    return place;
}

void BinaryPropertyListWriter::makeRoom()
{
    constexpr std::size_t kFirstPlaceCount = 64;
    if (2 * (m_valueCount + 1) <= m_places.size())
        return;
    m_places.assign(std::max(kFirstPlaceCount, 2 * m_places.size()), 0);
    for (std::size_t index = 0; index < m_objects.size(); ++index) {
        if (!m_objects[index].isCollection)
            m_places[placeOf(m_objects[index])] = static_cast<Reference>(index + 1);
    }
}

/// Keeps the bytes appended since `start` as a value, unless the same value is there.
BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addValue(std::size_t start)
{
    makeRoom();
    Object added{start, m_values.size() - start};
    added.hash = std::hash<std::string_view>()(bytesOf(added));
    auto& place = m_places[placeOf(added)];
    if (place != 0) {
        m_values.resize(start);
        return place - 1;
    }
    m_objects.push_back(added);
    ++m_valueCount;
    place = static_cast<Reference>(m_objects.size());
    return place - 1;
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addCollection(Object object)
{
    m_objects.push_back(object);
    return static_cast<Reference>(m_objects.size() - 1);
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addBoolean(bool value)
{
    const auto start = m_values.size();
    appendByte(m_values, value ? kTrueMarker : kFalseMarker);
    return addValue(start);
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addInteger(std::int64_t value)
{
    const auto start = m_values.size();
    appendInteger(m_values, static_cast<std::uint64_t>(value));
    return addValue(start);
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addReal(double value)
{
    const auto start = m_values.size();
    appendByte(m_values, kRealMarker);
    appendBigEndian(m_values, std::bit_cast<std::uint64_t>(value), sizeof value);
    return addValue(start);
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addDate(NSDate date)
{
    const auto start = m_values.size();
    appendByte(m_values, kDateMarker);
    appendBigEndian(m_values, std::bit_cast<std::uint64_t>(date.timeIntervalSinceReferenceDate),
                    sizeof(double));
    return addValue(start);
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addData(std::string_view bytes)
{
    const auto start = m_values.size();
    appendMarker(m_values, kDataMarker, bytes.size());
    m_values.append(bytes);
    return addValue(start);
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addText(std::u16string_view text)
{
    const auto start = m_values.size();
    const bool isNarrow = isASCII(text);
    appendMarker(m_values, isNarrow ? kASCIIMarker : kUTF16Marker, text.size());
    auto end = m_values.size();
    m_values.resize(end + text.size() * (isNarrow ? 1 : 2));
    for (const auto unit : text) {
        if (!isNarrow)
            m_values[end++] = static_cast<char>(unit >> 8U);
        m_values[end++] = static_cast<char>(unit & 0xFFU);
    }
    return addValue(start);
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addASCII(std::string_view text)
{
    const auto start = m_values.size();
    appendMarker(m_values, kASCIIMarker, text.size());
    m_values.append(text);
    return addValue(start);
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addUID(std::uint64_t value)
{
    const auto start = m_values.size();
    const auto size = sizeFor(value);
    appendByte(m_values, kUIDMarker | static_cast<unsigned>(size - 1));
    appendBigEndian(m_values, value, size);
    return addValue(start);
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addArray(std::span<const Reference> elements)
{
    const Object array{m_contents.size(), elements.size(), 0, true, false};
    m_contents.insert(m_contents.end(), elements.begin(), elements.end());
    return addCollection(array);
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addDictionary(std::span<const Reference> keys,
                                                                            std::span<const Reference> values)
{
    const Object dictionary{m_contents.size(), keys.size(), 0, true, true};
    m_contents.insert(m_contents.end(), keys.begin(), keys.end());
    m_contents.insert(m_contents.end(), values.begin(), values.end());
    return addCollection(dictionary);
}

std::optional<std::string> BinaryPropertyListWriter::finish(Reference root) const
{
    constexpr std::size_t kMaximumObjectByteCount = 16; // Marker, count and offset.
    const auto referenceSize = sizeFor(m_objects.size() - 1);
    const auto bound
        = m_values.size() + m_contents.size() * referenceSize + m_objects.size() * kMaximumObjectByteCount;
    if (bound > kMaximumPropertyListByteCount)
        return std::nullopt;
    std::string bytes(kBinaryPropertyListStart);
    bytes.reserve(bound);
    std::vector<std::size_t> offsets;
    offsets.reserve(m_objects.size());
    for (const auto& object : m_objects) {
        offsets.push_back(bytes.size());
        if (!object.isCollection) {
            bytes.append(bytesOf(object));
            continue;
        }
        appendMarker(bytes, object.isDictionary ? kDictionaryMarker : kArrayMarker, object.count);
        const auto length = object.isDictionary ? 2 * object.count : object.count;
        for (const auto reference : std::span(m_contents).subspan(object.start, length))
            appendBigEndian(bytes, reference, referenceSize);
    }
    const auto tableOffset = bytes.size();
    const auto offsetSize = sizeFor(tableOffset);
    for (const auto offset : offsets)
        appendBigEndian(bytes, offset, offsetSize);
    bytes.append(6, '\0');
    appendByte(bytes, static_cast<unsigned>(offsetSize));
    appendByte(bytes, static_cast<unsigned>(referenceSize));
    appendBigEndian(bytes, m_objects.size(), 8);
    appendBigEndian(bytes, root, 8);
    appendBigEndian(bytes, tableOffset, 8);
    return bytes;
}
