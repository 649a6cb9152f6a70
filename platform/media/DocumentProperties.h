#pragma once

#include "platform/media/ContentReader.h"
#include "platform/media/XMLTextStream.h"

#include <cstddef>
#include <string>
#include <string_view>

/// Takes a document's description of itself (title, author, subject, keywords, description) into the sink's
/// fields. Office packages, OpenDocument and EPUB keep it in their own containers, but under the same Dublin
/// Core names. Other elements are ignored, so the handler may be given a whole file that holds a description
/// somewhere.
class DocumentProperties final : public XMLHandler {
public:
    explicit DocumentProperties(ContentSink& sink);

    void startElement(std::string_view localName, const XMLAttributes& attributes) override;
    void endElement(std::string_view localName) override;
    void text(std::string_view text) override;

private:
    ContentSink& m_sink;
    std::size_t m_depth = 0;
    /// The depth of the element that holds the description; 0 outside it.
    std::size_t m_containerDepth = 0;
    /// The depth of the property that is being read; 0 outside one.
    std::size_t m_propertyDepth = 0;
    std::size_t m_fieldCount = 0;
    std::string m_value;
};
