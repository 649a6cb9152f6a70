#include "platform/media/XMLTextStream.h"

#include "platform/media/SourceBytes.h"

#include <libxml/parser.h>

#include <algorithm>
#include <exception>
#include <mutex>
#include <new>
#include <span>
#include <string>
#include <utility>

namespace {

constexpr std::size_t kChunkByteCount = 16384;
/// Bytes before the outermost element. The library reads a document type anew with every chunk until it ends.
constexpr std::size_t kPrologByteLimit = std::size_t{256} << 10;
/// libxml2 hands attributes over as five pointers each: local name, prefix, namespace, start and end of the
/// value.
constexpr std::size_t kFieldsPerAttribute = 5;

struct ContextCloser {
    void operator()(xmlParserCtxt* context) const
    {
        xmlFreeDoc(context->myDoc); // Made for a document type's declarations even where no tree is built.
        xmlFreeParserCtxt(context);
    }
};

std::string_view viewOf(const xmlChar* name)
{
    return reinterpret_cast<const char*>(name);
}

std::string_view viewOf(const xmlChar* start, const xmlChar* end)
{
    return {reinterpret_cast<const char*>(start), static_cast<std::size_t>(end - start)};
}

} // namespace

std::string_view XMLAttributes::value(std::string_view localName) const
{
    return find(localName, false);
}

std::string_view XMLAttributes::prefixedValue(std::string_view localName) const
{
    return find(localName, true);
}

std::string_view XMLAttributes::find(std::string_view localName, bool onlyPrefixed) const
{
    for (std::size_t index = 0; index < m_count; ++index) {
        const std::span fields(m_fields + index * kFieldsPerAttribute, kFieldsPerAttribute);
        if (viewOf(fields[0]) == localName && (!onlyPrefixed || fields[1]))
            return viewOf(fields[3], fields[4]);
    }
    return {};
}

class XMLTextStream::Parser {
public:
    Parser(XMLHandler& handler, ContentSink& sink);

    [[nodiscard]] bool append(std::string_view bytes);
    [[nodiscard]] PartStatus finish();

private:
    static void onStart(void* self, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
                        int namespaceCount, const xmlChar** namespaces, int attributeCount,
                        int defaultedCount, const xmlChar** attributes);
    static void onEnd(void* self, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri);
    static void onText(void* self, const xmlChar* text, int byteCount);

    template <typename Call> void guarded(const Call& call);
    [[nodiscard]] bool parse(std::string_view bytes, bool isLast);
    void rethrow();
    void stop();

    XMLHandler& m_handler;
    ContentSink& m_sink;
    std::unique_ptr<xmlParserCtxt, ContextCloser> m_context;
    std::exception_ptr m_exception;
    std::size_t m_depth = 0;
    std::size_t m_prologByteCount = 0;
    bool m_hasRoot = false;
    bool m_isCut = false;
    bool m_isOver = false;
};

