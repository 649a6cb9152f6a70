#include "platform/foundation/BinaryPropertyList.h"

#include "platform/foundation/PropertyListLimits.h"
#include "platform/foundation/Unicode.h"

#include <bit>

namespace {

constexpr std::size_t kTrailerByteCount = 32;
constexpr std::uint8_t kLargestScalarByteCount = 16;
/// The count in a marker's low bits that says that an integer with the count follows.
constexpr std::uint8_t kCountFollows = 0x0F;

std::uint8_t byteAt(std::string_view data, std::size_t offset)
{
    return static_cast<std::uint8_t>(data[offset]);
}

std::uint64_t bigEndianNumber(std::string_view bytes)
{
    std::uint64_t number = 0;
    for (const char byte : bytes)
        number = number << 8U | static_cast<std::uint8_t>(byte);
    return number;
}

} // namespace

struct BinaryPropertyList::Trailer {
    std::size_t offsetSize = 0;
    std::size_t referenceSize = 0;
    std::uint64_t objectCount = 0;
    std::uint64_t root = 0;
    std::uint64_t tableOffset = 0;
};

/// Fills a list's table of objects and checks it. Functions return false when the data is malformed.
class BinaryPropertyList::Parser {
public:
    explicit Parser(BinaryPropertyList& list)
        : m_list(list)
        , m_data(list.m_data)
    {
    }

    [[nodiscard]] bool parse();

private:
    [[nodiscard]] bool readTrailer();
    [[nodiscard]] bool readObjects();
    [[nodiscard]] bool readObject(std::size_t offset, Object& object);
    [[nodiscard]] bool readSingle(std::uint8_t marker, Object& object) const;
    [[nodiscard]] bool readScalar(Kind kind, std::size_t size, std::size_t offset, Object& object);
    [[nodiscard]] bool readCounted(Kind kind, std::size_t unitSize, std::size_t offset, Object& object);
    [[nodiscard]] bool take(std::size_t start, std::size_t end);
    [[nodiscard]] bool checkReferences() const;

    BinaryPropertyList& m_list;
    std::string_view m_data;
    Trailer m_trailer;
    std::uint64_t m_taken = 0;
};

bool BinaryPropertyList::Parser::readTrailer()
{
    if (m_data.size() < kBinaryPropertyListStart.size() + kTrailerByteCount
        || m_data.size() > kMaximumPropertyListByteCount || !m_data.starts_with(kBinaryPropertyListStart))
        return false;
    const auto trailer = m_data.substr(m_data.size() - kTrailerByteCount);
    m_trailer.offsetSize = byteAt(trailer, 6);
    m_trailer.referenceSize = byteAt(trailer, 7);
    m_trailer.objectCount = bigEndianNumber(trailer.substr(8, 8));
    m_trailer.root = bigEndianNumber(trailer.substr(16, 8));
    m_trailer.tableOffset = bigEndianNumber(trailer.substr(24, 8));
    const auto isSize = [](std::size_t size) { return size >= 1 && size <= 8; };
    const auto end = m_data.size() - kTrailerByteCount;
    return isSize(m_trailer.offsetSize) && isSize(m_trailer.referenceSize)
        && m_trailer.tableOffset >= kBinaryPropertyListStart.size() && m_trailer.tableOffset <= end
        && m_trailer.objectCount <= (end - m_trailer.tableOffset) / m_trailer.offsetSize
        && m_trailer.root < m_trailer.objectCount;
}

/// Objects that lie apart fill no more bytes together than there are. So a small file cannot name one long
/// list a million times, each time as an object of its own.
bool BinaryPropertyList::Parser::take(std::size_t start, std::size_t end)
{
    m_taken += end - start;
    return end <= m_trailer.tableOffset && m_taken <= m_trailer.tableOffset - kBinaryPropertyListStart.size();
}

bool BinaryPropertyList::Parser::readSingle(std::uint8_t marker, Object& object) const
{
    constexpr std::uint8_t kNull = 0x00;
    constexpr std::uint8_t kFalse = 0x08;
    constexpr std::uint8_t kTrue = 0x09;
    object.kind = marker == kNull ? Kind::Null : Kind::Boolean;
    object.count = marker == kTrue ? 1 : 0;
    return marker == kNull || marker == kFalse || marker == kTrue;
}

bool BinaryPropertyList::Parser::readScalar(Kind kind, std::size_t size, std::size_t offset, Object& object)
{
    if (size > kLargestScalarByteCount)
        return false;
    object.kind = kind;
    object.count = static_cast<std::uint32_t>(size);
    object.offset = static_cast<std::uint32_t>(offset + 1);
    return take(offset, offset + 1 + size);
}

