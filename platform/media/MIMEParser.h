#pragma once

#include "platform/media/MIMEEntity.h"

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What one message may cost; an attached message shares its envelope's.
struct MIMEBudget {
    std::size_t entities = 0;
    std::size_t decodedBytes = 0;
};

/// Takes a message apart in one pass over its lines. Every line that starts with two dashes is compared with
/// the delimiters of all the multiparts around it, the innermost first, so that a part that was never closed
/// ends where its multipart ends.
class MIMEParser {
public:
    /// `decoded` gets the messages that have to be decoded before they can be read; it keeps them.
    MIMEParser(std::string_view bytes, MIMEBudget& budget, std::deque<std::string>& decoded,
               std::size_t depth);

    [[nodiscard]] MIMEEntity parseMessage();

private:
    /// The delimiter that ended what was read last.
    struct Delimiter {
        /// Where its line starts.
        std::size_t start = 0;
        /// Its place among the open multiparts, the outermost being 0.
        std::size_t level = 0;
        bool isLast = false;
    };

    enum class Kind {
        Message,
        Part,
    };

    [[nodiscard]] MIMEEntity parseEntity(Kind kind, std::string_view defaultType);
    void parseHeader(MIMEHeader& header, Kind kind);
    void skipEnvelope();
    [[nodiscard]] std::string_view readFieldValue();
    void parseBody(MIMEEntity& entity);
    void parseParts(MIMEEntity& entity);
    void parseEnclosedMessage(MIMEEntity& entity);
    void parseEncodedMessage(MIMEEntity& entity);
    /// Reads up to the next delimiter or the end.
    void readToDelimiter();
    /// What was read since `start`, without the delimiter that ended it.
    [[nodiscard]] std::string_view textSince(std::size_t start) const;

    [[nodiscard]] bool isAtEnd() const { return m_position >= m_bytes.size(); }

    [[nodiscard]] std::string_view currentLine() const;
    void nextLine();
    [[nodiscard]] std::optional<Delimiter> delimiterInCurrentLine() const;

    std::string_view m_bytes;
    MIMEBudget& m_budget;
    std::deque<std::string>& m_decoded;
    std::size_t m_depth;
    std::size_t m_position = 0;
    std::vector<std::string> m_boundaries;
    /// None at the end of the bytes.
    std::optional<Delimiter> m_delimiter;
};
