#include "platform/media/WordCharacterFilter.h"

namespace {

constexpr std::size_t kFieldNesting = 200;

constexpr char kCellMark = 0x07;
constexpr char kLineBreak = 0x0B;
constexpr char kPageBreak = 0x0C;
constexpr char kParagraphMark = 0x0D;
constexpr char kColumnBreak = 0x0E;
constexpr char kFieldBegin = 0x13;
constexpr char kFieldSeparator = 0x14;
constexpr char kFieldEnd = 0x15;
constexpr char kHyphenWithoutBreak = 0x1E;

bool isControl(char character)
{
    return static_cast<unsigned char>(character) < ' ';
}

} // namespace

std::string WordCharacterFilter::filtered(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (const auto character : text) {
        if (isControl(character))
            control(character, result);
        else if (m_instructionCount == 0)
            result += character;
    }
    return result;
}

void WordCharacterFilter::control(char character, std::string& result)
{
    switch (character) {
    case kFieldBegin:
        beginField();
        break;
    case kFieldSeparator:
        beginResult();
        break;
    case kFieldEnd:
        endField();
        break;
    case kCellMark:
    case kParagraphMark:
        endParagraph();
        result += '\n';
        break;
    case kLineBreak:
    case kPageBreak:
    case kColumnBreak:
    case '\n':
        result += '\n';
        break;
    case '\t':
        result += '\t';
        break;
    case kHyphenWithoutBreak:
        result += "\u2011";
        break;
    default:
        break; // Anchors of pictures, notes and comments, and hyphens that only show at a line's end.
    }
}

/// Instructions end within their paragraph, so one that is still open has lost its end.
void WordCharacterFilter::endParagraph()
{
    if (m_instructionCount == 0)
        return;
    m_fields.clear();
    m_instructionCount = 0;
}

void WordCharacterFilter::beginField()
{
    if (m_fields.size() >= kFieldNesting)
        return;
    m_fields.push_back(FieldPart::Instruction);
    ++m_instructionCount;
}

void WordCharacterFilter::beginResult()
{
    if (m_fields.empty() || m_fields.back() == FieldPart::Result)
        return;
    m_fields.back() = FieldPart::Result;
    --m_instructionCount;
}

void WordCharacterFilter::endField()
{
    if (m_fields.empty())
        return;
    if (m_fields.back() == FieldPart::Instruction)
        --m_instructionCount;
    m_fields.pop_back();
}
