#include "platform/search/Tokenizer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// Tokens with a bar between them; a colocated one stands behind an equals sign.
class Printer final : public TokenSink {
public:
    bool token(std::string_view token, std::size_t /*start*/, std::size_t /*end*/, bool colocated) override
    {
        if (!printed.empty())
            printed += colocated ? '=' : '|';
        printed += token;
        return true;
    }

    std::string printed;
};

std::string tokens(std::string_view text, TokenizeFor purpose = TokenizeFor::Document)
{
    Printer printer;
    Tokenizer tokenizer;
    EXPECT_TRUE(tokenizer.tokenize(text, purpose, printer));
    return printer.printed;
}

struct Row {
    const char* what;
    std::string_view text;
    std::string_view document;
    /// As in a document where empty.
    std::string_view query = {};
};

class TokenTable : public testing::TestWithParam<Row> { };

TEST_P(TokenTable, GivesTheseTokens)
{
    const auto& row = GetParam();
    EXPECT_EQ(tokens(row.text), row.document);
    EXPECT_EQ(tokens(row.text, TokenizeFor::Query), row.query.empty() ? row.document : row.query);
}

// docs/search.md shows the same table.
INSTANTIATE_TEST_SUITE_P(
    Documented, TokenTable,
    testing::Values(
        Row{"CPlusPlus", "C++ code", "c=c++|code", "c++|code"},
        Row{"CSharp", "C# code", "c=c#|code", "c#|code"},
        Row{"Tag", "a #tag here", "a|tag=#tag|here", "a|#tag|here"},
        Row{"Address", "user@host.org", "user|host|org"}, Row{"Version", "1.2.3", "1|2|3"},
        Row{"Apostrophe", "it's", "it|s"}, Row{"TypographicApostrophe", "it’s", "it|s"},
        Row{"Hyphen", "a-b", "a|b"}, Row{"Underscore", "foo_bar", "foo|bar"},
        Row{"CamelCase", "camelCase", "camelcase"},
        Row{"URL", "https://example.com/a?b=c#d", "https|example|com|a|b|c|d"},
        Row{"Phone", "+49 (0)30 1234-567", "49|0|30|1234|567"}, Row{"Date", "2024-05-01", "2024|05|01"},
        Row{"SoftHyphen", "co\u00ADoperate", "cooperate"}, Row{"Ligature", "ﬁne oﬃce", "fine|office"},
        Row{"ZeroWidthJoiners", "zw\u200Cn\u200Dj", "zwnj"},
        Row{"ZeroWidthSpace", "zero\u200Bwidth", "zero|width"}, Row{"ByteOrderMark", "\uFEFFtext", "text"}),
    [](const auto& row) { return std::string(row.param.what); });

INSTANTIATE_TEST_SUITE_P(
    Folding, TokenTable,
    testing::Values(Row{"Accents", "Naïve Übung é e\u0301", "naive|ubung|e|e"},
                    Row{"LettersThatDoNotDecompose", "Straße Łódź Søren Æther Œuvre",
                        "strasse|lodz|soren|aether|oeuvre"},
                    Row{"MoreOfThem", "Đ ð Þ ħ ı ŧ ŋ", "d|d|th|h|i|t|n"},
                    Row{"CapitalSharpS", "GROẞ", "gross"}, Row{"Width", "ＡＢＣ１２３", "abc123"},
                    Row{"Greek", "Ἀθῆναι ΌΣΟΣ", "αθηναι|οσοσ"}, Row{"Cyrillic", "Ёлка йод", "елка|иод"},
                    Row{"ArabicVowels", "كِتَاب كتـاب", "كتاب|كتاب"}, Row{"HebrewPoints", "שָׁלוֹם", "שלום"},
                    Row{"IndianVowelSignsStay", "हिन्दी", "हिन्दी"}, Row{"Styled", "𝐀𝐁𝐜", "abc"},
                    Row{"Superscript", "x² ½", "x2|12"}, Row{"TurkishDottedI", "İstanbul", "istanbul"}),
    [](const auto& row) { return std::string(row.param.what); });

