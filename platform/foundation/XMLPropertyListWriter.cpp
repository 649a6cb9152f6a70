#include "platform/foundation/Base64.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/foundation/PropertyListLimits.h"
#include "platform/foundation/Unicode.h"
#include "platform/foundation/XMLPropertyList.h"
#include "platform/foundation/XMLPropertyListScalars.h"

#include <fmt/format.h>

namespace {

constexpr std::string_view kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                   "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                   "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                   "<plist version=\"1.0\">\n";
constexpr std::string_view kTail = "</plist>\n";

bool isHighSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char16_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Whether XML has a way to say this text.
bool canStandInXML(std::u16string_view text)
{
    for (std::size_t index = 0; index < text.size(); ++index) {
        const auto unit = text[index];
        if (isHighSurrogate(unit) && index + 1 < text.size() && isLowSurrogate(text[index + 1])) {
            ++index;
            continue;
        }
        const bool isControl = unit < 0x20 && unit != u'\t' && unit != u'\n' && unit != u'\r';
        if (isControl || isHighSurrogate(unit) || isLowSurrogate(unit) || unit >= 0xFFFE)
            return false;
    }
    return true;
}

/// Writes values as indented lines. Functions return false when a value cannot be written.
class XMLWriter {
public:
    [[nodiscard]] bool write(const NSAny& value);

    [[nodiscard]] std::string_view reason() const { return m_reason; }

    [[nodiscard]] std::string take() { return std::move(m_text); }

private:
    bool fail(std::string_view reason);
    void line(std::string_view text);
    bool element(std::string_view name, std::string_view content);
    bool textElement(std::string_view name, std::u16string_view text);
    bool date(NSDate date);
    bool UID(std::uint64_t value);
    bool array(const NSAny::Array& array);
    bool dictionary(const NSAny::Dictionary& dictionary);
    bool collection(const NSAny& value);

    std::string m_text{kHead};
    unsigned m_depth = 0;
    std::string_view m_reason;
};

bool XMLWriter::fail(std::string_view reason)
{
    m_reason = reason;
    return false;
}

void XMLWriter::line(std::string_view text)
{
    m_text.append(m_depth, '\t');
    m_text.append(text);
    m_text.push_back('\n');
}

bool XMLWriter::element(std::string_view name, std::string_view content)
{
    if (m_text.size() + content.size() > kMaximumPropertyListByteCount)
        return fail("The property list is too large.");
    line(fmt::format("<{0}>{1}</{0}>", name, content));
    return true;
}

bool XMLWriter::textElement(std::string_view name, std::u16string_view text)
{
    if (!canStandInXML(text))
        return fail("A text holds what cannot stand in XML.");
    std::string escaped;
    for (const char character : UTF8FromUTF16(text)) {
        switch (character) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '\r': // Readers of XML make a line feed of it.
            escaped += "&#13;";
            break;
        default:
            escaped.push_back(character);
        }
    }
    return element(name, escaped);
}

bool XMLWriter::date(NSDate date)
{
    const auto text = propertyListTextWithDate(date);
    return text ? element("date", *text) : fail("A date is beyond the years that XML has.");
}

bool XMLWriter::UID(std::uint64_t value)
{
    line("<dict>");
    ++m_depth;
    line("<key>CF$UID</key>");
    line(fmt::format("<integer>{}</integer>", value));
    --m_depth;
    line("</dict>");
    return true;
}

bool XMLWriter::array(const NSAny::Array& array)
{
    line("<array>");
    ++m_depth;
    for (const auto& element : array) {
        if (!write(element))
            return false;
    }
    --m_depth;
    line("</array>");
    return true;
}

bool XMLWriter::dictionary(const NSAny::Dictionary& dictionary)
{
    line("<dict>");
    ++m_depth;
    for (const auto& [key, value] : dictionary) {
        if (!textElement("key", key) || !write(value))
            return false;
    }
    --m_depth;
    line("</dict>");
    return true;
}

bool XMLWriter::collection(const NSAny& value)
{
    if (m_depth >= kMaximumPropertyListDepth)
        return fail("The property list is nested too deeply.");
    if (m_text.size() > kMaximumPropertyListByteCount) // What is shared in memory is written out each time.
        return fail("The property list is too large.");
    return value.array() ? array(*value.array()) : dictionary(*value.dictionary());
}

bool XMLWriter::write(const NSAny& value)
{
    if (value.isBoolean()) {
        line(value.boolValue() ? "<true/>" : "<false/>");
        return true;
    }
    if (value.isInteger())
        return element("integer", fmt::format("{}", value.integerValue()));
    if (value.isReal())
        return element("real", propertyListTextWithReal(value.doubleValue()));
    if (const auto* text = value.string())
        return textElement("string", *text);
    if (const auto* data = value.data())
        return element("data", base64EncodedString(data->bytes));
    if (const auto moment = value.date())
        return date(*moment);
    if (const auto reference = value.object<NSKeyedArchiverUID>())
        return UID(reference->value());
    if (value.array() || value.dictionary())
        return collection(value);
    return fail(value.isNil() ? "A property list cannot hold nil."
                              : "A property list cannot hold an object.");
}

} // namespace

std::optional<std::string> XMLPropertyListWithValue(const NSAny& value, NSError* error)
{
    XMLWriter writer;
    if (writer.write(value))
        return writer.take() + std::string(kTail);
    setError(error, NSError::errorWithCode(NSCocoaError::PropertyListWriteInvalid, writer.reason()));
    return std::nullopt;
}
