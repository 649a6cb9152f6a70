#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

class DictionaryBreaker;

/// Receives tokens in the order of the text.
class TokenSink {
public:
    virtual ~TokenSink() = default;
    /// `token` is folded UTF-8; `start` and `end` are byte offsets of what it stands for in the text. A
    /// colocated token is another form of the token before it, at the same position.
    /// @return false to stop.
    virtual bool token(std::string_view token, std::size_t start, std::size_t end, bool colocated) = 0;
};

enum class TokenizeFor {
    /// Every form of a word is given.
    Document,
    /// Only the most specific form is given: "C++" does not find every "C".
    Query,
};

/// Cuts text into the tokens that are indexed and searched. docs/search.md has the rules as a table.
///
/// Words of alphabets are runs of letters and digits. Each Chinese, Japanese or Korean character is a token,
/// so that any piece of a run is found as a phrase whether or not a dictionary has it; words of Thai, Lao,
/// Khmer and Burmese come from ICU's dictionaries. Any bytes are accepted, ill-formed UTF-8 separates words.
/// The time is linear in the text. One object belongs to one thread at a time.
class Tokenizer {
public:
    /// Longer words are cut, in documents and queries alike.
    static constexpr std::size_t kMaximumTokenByteCount = 128;

    Tokenizer();
    Tokenizer(const Tokenizer&) = delete;
    Tokenizer& operator=(const Tokenizer&) = delete;
    ~Tokenizer();

    /// @return false when the sink stopped it.
    bool tokenize(std::string_view text, TokenizeFor purpose, TokenSink& sink);

private:
    class Run;

    std::unique_ptr<DictionaryBreaker> m_breaker;
};
