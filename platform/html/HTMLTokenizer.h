#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

struct HTMLAttribute {
    /// In lower case.
    std::string name;
    /// With its references decoded. Cut at 4 KB.
    std::string value;
};

struct HTMLTag {
    /// In lower case.
    std::string name;
    std::vector<HTMLAttribute> attributes;
    bool isEnd = false;
    bool isSelfClosing = false;

    /// The value of an attribute; empty when there is none.
    [[nodiscard]] std::string_view attribute(std::string_view attributeName) const;
    [[nodiscard]] bool hasAttribute(std::string_view attributeName) const;
};

/// Who wants to know what a page holds. Texts may come in pieces, which end between characters.
class HTMLTokenHandler {
public:
    HTMLTokenHandler() = default;
    HTMLTokenHandler(const HTMLTokenHandler&) = delete;
    HTMLTokenHandler& operator=(const HTMLTokenHandler&) = delete;
    virtual ~HTMLTokenHandler() = default;

    virtual void text(std::string_view text) = 0;
    virtual void startTag(const HTMLTag& tag) = 0;
    virtual void endTag(std::string_view name) = 0;
};

/// Tells tags from text in HTML, as browsers do, while it arrives. It knows no nesting and keeps nothing but
/// the tag it is in, so that any input takes linear time and constant memory. References are decoded;
/// comments, declarations and the content of hidden elements are left out.
///
/// Two liberties make it read XHTML as well: a self-closing tag holds nothing, even for <script/>, and CDATA
/// sections are text.
class HTMLTokenizer {
public:
    /// The handler must outlive the tokenizer.
    explicit HTMLTokenizer(HTMLTokenHandler& handler)
        : m_handler(handler)
    {
    }

    /// Takes UTF-8 that ends between characters.
    void append(std::string_view text);
    /// Ends the page: an unfinished reference is text, an unfinished tag is nothing.
    void finish();

private:
    enum class State {
        Text,
        Reference,
        TagOpening,
        EndTagOpening,
        TagName,
        BeforeAttribute,
        AttributeName,
        AfterAttributeName,
        BeforeValue,
        QuotedValue,
        UnquotedValue,
        Declaration,
        Comment,
        CharacterData,
        Ignored,
        ElementText,
        ElementEnd,
    };

    // Each takes what it can from the start of the text and gives the number of bytes it took. None takes
    // nothing without going over to a state that will take something.
    std::size_t step(std::string_view text);
    std::size_t inText(std::string_view text);
    std::size_t inReference(std::string_view text);
    std::size_t inTagOpening(char byte);
    std::size_t inEndTagOpening(char byte);
    std::size_t inTagName(std::string_view text);
    std::size_t inBeforeAttribute(char byte);
    std::size_t inAttributeName(std::string_view text);
    std::size_t inAfterAttributeName(char byte);
    std::size_t inBeforeValue(char byte);
    std::size_t inQuotedValue(std::string_view text);
    std::size_t inUnquotedValue(std::string_view text);
    std::size_t inDeclaration(char byte);
    std::size_t inComment(std::string_view text);
    std::size_t inCharacterData(std::string_view text);
    std::size_t inIgnored(std::string_view text);
    std::size_t inElementText(std::string_view text);
    std::size_t inElementEnd(char byte);

    std::size_t enter(State state, std::size_t taken);
    void startTag(bool isEnd);
    void finishTag();
    void emitElementText(std::string_view text);

    HTMLTokenHandler& m_handler;
    State m_state = State::Text;
    State m_stateAfterReference = State::Text;
    HTMLTag m_tag;
    /// What is being matched: a reference, the start of a declaration, the end tag of a raw element.
    std::string m_match;
    /// The element whose text is read without looking for tags.
    std::string m_element;
    char m_quote = '"';
    /// Dashes or brackets just before, which may be the start of a closing mark.
    std::size_t m_closingMarks = 0;
};
