#pragma once

#include "platform/rtf/RTFByteDecoder.h"
#include "platform/rtf/RTFDestination.h"
#include "platform/rtf/RTFHandler.h"

#include <cstdint>
#include <string>
#include <string_view>

/// The characters of a document on their way to its handler: bytes that are to be decoded together, Unicode
/// characters, halves of characters that are written as two.
class RTFCollectedText {
public:
    /// The handler must outlive it.
    explicit RTFCollectedText(RTFHandler& handler)
        : m_handler(handler)
    {
    }

    /// Adds bytes in a code page, which go to `destination`.
    void appendBytes(std::string_view bytes, std::uint16_t codePage, RTFDestination destination);
    void appendCharacter(char32_t character, RTFDestination destination);
    /// Adds a UTF-16 unit. The first half of a pair waits for the second.
    void appendUnit(char16_t unit, RTFDestination destination);

    /// Gives what was added to the handler, before what is said about it changes. A first half goes on
    /// waiting.
    void flush(RTFDestination destination);
    /// The same with the first half, when no second one can come any more.
    void finish(RTFDestination destination);

private:
    void finishPair(RTFDestination destination);
    void give(RTFDestination destination);

    RTFHandler& m_handler;
    RTFByteDecoder m_decoder;
    /// UTF-8.
    std::string m_text;
    char16_t m_leadSurrogate = 0;
};
