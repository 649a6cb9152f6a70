#include "platform/word/WordListWriting.h"

#include "platform/html/HTMLListMarkers.h"
#include "platform/word/WordUnits.h"

#include <algorithm>

namespace {

struct Token {
    std::u16string_view token;
    std::string_view numberFormat;
    /// Of a token of one sign; else empty.
    std::u16string_view sign;
};

constexpr std::string_view kBullet = "bullet";
constexpr std::string_view kNone = "none";

// Word processors' fonts have these signs; the reader takes each back for its token.
constexpr std::array<Token, 18> kTokens{{{NSTextListMarkerDecimal, "decimal", {}},
                                         {NSTextListMarkerOctal, "decimal", {}},
                                         {NSTextListMarkerLowercaseHexadecimal, "decimal", {}},
                                         {NSTextListMarkerUppercaseHexadecimal, "decimal", {}},
                                         {NSTextListMarkerLowercaseAlpha, "lowerLetter", {}},
                                         {NSTextListMarkerLowercaseLatin, "lowerLetter", {}},
                                         {NSTextListMarkerUppercaseAlpha, "upperLetter", {}},
                                         {NSTextListMarkerUppercaseLatin, "upperLetter", {}},
                                         {NSTextListMarkerLowercaseRoman, "lowerRoman", {}},
                                         {NSTextListMarkerUppercaseRoman, "upperRoman", {}},
                                         {NSTextListMarkerDisc, kBullet, u"\u2022"},
                                         {NSTextListMarkerHyphen, kBullet, u"\u2013"},
                                         {NSTextListMarkerSquare, kBullet, u"\u25AA"},
                                         {NSTextListMarkerDiamond, kBullet, u"\u25C6"},
                                         {NSTextListMarkerBox, kBullet, u"\u25A1"},
                                         {NSTextListMarkerCircle, kBullet, u"\u2610"},
                                         {NSTextListMarkerCheck, kBullet, u"\u2611"},
                                         {NSTextListMarkerNone, kNone, {}}}};

const Token* tokenAt(std::u16string_view format)
{
    const auto* const found = std::find_if(
        kTokens.begin(), kTokens.end(), [format](const Token& row) { return format.starts_with(row.token); });
    return found == kTokens.end() ? nullptr : found;
}

/// Text that stands around a number: a percent sign before a digit would be a number too.
void appendPlain(std::u16string& text, char16_t unit)
{
    const bool isDigit = unit >= u'0' && unit <= u'9';
    if (isDigit && text.ends_with(u'%'))
        text.back() = u'\uFF05';
    text += unit;
}

std::int64_t numberWithin(NSInteger number)
{
    constexpr NSInteger kMost = 32'767;
    return std::clamp<NSInteger>(number, 0, kMost);
}

void writeLevel(WordXML& xml, std::size_t level, const WordLevelForm& form)
{
    constexpr double kIndent = 36;
    constexpr double kHanging = 18;
    xml.raw("<w:lvl");
    xml.attribute("w:ilvl", static_cast<std::int64_t>(level));
    xml.raw(">");
    xml.property("w:start", form.start);
    xml.property("w:numFmt", form.numberFormat);
    xml.property("w:lvlText", form.text);
    xml.raw("<w:lvlJc w:val=\"left\"/><w:pPr><w:ind");
    xml.attribute("w:left", wordTwips(kIndent * static_cast<double>(level + 1)));
    xml.attribute("w:hanging", wordTwips(kHanging));
    xml.raw("/></w:pPr></w:lvl>");
}

} // namespace

WordLevelForm wordLevelForm(const NSTextList& list, std::size_t level)
{
    WordLevelForm form{kNone, {}, numberWithin(list.startingItemNumber())};
    bool counts = false;
    std::u16string_view rest = list.markerFormat();
    while (!rest.empty()) {
        const auto* const token = tokenAt(rest);
        if (!token) {
            appendPlain(form.text, rest.front());
            rest.remove_prefix(1);
            continue;
        }
        rest.remove_prefix(token->token.size());
        form.text += token->sign;
        const bool isNumeral = token->numberFormat != kBullet && token->numberFormat != kNone;
        if (!isNumeral)
            continue;
        form.text += {u'%', static_cast<char16_t>(u'1' + level)};
        // A level counts in one way.
        form.numberFormat = counts ? form.numberFormat : token->numberFormat;
        counts = true;
    }
    if (!counts && !form.text.empty())
        form.numberFormat = kBullet;
    return form;
}

