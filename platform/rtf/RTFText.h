#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// An entry of an RTF document's own description.
struct RTFField {
    /// "title", "author", "subject", "keywords" or "description".
    std::string name;
    std::string value;
};

struct RTFTextResult {
    /// Whether the bytes begin as RTF does; there is no text if not.
    bool isRTF = false;
    /// Whether the outermost group was closed. What follows it is not looked at.
    bool isComplete = false;
    std::vector<RTFField> fields;
};

/// Takes the next piece of the text, UTF-8; false stops the reading.
using RTFTextReceiver = std::function<bool(std::string_view)>;

/// Gives the text of an RTF document without its formatting: paragraphs and cells end in line feeds; headers,
/// footers, footnotes, text boxes and list markers are part of it; hidden text, field codes, comments,
/// pictures and embedded objects are not. Any bytes may come in: groups may nest without limit, the time is
/// linear in the length, and memory beyond the bytes themselves is small.
[[nodiscard]] RTFTextResult readRTFText(std::string_view bytes, const RTFTextReceiver& receiver);
