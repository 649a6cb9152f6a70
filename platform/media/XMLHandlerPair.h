#pragma once

#include "platform/media/XMLTextStream.h"

#include <string_view>

/// Hands everything to two handlers, which must outlive it: for formats whose one file holds text and
/// description.
class XMLHandlerPair final : public XMLHandler {
public:
    XMLHandlerPair(XMLHandler& first, XMLHandler& second)
        : m_first(first)
        , m_second(second)
    {
    }

    void startElement(std::string_view localName, const XMLAttributes& attributes) override
    {
        m_first.startElement(localName, attributes);
        m_second.startElement(localName, attributes);
    }

    void endElement(std::string_view localName) override
    {
        m_first.endElement(localName);
        m_second.endElement(localName);
    }

    void text(std::string_view text) override
    {
        m_first.text(text);
        m_second.text(text);
    }

private:
    XMLHandler& m_first;
    XMLHandler& m_second;
};
