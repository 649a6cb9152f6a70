#include "platform/media/XMLReader.h"

#include "platform/media/XMLTextStream.h"

namespace {

/// Nothing is known of the elements: they are taken to part words.
class CharacterDataHandler final : public XMLHandler {
public:
    explicit CharacterDataHandler(ContentSink& sink)
        : m_sink(sink)
    {
    }

    void startElement(std::string_view, const XMLAttributes&) override { m_sink.breakWord(); }

    void endElement(std::string_view) override { m_sink.breakWord(); }

    void text(std::string_view text) override
    {
        (void)m_sink.append(text);
    } // The stream asks the sink itself.

private:
    ContentSink& m_sink;
};

} // namespace

ReadResult readXML(const ContentSource& source, ContentSink& sink)
{
    CharacterDataHandler handler(sink);
    const auto status = readXMLSource(source, handler, sink);
    if (!status)
        return {ContentStatus::Unreadable, "the file cannot be read"};
    if (*status == PartStatus::Damaged)
        return {ContentStatus::Damaged, "the file is not well-formed XML"};
    return {};
}