bool BinaryPropertyList::Parser::readCounted(Kind kind, std::size_t unitSize, std::size_t offset,
                                             Object& object)
{
    std::uint64_t count = byteAt(m_data, offset) & 0x0FU;
    auto payload = offset + 1;
    if (count == kCountFollows) {
        if (payload >= m_trailer.tableOffset || byteAt(m_data, payload) >> 4U != 1)
            return false;
        const auto size = std::size_t{1} << (byteAt(m_data, payload) & 0x0FU);
        ++payload;
        if (size > sizeof(std::uint64_t) || size > m_trailer.tableOffset - payload)
            return false;
        count = bigEndianNumber(m_data.substr(payload, size));
        payload += size;
    }
    if (count > (m_trailer.tableOffset - payload) / unitSize)
        return false;
    object.kind = kind;
    object.count = static_cast<std::uint32_t>(count);
    object.offset = static_cast<std::uint32_t>(payload);
    object.unitSize = static_cast<std::uint8_t>(unitSize);
    return take(offset, payload + count * unitSize);
}

bool BinaryPropertyList::Parser::readObject(std::size_t offset, Object& object)
{
    const auto marker = byteAt(m_data, offset);
    const auto low = static_cast<std::uint8_t>(marker & 0x0FU);
    switch (marker >> 4U) {
    case 0x0:
        return readSingle(marker, object) && take(offset, offset + 1);
    case 0x1:
        return readScalar(Kind::Integer, std::size_t{1} << low, offset, object);
    case 0x2:
        return (low == 2 || low == 3) && readScalar(Kind::Real, std::size_t{1} << low, offset, object);
    case 0x3:
        return low == 3 && readScalar(Kind::Date, sizeof(double), offset, object);
    case 0x4:
        return readCounted(Kind::Data, 1, offset, object);
    case 0x5:
        return readCounted(Kind::Text, 1, offset, object);
    case 0x6:
        return readCounted(Kind::Text, 2, offset, object);
    case 0x8:
        return readScalar(Kind::UID, low + std::size_t{1}, offset, object);
    case 0xA:
    case 0xB: // An ordered set and a set: lists without a form of their own here.
    case 0xC:
        return readCounted(Kind::Array, m_trailer.referenceSize, offset, object);
    case 0xD:
        return readCounted(Kind::Dictionary, 2 * m_trailer.referenceSize, offset, object);
    default:
        return false;
    }
}

bool BinaryPropertyList::Parser::readObjects()
{
    m_list.m_objects.resize(static_cast<std::size_t>(m_trailer.objectCount));
    auto entry = static_cast<std::size_t>(m_trailer.tableOffset);
    for (auto& object : m_list.m_objects) {
        const auto offset = bigEndianNumber(m_data.substr(entry, m_trailer.offsetSize));
        if (offset < kBinaryPropertyListStart.size() || offset >= m_trailer.tableOffset
            || !readObject(static_cast<std::size_t>(offset), object))
            return false;
        entry += m_trailer.offsetSize;
    }
    return true;
}

bool BinaryPropertyList::Parser::checkReferences() const
{
    for (const auto& object : m_list.m_objects) {
        if (object.kind != Kind::Array && object.kind != Kind::Dictionary)
            continue;
        const auto size = m_trailer.referenceSize;
        const auto count = object.count * std::size_t{object.kind == Kind::Dictionary ? 2U : 1U};
        for (std::size_t index = 0; index < count; ++index) {
            if (m_list.bigEndian(object.offset + index * size, size) >= m_trailer.objectCount)
                return false;
        }
    }
    return true;
}

bool BinaryPropertyList::Parser::parse()
{
    if (!readTrailer() || !readObjects() || !checkReferences())
        return false;
    m_list.m_root = static_cast<Reference>(m_trailer.root);
    m_list.m_referenceSize = static_cast<std::uint8_t>(m_trailer.referenceSize);
    return true;
}

std::optional<BinaryPropertyList> BinaryPropertyList::createWithData(std::string_view data, NSError* error)
{
    BinaryPropertyList list(data);
    if (Parser(list).parse())
        return list;
    setError(error,
             NSError::errorWithCode(NSCocoaError::PropertyListReadCorrupt,
                                    "The data is no well-formed binary property list."));
    return std::nullopt;
}

std::uint64_t BinaryPropertyList::bigEndian(std::size_t offset, std::size_t byteCount) const
{
    return bigEndianNumber(m_data.substr(offset, byteCount));
}

std::size_t BinaryPropertyList::count(Reference reference) const
{
    const auto& object = m_objects[reference];
    switch (object.kind) {
    case Kind::Data:
    case Kind::Text:
    case Kind::Array:
    case Kind::Dictionary:
        return object.count;
    default:
        return 0;
    }
}

