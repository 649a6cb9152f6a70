#include "platform/foundation/Base64.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/foundation/PropertyListLimits.h"
#include "platform/foundation/TextEncoding.h"
#include "platform/foundation/Unicode.h"
#include "platform/foundation/XMLPropertyList.h"
#include "platform/foundation/XMLPropertyListScalars.h"

#include <libxml/parserInternals.h>

#include <array>
#include <exception>
#include <memory>
#include <mutex>

namespace {

constexpr std::u16string_view kUIDKey = u"CF$UID";

enum class Tag { List, Array, Dictionary, Key, Text, Data, Date, Integer, Real, True, False };

struct TagName {
    std::string_view name;
    Tag tag;
};

constexpr std::array kTagNames{
    TagName{"plist", Tag::List}, TagName{"array", Tag::Array},     TagName{"dict", Tag::Dictionary},
    TagName{"key", Tag::Key},    TagName{"string", Tag::Text},     TagName{"data", Tag::Data},
    TagName{"date", Tag::Date},  TagName{"integer", Tag::Integer}, TagName{"real", Tag::Real},
    TagName{"true", Tag::True},  TagName{"false", Tag::False},
};

std::optional<Tag> tagNamed(std::string_view name)
{
    for (const auto& known : kTagNames) {
        if (known.name == name)
            return known.tag;
    }
    return std::nullopt;
}

bool isContainer(Tag tag)
{
    return tag == Tag::List || tag == Tag::Array || tag == Tag::Dictionary;
}

/// Builds the value from the parser's events. The first thing that is wrong is kept as the reason, and
/// everything behind it is passed over.
class ValueBuilder {
public:
    void start(std::string_view name);
    void text(std::string_view text);
    void end();
    void fail(std::string_view reason);

    [[nodiscard]] bool hasFailed() const { return !m_reason.empty(); }

    [[nodiscard]] const std::string& reason() const { return m_reason; }

    [[nodiscard]] const NSAny& value() const { return m_value; }

private:
    /// An element whose end is to come.
    struct Level {
        Tag tag;
        NSAny::Array array{};
        NSAny::Dictionary dictionary{};
        std::optional<std::u16string> key{};
    };

    [[nodiscard]] static std::optional<NSAny> scalar(Tag tag, const std::string& text);
    [[nodiscard]] static NSAny dictionaryOrUID(NSAny::Dictionary dictionary);
    void endContainer(Level level);
    void endScalar(Tag tag);
    void put(NSAny value);

    std::vector<Level> m_levels;
    std::string m_text;
    NSAny m_value;
    std::string m_reason;
};

void ValueBuilder::fail(std::string_view reason)
{
    if (m_reason.empty())
        m_reason = reason;
}

void ValueBuilder::start(std::string_view name)
{
    const auto tag = tagNamed(name);
    if (!tag)
        return fail("It has an element that property lists do not know.");
    if (m_levels.size() > kMaximumPropertyListDepth)
        return fail("It is nested too deeply.");
    if (m_levels.empty() != (*tag == Tag::List) || (!m_levels.empty() && !isContainer(m_levels.back().tag)))
        return fail("An element is out of place.");
    m_text.clear();
    m_levels.push_back(Level{*tag});
}

void ValueBuilder::text(std::string_view text)
{
    if (m_levels.empty())
        return;
    if (!isContainer(m_levels.back().tag))
        m_text.append(text);
    else if (text.find_first_not_of(" \t\r\n") != std::string_view::npos)
        fail("There is text between elements.");
}

std::optional<NSAny> ValueBuilder::scalar(Tag tag, const std::string& text)
{
    switch (tag) {
    case Tag::Text:
        return NSAny(UTF16FromUTF8(text));
    case Tag::Data: {
        auto bytes = bytesFromBase64(text);
        return bytes ? std::optional(NSAny(NSData{std::move(*bytes)})) : std::nullopt;
    }
    case Tag::Date: {
        const auto date = dateFromPropertyListText(text);
        return date ? std::optional(NSAny(*date)) : std::nullopt;
    }
    case Tag::Integer:
        return integerFromPropertyListText(text);
    case Tag::Real: {
        const auto real = realFromPropertyListText(text);
        return real ? std::optional(NSAny(*real)) : std::nullopt;
    }
    default:
        return NSAny(tag == Tag::True);
    }
}

NSAny ValueBuilder::dictionaryOrUID(NSAny::Dictionary dictionary)
{
    const auto entry = dictionary.find(kUIDKey);
    if (dictionary.size() == 1 && entry != dictionary.end() && entry->second.isInteger()
        && entry->second.integerValue() >= 0)
        return std::make_shared<const NSKeyedArchiverUID>(
            static_cast<std::uint64_t>(entry->second.integerValue()));
    return dictionary;
}

void ValueBuilder::put(NSAny value)
{
    auto& level = m_levels.back();
    if (level.tag == Tag::Array) {
        level.array.push_back(std::move(value));
    } else if (level.tag == Tag::List) {
        if (m_value)
            return fail("It holds more than one value.");
        m_value = std::move(value);
    } else {
        if (!level.key)
            return fail("A dictionary has a value without a key.");
        level.dictionary.insert_or_assign(std::move(*level.key), std::move(value));
        level.key.reset();
    }
}

void ValueBuilder::endContainer(Level level)
{
    if (level.tag == Tag::List)
        return;
    if (level.key)
        return fail("A dictionary has a key without a value.");
    if (level.tag == Tag::Array)
        put(std::move(level.array));
    else
        put(dictionaryOrUID(std::move(level.dictionary)));
}

void ValueBuilder::endScalar(Tag tag)
{
    if (tag == Tag::Key) {
        auto& level = m_levels.back();
        if (level.tag != Tag::Dictionary || level.key)
            return fail("A key is out of place.");
        level.key = UTF16FromUTF8(m_text);
    } else if (auto value = scalar(tag, m_text)) {
        put(std::move(*value));
    } else {
        fail("A number, date or data is malformed.");
    }
    m_text.clear();
}

void ValueBuilder::end()
{
    auto level = std::move(m_levels.back());
    m_levels.pop_back();
    if (isContainer(level.tag))
        endContainer(std::move(level));
    else
        endScalar(level.tag);
}

/// libxml2's callbacks on one builder. Exceptions wait until the C code is left.
class XMLParser {
public:
    explicit XMLParser(ValueBuilder& builder)
        : m_builder(builder)
    {
    }

