#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Where a piece of text leads.
struct WordLink {
    /// Empty for nowhere, or within the document.
    std::string address;
    std::string toolTip;
};

/// The link that the instruction of a field makes ("HYPERLINK" and its arguments); one to nowhere for other
/// fields.
[[nodiscard]] WordLink linkOfFieldInstruction(std::string_view instruction);

/// The links that are open where a text has come to: by elements around it, and by fields, whose instruction
/// and result stand between marks and may reach over paragraphs.
class WordLinks {
public:
    /// An element that links; `depth` is its own in the document.
    void beginElement(std::size_t depth, WordLink link);
    /// To be called where any element ends.
    void endElement(std::size_t depth);

    void beginField();
    void appendInstruction(std::string_view text);
    /// Behind the instruction.
    void beginResult();
    void endField();

    /// The innermost link to somewhere.
    [[nodiscard]] const WordLink& current() const { return m_current; }

private:
    struct Open {
        WordLink link;
        std::string instruction;
        /// 0 for a field.
        std::size_t depth = 0;
        bool isInResult = false;
    };

    [[nodiscard]] std::vector<Open>::iterator lastField();
    void update();

    std::vector<Open> m_open;
    /// Fields within so many others that they are only counted.
    std::size_t m_uncountedFields = 0;
    WordLink m_current;
};