std::size_t BinaryPropertyList::byteCount(Reference reference) const
{
    const auto& object = m_objects[reference];
    const bool hasBytes = object.kind == Kind::Data || object.kind == Kind::Text;
    return hasBytes ? std::size_t{object.count} * object.unitSize : 0;
}

/// Integers of one, two and four bytes have no sign, those of eight have one; sixteen hold what eight cannot.
NSAny BinaryPropertyList::integerValue(const Object& object) const
{
    constexpr double kTwoTo64 = 18446744073709551616.0;
    if (object.count <= sizeof(std::uint64_t))
        return static_cast<std::int64_t>(bigEndian(object.offset, object.count));
    const auto high = static_cast<std::int64_t>(bigEndian(object.offset, 8));
    const auto low = bigEndian(object.offset + 8, 8);
    const auto signOfLow = static_cast<std::int64_t>(low) < 0 ? -1 : 0;
    if (high == signOfLow)
        return static_cast<std::int64_t>(low);
    return static_cast<double>(high) * kTwoTo64 + static_cast<double>(low);
}

double BinaryPropertyList::realValue(const Object& object) const
{
    if (object.count == sizeof(float))
        return std::bit_cast<float>(static_cast<std::uint32_t>(bigEndian(object.offset, sizeof(float))));
    return std::bit_cast<double>(bigEndian(object.offset, sizeof(double)));
}

/// Texts of single bytes should be ASCII. Some writers put UTF-8 there; what is not even that is taken byte
/// for character, so that nothing is lost.
std::u16string BinaryPropertyList::textValue(const Object& object) const
{
    const auto bytes = m_data.substr(object.offset, std::size_t{object.count} * object.unitSize);
    std::u16string text;
    if (object.unitSize == 2) {
        text.resize(object.count);
        for (std::size_t index = 0; index < text.size(); ++index)
            text[index]
                = static_cast<char16_t>(byteAt(bytes, 2 * index) << 8U | byteAt(bytes, 2 * index + 1));
        return text;
    }
    if (!isASCII(bytes) && isValidUTF8(bytes))
        return UTF16FromUTF8(bytes);
    text.resize(bytes.size());
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char byte) { return static_cast<char16_t>(static_cast<std::uint8_t>(byte)); });
    return text;
}

NSAny BinaryPropertyList::value(Reference reference) const
{
    const auto& object = m_objects[reference];
    switch (object.kind) {
    case Kind::Boolean:
        return object.count != 0;
    case Kind::Integer:
        return integerValue(object);
    case Kind::Real:
        return realValue(object);
    case Kind::Date:
        return NSDate{realValue(object)};
    case Kind::Data:
        return NSData{std::string(m_data.substr(object.offset, object.count))};
    case Kind::Text:
        return textValue(object);
    default:
        return nullptr;
    }
}

std::optional<std::uint64_t> BinaryPropertyList::UIDValue(Reference reference) const
{
    const auto& object = m_objects[reference];
    if (object.kind != Kind::UID || object.count > sizeof(std::uint64_t))
        return std::nullopt;
    return bigEndian(object.offset, object.count);
}

BinaryPropertyList::Reference BinaryPropertyList::referenceAt(const Object& object, std::size_t index) const
{
    return static_cast<Reference>(bigEndian(object.offset + index * m_referenceSize, m_referenceSize));
}

BinaryPropertyList::Reference BinaryPropertyList::element(Reference array, std::size_t index) const
{
    return referenceAt(m_objects[array], index);
}

BinaryPropertyList::Reference BinaryPropertyList::key(Reference dictionary, std::size_t index) const
{
    return referenceAt(m_objects[dictionary], index);
}

BinaryPropertyList::Reference BinaryPropertyList::entryValue(Reference dictionary, std::size_t index) const
{
    return referenceAt(m_objects[dictionary], m_objects[dictionary].count + index);
}

bool BinaryPropertyList::isText(Reference reference, std::string_view ascii) const
{
    const auto& object = m_objects[reference];
    if (object.kind != Kind::Text || object.count != ascii.size())
        return false;
    if (object.unitSize == 1)
        return m_data.substr(object.offset, object.count) == ascii;
    for (std::size_t index = 0; index < ascii.size(); ++index) {
        if (bigEndian(object.offset + 2 * index, 2) != byteAt(ascii, index))
            return false;
    }
    return true;
}

std::optional<BinaryPropertyList::Reference> BinaryPropertyList::valueForKey(Reference dictionary,
                                                                             std::string_view name) const
{
    if (kind(dictionary) != Kind::Dictionary)
        return std::nullopt;
    for (std::size_t index = 0; index < count(dictionary); ++index) {
        if (isText(key(dictionary, index), name))
            return entryValue(dictionary, index);
    }
    return std::nullopt;
}