    /// Whether the text is well-formed and the builder took all of it.
    [[nodiscard]] bool parse(std::string_view xml);

private:
    struct ContextCloser {
        void operator()(xmlParserCtxt* context) const
        {
            xmlFreeDoc(
                context->myDoc); // Made for a document type's declarations even where no tree is built.
            xmlFreeParserCtxt(context);
        }
    };

    static void onStart(void* self, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
                        int namespaceCount, const xmlChar** namespaces, int attributeCount,
                        int defaultedCount, const xmlChar** attributes);
    static void onEnd(void* self, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri);
    static void onText(void* self, const xmlChar* text, int byteCount);
    static void onEntity(void* self, const xmlChar* name);
    template <typename Call> void guarded(const Call& call);

    ValueBuilder& m_builder;
    std::unique_ptr<xmlParserCtxt, ContextCloser> m_context;
    std::exception_ptr m_exception;
};

template <typename Call> void XMLParser::guarded(const Call& call)
{
    if (m_builder.hasFailed() || m_exception)
        return;
    try {
        call();
    } catch (...) {
        m_exception = std::current_exception();
    }
    if (m_builder.hasFailed() || m_exception)
        xmlStopParser(m_context.get());
}

void XMLParser::onStart(void* self, const xmlChar* name, const xmlChar* /*prefix*/, const xmlChar* /*uri*/,
                        int /*namespaceCount*/, const xmlChar** /*namespaces*/, int /*attributeCount*/,
                        int /*defaultedCount*/, const xmlChar** /*attributes*/)
{
    auto& parser = *static_cast<XMLParser*>(self);
    parser.guarded([&] { parser.m_builder.start(reinterpret_cast<const char*>(name)); });
}

void XMLParser::onEnd(void* self, const xmlChar* /*name*/, const xmlChar* /*prefix*/, const xmlChar* /*uri*/)
{
    auto& parser = *static_cast<XMLParser*>(self);
    parser.guarded([&] { parser.m_builder.end(); });
}

void XMLParser::onText(void* self, const xmlChar* text, int byteCount)
{
    auto& parser = *static_cast<XMLParser*>(self);
    parser.guarded([&] {
        parser.m_builder.text({reinterpret_cast<const char*>(text), static_cast<std::size_t>(byteCount)});
    });
}

/// Only entities that the text declares itself, or does not declare at all, come here: property lists need
/// none, and declared ones are a way to make a small file large.
void XMLParser::onEntity(void* self, const xmlChar* /*name*/)
{
    auto& parser = *static_cast<XMLParser*>(self);
    parser.guarded([&] { parser.m_builder.fail("It uses an entity of its own."); });
}

bool XMLParser::parse(std::string_view xml)
{
    static std::once_flag initialised;
    std::call_once(initialised, xmlInitParser);
    if (xml.empty() || xml.size() > kMaximumPropertyListByteCount)
        return false;
    m_context.reset(xmlCreateMemoryParserCtxt(xml.data(), static_cast<int>(xml.size())));
    if (!m_context)
        return false;
    xmlSAXHandler handler{};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startElementNs = onStart;
    handler.endElementNs = onEnd;
    handler.characters = onText;
    handler.ignorableWhitespace = onText;
    handler.cdataBlock = onText;
    handler.reference = onEntity;
    *m_context->sax = handler;
    m_context->userData = this;
    // The size of a text is bounded above, and the depth by the builder.
    xmlCtxtUseOptions(m_context.get(), XML_PARSE_NONET | XML_PARSE_HUGE | XML_PARSE_IGNORE_ENC);
    const bool isWellFormed = xmlParseDocument(m_context.get()) == 0;
    if (m_exception)
        std::rethrow_exception(m_exception);
    return isWellFormed && !m_builder.hasFailed();
}

/// The text in UTF-8. None when its encoding is in doubt. libxml2 is left no encoding to convert: it writes
/// to standard error when bytes do not fit the one they declare.
std::optional<std::string> UTF8OfXML(std::string_view xml)
{
    const auto encoding = sureTextEncodingForBytes(xml);
    auto text = encoding ? decodedText(xml, encoding->name) : std::nullopt;
    return text && text->find('\0') == std::string::npos ? text : std::nullopt;
}

} // namespace

NSAny valueOfXMLPropertyList(std::string_view xml, NSError* error)
{
    ValueBuilder builder;
    const auto text = UTF8OfXML(xml);
    if (text && XMLParser(builder).parse(*text) && builder.value())
        return builder.value();
    const auto reason = builder.hasFailed() ? builder.reason() : "It is no well-formed XML.";
    setError(error,
             NSError::errorWithCode(NSCocoaError::PropertyListReadCorrupt,
                                    "The property list is damaged. " + reason));
    return nullptr;
}
