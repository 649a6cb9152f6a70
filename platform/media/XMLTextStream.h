#pragma once

#include "platform/media/ContentReader.h"
#include "platform/media/PartStatus.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

/// The attributes of the element that is being started. Views live as long as the call they were handed to.
class XMLAttributes {
public:
    XMLAttributes(const unsigned char* const* fields, std::size_t count)
        : m_fields(fields)
        , m_count(count)
    {
    }

    /// The value of the attribute with this local name, whatever its prefix; empty when there is none.
    [[nodiscard]] std::string_view value(std::string_view localName) const;
    /// The same, of an attribute that has a prefix: "r:id" beside "id".
    [[nodiscard]] std::string_view prefixedValue(std::string_view localName) const;

private:
    [[nodiscard]] std::string_view find(std::string_view localName, bool onlyPrefixed) const;

    const unsigned char* const* m_fields;
    std::size_t m_count;
};

/// Who wants to know what an XML part holds. Names come without their prefixes: the formats read here use no
/// local name in two meanings, but do change their prefixes and namespaces. Texts are UTF-8 and may come in
/// pieces.
class XMLHandler {
public:
    XMLHandler() = default;
    XMLHandler(const XMLHandler&) = delete;
    XMLHandler& operator=(const XMLHandler&) = delete;
    virtual ~XMLHandler() = default;

    virtual void startElement(std::string_view localName, const XMLAttributes& attributes) = 0;

    virtual void endElement(std::string_view) { }

    virtual void text(std::string_view) { }
};

/// Parses XML of any encoding as its bytes arrive, in constant memory. Never opens another file or address:
/// entities other than XML's own five are unknown, and using one is an error. Depth and time are bounded by
/// the sink's limits. What a handler throws comes out of `append` or `finish`.
class XMLTextStream {
public:
    /// Both must outlive the stream.
    XMLTextStream(XMLHandler& handler, ContentSink& sink);
    ~XMLTextStream();
    XMLTextStream(const XMLTextStream&) = delete;
    XMLTextStream& operator=(const XMLTextStream&) = delete;

    /// False when further bytes will not be looked at: after an error or at a limit.
    bool append(std::string_view bytes);
    /// Ends the stream. `Damaged` when the XML was not well-formed or not whole, `Cut` after a limit.
    [[nodiscard]] PartStatus finish();

private:
    class Parser;

    std::unique_ptr<Parser> m_parser;
};

/// Parses all of a source as XML. None when the file system refuses to give its bytes.
[[nodiscard]] std::optional<PartStatus> readXMLSource(const ContentSource& source, XMLHandler& handler,
                                                      ContentSink& sink);
