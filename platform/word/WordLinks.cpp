#include "platform/word/WordLinks.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t kMostOpen = 64;
constexpr std::size_t kMostInstructionBytes = 4096;

/// The next argument, in quotation marks or up to a blank; `rest` is moved behind it.
std::string nextArgument(std::string_view& rest)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    if (!rest.starts_with('"')) {
        const std::string word(rest.substr(0, rest.find_first_of(kBlanks)));
        rest.remove_prefix(word.size());
        return word;
    }
    std::string argument;
    std::size_t index = 1;
    for (; index < rest.size() && rest[index] != '"'; ++index) {
        const bool isEscape = rest[index] == '\\' && index + 1 < rest.size();
        index += isEscape ? 1 : 0;
        argument += rest[index];
    }
    rest.remove_prefix(std::min(index + 1, rest.size()));
    return argument;
}

} // namespace

WordLink linkOfFieldInstruction(std::string_view instruction)
{
    WordLink link;
    auto name = nextArgument(instruction);
    std::transform(name.begin(), name.end(), name.begin(), [](char byte) {
        return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
    });
    std::string place;
    while (name == "HYPERLINK" && !instruction.empty()) {
        auto argument = nextArgument(instruction);
        if (argument == "\\l")
            place = nextArgument(instruction);
        else if (argument == "\\o")
            link.toolTip = nextArgument(instruction);
        else if (argument == "\\t")
            (void)nextArgument(instruction); // The frame in which the target is to open.
        else if (link.address.empty() && !argument.starts_with('\\'))
            link.address = std::move(argument);
    }
    if (!link.address.empty() && !place.empty())
        link.address += "#" + place;
    return link;
}

void WordLinks::beginElement(std::size_t depth, WordLink link)
{
    if (m_open.size() >= kMostOpen)
        return;
    m_open.push_back({std::move(link), {}, depth, true});
    update();
}

void WordLinks::endElement(std::size_t depth)
{
    const auto found = std::find_if(m_open.begin(), m_open.end(),
                                    [depth](const Open& open) { return open.depth == depth; });
    if (depth == 0 || found == m_open.end())
        return;
    m_open.erase(found);
    update();
}

void WordLinks::beginField()
{
    if (m_open.size() >= kMostOpen)
        ++m_uncountedFields;
    else
        m_open.emplace_back();
}

std::vector<WordLinks::Open>::iterator WordLinks::lastField()
{
    const auto found
        = std::find_if(m_open.rbegin(), m_open.rend(), [](const Open& open) { return open.depth == 0; });
    return found == m_open.rend() ? m_open.end() : std::prev(found.base());
}

void WordLinks::appendInstruction(std::string_view text)
{
    const auto field = lastField();
    const bool takesText = m_uncountedFields == 0 && field != m_open.end() && !field->isInResult;
    if (takesText && field->instruction.size() + text.size() <= kMostInstructionBytes)
        field->instruction += text;
}

void WordLinks::beginResult()
{
    const auto field = lastField();
    if (m_uncountedFields != 0 || field == m_open.end() || field->isInResult)
        return;
    field->isInResult = true;
    field->link = linkOfFieldInstruction(field->instruction);
    update();
}

void WordLinks::endField()
{
    if (m_uncountedFields != 0) {
        --m_uncountedFields;
        return;
    }
    if (const auto field = lastField(); field != m_open.end()) {
        m_open.erase(field);
        update();
    }
}

void WordLinks::update()
{
    const auto found = std::find_if(m_open.rbegin(), m_open.rend(),
                                    [](const Open& open) { return !open.link.address.empty(); });
    m_current = found == m_open.rend() ? WordLink{} : found->link;
}