WordListWriting::Item WordListWriting::itemOf(const NSParagraphStyle::TextLists& lists,
                                              std::u16string_view marker)
{
    const auto depth = std::min(lists.size(), kLevelCount);
    const auto place = depth - 1;
    Number number;
    number.root = rootOf(*lists.front());
    auto& root = m_roots[number.root];
    root.levels.resize(std::max(root.levels.size(), depth));
    for (std::size_t level = 0; level < depth; ++level)
        number.variation.at(level) = formIndexOf(root.levels[level], wordLevelForm(*lists[level], level));
    bool restarts = false;
    auto& own = root.levels[place];
    own.count = countedNumber(own, *lists[place], marker, restarts);
    for (auto deeper = depth; deeper < root.levels.size(); ++deeper)
        root.levels[deeper].count.reset();
    const auto found = root.numbers.find(number.variation);
    if (restarts) {
        number.restartedLevel = place;
        number.restart = *own.count;
    }
    const auto index = restarts || found == root.numbers.end() ? addNumber(root, number) : found->second;
    return {static_cast<std::int64_t>(index + 1), static_cast<std::int64_t>(place)};
}

std::size_t WordListWriting::rootOf(const NSTextList& list)
{
    const auto next = m_roots.size();
    const auto index = isChecklist(list)
        ? m_rootsOfChecklists.try_emplace(list.markerFormat(), next).first->second
        : m_rootsByList.try_emplace(&list, next).first->second;
    if (index == next)
        m_roots.emplace_back();
    return index;
}

std::size_t WordListWriting::formIndexOf(Level& level, const WordLevelForm& form)
{
    const auto [place, isNew] = level.formIndices.try_emplace(form, level.forms.size());
    if (isNew)
        level.forms.push_back(form);
    return place->second;
}

std::size_t WordListWriting::addNumber(Root& root, const Number& number)
{
    root.numbers[number.variation] = m_numbers.size();
    m_numbers.push_back(number);
    return m_numbers.size() - 1;
}

/// What the item is to be counted as. It restarts where word processors would not come to it by themselves:
/// another list begins within the same item, or the marker says another number.
std::int64_t WordListWriting::countedNumber(Level& level, const NSTextList& list, std::u16string_view marker,
                                            bool& restarts)
{
    const auto start = numberWithin(list.startingItemNumber());
    const bool isOther = level.list && level.list != &list && level.count && !isChecklist(list);
    level.list = &list;
    const auto shown = level.count && !isOther ? *level.count + 1 : start;
    restarts = isOther;
    auto& counted = m_counts.try_emplace(&list, start - 1).first->second;
    const auto fits = [&](std::int64_t number) { return list.markerForItemNumber(number) == marker; };
    if (!isOrderedList(list) || marker.empty() || fits(shown))
        return counted = shown;
    const auto told = listMarkerAtStart(u"\t" + std::u16string(marker) + u"\t", list);
    const auto number = fits(counted + 1) ? counted + 1
        : told && told->number            ? numberWithin(*told->number)
                                          : shown;
    restarts = restarts || number != shown;
    return counted = number;
}

std::string WordListWriting::part() const
{
    WordXML xml;
    xml.raw(kWordXMLDeclaration);
    xml.raw("<w:numbering");
    xml.raw(kWordNamespace);
    xml.raw(">");
    for (std::size_t index = 0; index < m_roots.size(); ++index) {
        xml.raw("<w:abstractNum");
        xml.attribute("w:abstractNumId", static_cast<std::int64_t>(index));
        xml.raw("><w:multiLevelType w:val=\"hybridMultilevel\"/>");
        const auto& levels = m_roots[index].levels;
        for (std::size_t level = 0; level < levels.size(); ++level)
            writeLevel(xml, level, levels[level].forms.front());
        xml.raw("</w:abstractNum>");
    }
    for (std::size_t index = 0; index < m_numbers.size(); ++index)
        writeNumber(xml, static_cast<std::int64_t>(index + 1), m_numbers[index]);
    xml.raw("</w:numbering>");
    return xml.takeBytes();
}

void WordListWriting::writeNumber(WordXML& xml, std::int64_t identifier, const Number& number) const
{
    const auto& root = m_roots[number.root];
    xml.raw("<w:num");
    xml.attribute("w:numId", identifier);
    xml.raw(">");
    xml.property("w:abstractNumId", static_cast<std::int64_t>(number.root));
    for (std::size_t level = 0; level < kLevelCount; ++level) {
        const auto form = number.variation.at(level);
        const bool restarts = number.restartedLevel == level;
        if (form == 0 && !restarts)
            continue;
        xml.raw("<w:lvlOverride");
        xml.attribute("w:ilvl", static_cast<std::int64_t>(level));
        xml.raw(">");
        if (restarts)
            xml.property("w:startOverride", number.restart);
        if (form != 0)
            writeLevel(xml, level, root.levels[level].forms[form]);
        xml.raw("</w:lvlOverride>");
    }
    xml.raw("</w:num>");
}