XMLTextStream::Parser::Parser(XMLHandler& handler, ContentSink& sink)
    : m_handler(handler)
    , m_sink(sink)
{
    xmlSAXHandler callbacks{};
    callbacks.initialized = XML_SAX2_MAGIC;
    callbacks.startElementNs = onStart;
    callbacks.endElementNs = onEnd;
    callbacks.characters = onText;
    callbacks.ignorableWhitespace = onText;
    // The library's own first use is not safe on two threads at once.
    static std::once_flag initialised;
    std::call_once(initialised, xmlInitParser);
    m_context.reset(xmlCreatePushParserCtxt(&callbacks, this, nullptr, 0, nullptr));
    if (!m_context)
        throw std::bad_alloc();
    // Without substitution an ampersand in an attribute would stay escaped; as no callback looks declared
    // entities up, only the predefined ones are ever substituted.
    (void)xmlCtxtUseOptions(
        m_context.get(), // What it returns are the options it does not know; it knows these.
        XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
}

bool XMLTextStream::Parser::append(std::string_view bytes)
{
    while (!bytes.empty() && !m_isOver) {
        const auto chunk = bytes.substr(0, kChunkByteCount);
        bytes.remove_prefix(chunk.size());
        m_prologByteCount += m_hasRoot ? 0 : chunk.size();
        if (m_sink.isFull())
            stop();
        else if (m_prologByteCount > kPrologByteLimit)
            m_isOver = true;
        else
            m_isOver = !parse(chunk, false) || m_isOver;
    }
    return !m_isOver;
}

PartStatus XMLTextStream::Parser::finish()
{
    const bool isWhole = !m_isOver && parse({}, true);
    if (m_isCut || m_sink.isFull())
        return PartStatus::Cut;
    return isWhole ? PartStatus::Read : PartStatus::Damaged;
}

bool XMLTextStream::Parser::parse(std::string_view bytes, bool isLast)
{
    (void)xmlParseChunk(m_context.get(), bytes.data(), static_cast<int>(bytes.size()), isLast ? 1 : 0);
    rethrow();
    // The error that it returns may be a mere warning of the namespace rules.
    return m_context->wellFormed != 0;
}

void XMLTextStream::Parser::rethrow()
{
    if (m_exception)
        std::rethrow_exception(std::exchange(m_exception, nullptr));
}

void XMLTextStream::Parser::stop()
{
    m_isCut = true;
    m_isOver = true;
    xmlStopParser(m_context.get());
}

template <typename Call> void XMLTextStream::Parser::guarded(const Call& call)
{
    if (m_isOver)
        return;
    try {
        call();
    } catch (...) {
        m_exception = std::current_exception();
        stop();
    }
}

void XMLTextStream::Parser::onStart(void* self, const xmlChar* name, const xmlChar*, const xmlChar*, int,
                                    const xmlChar**, int attributeCount, int, const xmlChar** attributes)
{
    auto& parser = *static_cast<Parser*>(self);
    parser.guarded([&] {
        parser.m_hasRoot = true;
        if (++parser.m_depth > parser.m_sink.limits().nesting) {
            parser.m_sink.noteCut("a part was cut at the limit of its nesting");
            parser.stop();
            return;
        }
        const auto count = static_cast<std::size_t>(std::max(attributeCount, 0));
        parser.m_handler.startElement(viewOf(name), XMLAttributes(attributes, count));
    });
}

void XMLTextStream::Parser::onEnd(void* self, const xmlChar* name, const xmlChar*, const xmlChar*)
{
    auto& parser = *static_cast<Parser*>(self);
    parser.guarded([&] {
        --parser.m_depth;
        parser.m_handler.endElement(viewOf(name));
    });
}

void XMLTextStream::Parser::onText(void* self, const xmlChar* text, int byteCount)
{
    auto& parser = *static_cast<Parser*>(self);
    parser.guarded([&] { parser.m_handler.text(viewOf(text, text + byteCount)); });
}

XMLTextStream::XMLTextStream(XMLHandler& handler, ContentSink& sink)
    : m_parser(std::make_unique<Parser>(handler, sink))
{
}

XMLTextStream::~XMLTextStream() = default;

bool XMLTextStream::append(std::string_view bytes)
{
    return m_parser->append(bytes);
}

PartStatus XMLTextStream::finish()
{
    return m_parser->finish();
}

std::optional<PartStatus> readXMLSource(const ContentSource& source, XMLHandler& handler, ContentSink& sink)
{
    const auto bytes = SourceBytes::open(source);
    if (!bytes)
        return std::nullopt;
    XMLTextStream stream(handler, sink);
    std::string buffer(kChunkByteCount, '\0');
    const auto end = std::min<std::uint64_t>(bytes->byteCount(), sink.limits().expandedBytes);
    for (std::uint64_t offset = 0; offset < end; offset += kChunkByteCount) {
        const auto count = bytes->readAt(offset, buffer);
        if (!count)
            return std::nullopt;
        if (!stream.append(std::string_view(buffer).substr(0, *count)))
            break;
    }
    if (end < bytes->byteCount())
        sink.noteCut("the file was cut at its size limit");
    return end < bytes->byteCount() ? PartStatus::Cut : stream.finish();
}
