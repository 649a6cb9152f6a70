#include "platform/search/SearchQuery.h"

#include "platform/foundation/Unicode.h"
#include "platform/search/CharacterTable.h"
#include "platform/search/Tokenizer.h"

#include <algorithm>
#include <vector>

namespace {

class TokenCounter final : public TokenSink {
public:
    bool token(std::string_view /*token*/, std::size_t /*start*/, std::size_t /*end*/,
               bool /*colocated*/) override
    {
        found = true;
        return false;
    }

    bool found = false;
};

bool isSpace(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

// Where no spaces tell words apart, what a person types may well end within one.
bool mayEndWithinAWord(std::string_view text)
{
    auto last = text.size();
    while (last > 0 && (static_cast<unsigned char>(text[last - 1]) & 0xC0U) == 0x80)
        --last;
    if (last == 0)
        return false;
    return CharacterTable::character(nextCodePoint(text, --last)).kind == CharacterKind::Dictionary;
}

bool isSpecial(char character)
{
    return character == '(' || character == ')' || character == '"' || isSpace(character);
}

enum class Kind { Term, Open, Close, And, Or, Not, End };

struct Lexeme {
    Kind kind = Kind::End;
    std::string_view text;
    bool prefix = false;
};

class Lexer {
public:
    explicit Lexer(std::string_view query)
        : m_query(query)
    {
        advance();
    }

    [[nodiscard]] const Lexeme& current() const { return m_current; }

    void advance() { m_current = next(); }

private:
    Lexeme next()
    {
        while (m_offset < m_query.size() && isSpace(m_query[m_offset]))
            ++m_offset;
        if (m_offset >= m_query.size())
            return {};
        switch (m_query[m_offset]) {
        case '(':
            ++m_offset;
            return {Kind::Open, {}, false};
        case ')':
            ++m_offset;
            return {Kind::Close, {}, false};
        case '"':
            return phrase();
        default:
            return word();
        }
    }

    Lexeme phrase()
    {
        const auto start = m_offset + 1;
        const auto end = std::min(m_query.find('"', start), m_query.size());
        m_offset = std::min(end + 1, m_query.size());
        const bool prefix = m_offset < m_query.size() && m_query[m_offset] == '*';
        if (prefix)
            ++m_offset;
        return {Kind::Term, m_query.substr(start, end - start), prefix};
    }

    Lexeme word()
    {
        const auto start = m_offset;
        while (m_offset < m_query.size() && !isSpecial(m_query[m_offset]))
            ++m_offset;
        const auto text = m_query.substr(start, m_offset - start);
        if (text == "AND")
            return {Kind::And, text, false};
        if (text == "OR")
            return {Kind::Or, text, false};
        if (text == "NOT")
            return {Kind::Not, text, false};
        return {Kind::Term, text, text.ends_with('*')};
    }

    std::string_view m_query;
    std::size_t m_offset = 0;
    Lexeme m_current;
};

// An expression, or nothing where the query had only punctuation.
using Expression = std::string;

class Parser {
public:
    explicit Parser(std::string_view query)
        : m_lexer(query)
    {
    }

    std::optional<std::string> parse(std::string& problem)
    {
        std::vector<Expression> parts;
        while (m_lexer.current().kind != Kind::End) {
            parts.push_back(alternatives(0));
            if (m_lexer.current().kind == Kind::Close)
                m_lexer.advance(); // A bracket that closes nothing.
        }
        auto whole = list(parts, " AND ");
        if (m_problem.empty() && whole.empty())
            m_problem = "there is no word to search for";
        problem = m_problem;
        return m_problem.empty() ? std::optional(std::move(whole)) : std::nullopt;
    }

private:
    // Operators of one kind stand in a flat list, which FTS5 takes at any length; brackets it nests only so
    // deep, so that none are spent on a single part.
    static Expression list(const std::vector<Expression>& parts, std::string_view with)
    {
        Expression text;
        std::size_t count = 0;
        for (const auto& part : parts) {
            if (part.empty())
                continue;
            text.append(count++ == 0 ? "" : with).append(part);
        }
        return count > 1 ? "(" + text + ")" : text;
    }

    Expression alternatives(std::size_t depth)
    {
        std::vector<Expression> parts{conjunction(depth)};
        while (m_lexer.current().kind == Kind::Or) {
            m_lexer.advance();
            parts.push_back(conjunction(depth));
        }
        return list(parts, " OR ");
    }

    Expression conjunction(std::size_t depth)
    {
        std::vector<Expression> wanted;
        std::vector<Expression> unwanted;
        for (auto kind = m_lexer.current().kind; kind != Kind::End && kind != Kind::Close && kind != Kind::Or;
             kind = m_lexer.current().kind) {
            if (kind == Kind::And) {
                m_lexer.advance();
                continue;
            }
            const bool exclude = kind == Kind::Not;
            if (exclude)
                m_lexer.advance();
            (exclude ? unwanted : wanted).push_back(operand(depth));
        }
        const auto without = list(unwanted, " OR ");
        const auto with = list(wanted, " AND ");
        if (with.empty() && !without.empty())
            fail("NOT needs something before it to exclude from");
        return without.empty() ? with : "(" + with + " NOT " + without + ")";
    }

    Expression operand(std::size_t depth)
    {
        const auto lexeme = m_lexer.current();
        if (lexeme.kind == Kind::Open) {
            m_lexer.advance();
            if (depth >= SearchQuery::kMaximumNesting) {
                fail("the query has too many brackets within brackets");
                return {};
            }
            auto inner = alternatives(depth + 1);
            if (m_lexer.current().kind == Kind::Close)
                m_lexer.advance();
            return inner;
        }
        if (lexeme.kind != Kind::Term)
            return {}; // An operator without its operand, as in "a NOT OR b": it is passed over.
        m_lexer.advance();
        return term(lexeme);
    }

    Expression term(const Lexeme& lexeme)
    {
        TokenCounter counter;
        (void)m_tokenizer.tokenize(lexeme.text, TokenizeFor::Query, counter); // Stopping is its answer.
        if (!counter.found)
            return {};
        if (++m_termCount > SearchQuery::kMaximumTermCount)
            fail("the query has too many words");
        Expression quoted = "\"";
        for (const char character : lexeme.text) {
            if (character != '\0')
                quoted += character;
        }
        quoted += '"';
        return lexeme.prefix || mayEndWithinAWord(lexeme.text) ? quoted + " *" : quoted;
    }

    void fail(const char* problem)
    {
        if (m_problem.empty())
            m_problem = problem;
    }

    Lexer m_lexer;
    Tokenizer m_tokenizer;
    std::string m_problem;
    std::size_t m_termCount = 0;
};

} // namespace

std::optional<std::string> SearchQuery::expressionFor(std::string_view query, std::string& problem)
{
    return Parser(query).parse(problem);
}
