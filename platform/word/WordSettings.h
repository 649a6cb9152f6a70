#pragma once

#include "platform/media/XMLTextStream.h"
#include "platform/word/WordValues.h"

/// What a document's settings say of its text.
struct WordSettings {
    /// Where tabs stop that no paragraph sets, in points.
    double tabInterval = 36;
};

/// Reads a settings part. The settings must outlive the handler.
class WordSettingsHandler final : public XMLHandler {
public:
    explicit WordSettingsHandler(WordSettings& settings)
        : m_settings(settings)
    {
    }

    void startElement(std::string_view localName, const XMLAttributes& attributes) override
    {
        const auto interval
            = localName == "defaultTabStop" ? wordLength(attributes.value("val")) : std::nullopt;
        if (interval && *interval > 0)
            m_settings.tabInterval = *interval;
    }

private:
    WordSettings& m_settings;
};
