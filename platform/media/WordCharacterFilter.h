#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Makes readable text of a Word file's characters: marks of paragraphs, cells, lines and pages become line
/// ends, marks of pictures, notes and comments go, and of fields only the results stay. Text may come in
/// pieces.
class WordCharacterFilter {
public:
    /// The readable form of `text`, which is UTF-8 with Word's control characters.
    [[nodiscard]] std::string filtered(std::string_view text);

private:
    enum class FieldPart { Instruction, Result };

    void control(char character, std::string& result);
    void endParagraph();
    void beginField();
    void beginResult();
    void endField();

    std::vector<FieldPart> m_fields;
    /// How many of the open fields are at their instructions: nothing is seen while there is one.
    std::size_t m_instructionCount = 0;
};