INSTANTIATE_TEST_SUITE_P(
    EastAsian, TokenTable,
    testing::Values(Row{"EveryCharacter", "東京都", "東|京|都"},
                    Row{"GluedLatin", "漢abc字12", "漢|abc|字|12"}, Row{"Kana", "ひらカタ", "ひ|ら|カ|タ"},
                    Row{"ProlongedSound", "サーバ", "サ|ー|バ"}, Row{"HalfWidthKana", "ﾊﾞｽ ﾊﾟ", "バ|ス|パ"},
                    Row{"DecomposedKana", "は\u3099", "ば"}, Row{"Hangul", "한국어", "한|국|어"},
                    Row{"DecomposedHangul", "\u1112\u1161\u11AB\u1100\u116E\u11A8", "한|국"},
                    Row{"Squared", "㍿", "株|式|会|社"}, Row{"BeyondTheFirstPlane", "𠮷野家", "𠮷|野|家"},
                    Row{"Repetition", "人々", "人|々"}, Row{"Thai", "ภาษาไทยง่าย", "ภาษา|ไทย|ง่าย"},
                    Row{"Punctuation", "「東」、京。", "東|京"}, Row{"Emoji", "pizza🍕time", "pizza|🍕|time"}),
    [](const auto& row) { return std::string(row.param.what); });

INSTANTIATE_TEST_SUITE_P(Signs, TokenTable,
                         testing::Values(Row{"LoneSigns", "+ ++ # ## - *", ""},
                                         Row{"ThreePlus", "a+++b", "a|b"}, Row{"PlusBetween", "a++b", "a|b"},
                                         Row{"HeadingIsNoTag", "## Heading", "heading"},
                                         Row{"CharacterReference", "&#123;", "123"},
                                         Row{"TagWithHyphen", "#to-do", "to=#to|do", "#to|do"},
                                         Row{"TagOfIdeographs", "#日本", "日|本"},
                                         Row{"NotePlusPlus", "Notepad++.", "notepad=notepad++", "notepad++"}),
                         [](const auto& row) { return std::string(row.param.what); });

TEST(Tokenizer, ReplacesIllFormedBytes)
{
    EXPECT_EQ(tokens("a\xFF"
                     "b\xC3(c\xED\xA0\x80"
                     "d"),
              "a|b|c|d");
    EXPECT_EQ(tokens(std::string_view("alpha\0beta", 10)), "alpha|beta");
    EXPECT_EQ(tokens("cut\xE6\x9D"), "cut");
}

TEST(Tokenizer, CutsLongWordsAlikeInDocumentsAndQueries)
{
    const std::string longWord(100'000, 'a');
    const auto cut = tokens(longWord);
    EXPECT_EQ(cut.size(), Tokenizer::kMaximumTokenByteCount);
    EXPECT_EQ(tokens(longWord, TokenizeFor::Query), cut);
    std::string accented = "a"; // Of odd length, so that the cut falls within a character.
    for (int count = 0; count < 1000; ++count)
        accented += "я";
    EXPECT_EQ(tokens(accented).size(), Tokenizer::kMaximumTokenByteCount - 1);
}

TEST(Tokenizer, TellsWhereTokensStand)
{
    class Offsets final : public TokenSink {
    public:
        bool token(std::string_view /*token*/, std::size_t start, std::size_t end,
                   bool /*colocated*/) override
        {
            places.emplace_back(start, end);
            return true;
        }

        std::vector<std::pair<std::size_t, std::size_t>> places;
    } offsets;

    Tokenizer tokenizer;
    ASSERT_TRUE(tokenizer.tokenize("é x 東京 C++", TokenizeFor::Query, offsets));
    using Places = std::vector<std::pair<std::size_t, std::size_t>>;
    EXPECT_EQ(offsets.places, (Places{{0, 2}, {3, 4}, {5, 8}, {8, 11}, {12, 15}}));
}

TEST(Tokenizer, StopsWhenTheSinkDoes)
{
    class Stopper final : public TokenSink {
    public:
        bool token(std::string_view /*token*/, std::size_t /*start*/, std::size_t /*end*/,
                   bool /*colocated*/) override
        {
            return ++count < 2;
        }

        int count = 0;
    } stopper;

    Tokenizer tokenizer;
    EXPECT_FALSE(tokenizer.tokenize("one two three", TokenizeFor::Document, stopper));
    EXPECT_EQ(stopper.count, 2);
}

} // namespace
