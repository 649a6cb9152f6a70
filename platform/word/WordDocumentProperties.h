#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/media/XMLTextStream.h"

#include <cstddef>
#include <string>
#include <string_view>

/// Reads what a document says of itself, in either of the two parts that do, into document attributes, which
/// must outlive the handler.
class WordDocumentProperties final : public XMLHandler {
public:
    explicit WordDocumentProperties(NSAny::Dictionary& attributes)
        : m_attributes(attributes)
    {
    }

    void startElement(std::string_view localName, const XMLAttributes& attributes) override;
    void endElement(std::string_view localName) override;
    void text(std::string_view text) override;

private:
    NSAny::Dictionary& m_attributes;
    std::size_t m_depth = 0;
    std::string m_value;
};

/// The moment that "2024-05-01T10:20:30Z" names; nil for anything else.
[[nodiscard]] NSAny wordDate(std::string_view text);
