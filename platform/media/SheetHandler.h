#pragma once

#include "platform/media/ContentReader.h"
#include "platform/media/SharedStrings.h"
#include "platform/media/XMLTextStream.h"

#include <string>
#include <string_view>

/// Writes the rows of a worksheet to the sink: one line each, cells apart by tabs. Cells of errors and empty
/// cells are left out; numbers are written in full, without their formats.
class SheetHandler final : public XMLHandler {
public:
    /// Both must outlive the handler.
    SheetHandler(const SharedStrings& strings, ContentSink& sink);

    void startElement(std::string_view localName, const XMLAttributes& attributes) override;
    void endElement(std::string_view localName) override;
    void text(std::string_view text) override;

private:
    void putCell();
    [[nodiscard]] std::string_view cellText();

    const SharedStrings& m_strings;
    ContentSink& m_sink;
    std::string m_type;
    std::string m_value;
    bool m_isInValue = false;
    bool m_isInGuide = false;
};
