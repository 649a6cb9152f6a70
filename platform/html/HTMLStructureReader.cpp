#include "platform/html/HTMLStructureReader.h"

#include "platform/foundation/Unicode.h"
#include "platform/html/CSSValues.h"
#include "platform/html/HTMLBlockBoxes.h"
#include "platform/html/HTMLCascade.h"
#include "platform/html/HTMLDefaultRules.h"
#include "platform/html/HTMLElementKinds.h"
#include "platform/html/HTMLHighlights.h"
#include "platform/html/HTMLImpliedEnds.h"
#include "platform/html/HTMLListReading.h"
#include "platform/html/HTMLTableReading.h"
#include "platform/html/HTMLURLs.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSTextAttachment.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t kNone = HTMLOpenElement::kNone;
constexpr std::u16string_view kRule = u"***";

/// Text that the text model gives a meaning of its own.
std::u16string withoutControls(std::string_view text)
{
    auto units = UTF16FromUTF8(text);
    std::erase(units, NSAttachmentCharacter);
    std::replace(units.begin(), units.end(), u'\u2029', u'\u2028');
    return units;
}

HTMLOpenElement rootElement(const NSHTMLReadingOptions& options)
{
    HTMLOpenElement root;
    root.style.family = options.fontFamily;
    root.style.fontSize = options.fontSize;
    root.style.rootFontSize = options.fontSize;
    return root;
}

void setInlineBackground(HTMLOpenElement& element)
{
    if (element.name == "mark")
        return; // The highlight stands for it.
    if (element.style.box.background)
        element.style.textBackground = element.style.box.background;
}

void setMeaning(HTMLOpenElement& element, const HTMLTag& tag, const std::string& baseURL)
{
    if (tag.name == "a") {
        const auto target = resolvedURL(tag.attribute("href"), baseURL);
        if (!target.empty() && !inASCIILowerCase(target.substr(0, 11)).starts_with("javascript:"))
            element.meaning.link = UTF16FromUTF8(target);
    }
    const auto classes = cssWords(tag.attribute("class"));
    if (tag.name == "mark")
        element.meaning.highlight
            = highlightColorSchemeOfClass(classes.empty() ? std::string_view() : classes.front());
    if (const auto title = tag.attribute("title"); !title.empty() && !element.isBlock)
        element.meaning.toolTip = UTF16FromUTF8(title);
    if (isHeadingElement(tag.name))
        element.context.headerLevel = tag.name[1] - '0';
}

} // namespace

HTMLStructureReader::HTMLStructureReader(const NSHTMLReadingOptions& options, const HTMLStyleRules& rules)
    : m_options(options)
    , m_rules(rules)
    , m_builder(options.mostUnits)
    , m_elements(rootElement(options))
{
}

NSAttributedString HTMLStructureReader::finish()
{
    popTo(1);
    return m_builder.finish();
}

void HTMLStructureReader::addText(std::string_view text)
{
    auto& element = top();
    if (element.isSuppressed || element.style.isHidden)
        return;
    const bool isBlank = text.find_first_not_of(" \t\n\r\f") == std::string_view::npos;
    const bool isCollapsed = element.style.whiteSpace == HTMLWhiteSpace::Collapsed;
    if (isBlank && isCollapsed && !m_builder.hasOpenParagraph())
        return;
    if (std::exchange(m_isAtPreformattedStart, false) && text.starts_with('\n'))
        text.remove_prefix(1);
    const auto units = withoutControls(text);
    std::u16string_view rest(units);
    if (!isBlank)
        beginItem(rest);
    m_builder.appendText(rest, element.style, element.meaning, contextHere());
}

/// How a paragraph is set that begins here: in its lists when it is the first of an item.
HTMLParagraphContext HTMLStructureReader::contextHere()
{
    if (m_builder.hasOpenParagraph())
        return {};
    auto context = top().context;
    context.listDepth = context.lists.size();
    context.lists.clear();
    return context;
}

/// Begins the paragraph of an item with its marker, unless that has been done. A box at the text's start
/// is taken for the marker of a checklist.
void HTMLStructureReader::beginItem(std::u16string_view& text)
{
    if (m_builder.hasOpenParagraph() || top().item == kNone)
        return;
    auto& item = m_elements[top().item];
    const auto box = boxAtStart(text);
    if (box && item.awaitsMarker && beginCheckItem(item, *box, m_builder))
        text.remove_prefix(2);
    else
        ::beginItem(item, m_builder);
}

NSColor::Ref HTMLStructureReader::styleRoot(const HTMLTag& tag)
{
    if (m_elements.size() > 1)
        return nullptr;
    auto style = HTMLCascade::ofElement(tag, top().style, m_rules).style;
    auto ground = style.box.background;
    style.box = {};
    top().style = std::move(style);
    return ground;
}

void HTMLStructureReader::startElement(const HTMLTag& tag, const std::string& baseURL)
{
    if (!top().isSuppressed)
        closeImpliedElements(tag.name);
    if (m_elements.size() >= m_options.mostNesting) {
        ++m_unopened[tag.name];
        return breakAtUnopened(tag.name);
    }
    openElement(tag, baseURL);
    if (tag.name == "q")
        addText(quotationMarks().first);
    if (tag.isSelfClosing && top().isSuppressed)
        popTo(m_elements.size() - 1);
}

void HTMLStructureReader::openElement(const HTMLTag& tag, const std::string& baseURL)
{
    auto cascade = HTMLCascade::ofElement(tag, top().style, m_rules);
    HTMLOpenElement element;
    element.name = tag.name;
    element.style = std::move(cascade.style);
    element.meaning = top().meaning;
    element.context = top().context;
    element.item = top().item;
    element.enclosingTable = top().enclosingTable;
    element.isBlock = element.style.box.display == HTMLDisplay::Block;
    element.isSuppressed
        = top().isSuppressed || element.style.box.display == HTMLDisplay::None || tag.hasAttribute("hidden");
    if (!element.isSuppressed) {
        setMeaning(element, tag, baseURL);
        if (element.isBlock)
            openBlock(element, tag, cascade.hasOwnMargin);
        else
            setInlineBackground(element);
    }
    m_elements.push(std::move(element));
}

void HTMLStructureReader::openBlock(HTMLOpenElement& element, const HTMLTag& tag, bool hasOwnMargin)
{
    const auto& box = element.style.box;
    const bool isPartOfTable = tag.name == "table" || isTablePart(tag.name);
    const bool isNestedList = isListElement(tag.name) && !element.context.lists.empty();
    // A margin that the page does not ask for is none at its start, nor around a list in a list.
    const bool isMarginDropped = !hasOwnMargin && (isNestedList || m_builder.isEmpty());
    const bool isBoxed = (box.background || box.hasBorder()) && !isPartOfTable && tag.name != "hr";
    const auto marginAbove = isMarginDropped || isBoxed || isPartOfTable ? 0 : box.margin[1];
    element.marginBelow = (isNestedList && !hasOwnMargin) || isBoxed ? 0 : box.margin[3];
    m_builder.breakBlock(marginAbove, 0);
    element.startLength = m_builder.length();
    if (isPartOfTable)
        return openPartOfTable(element, tag);
    if (isBoxed)
        openBoxedBlock(element);
    else if (!isListElement(tag.name))
        indentBlock(element);
    if (isListElement(tag.name))
        openList(element, tag);
    else if (tag.name == "li" && top().list)
        openItem(element, tag, top().list, m_elements.size());
    m_isAtPreformattedStart = tag.name == "pre" || tag.name == "listing";
}

void HTMLStructureReader::openPartOfTable(HTMLOpenElement& element, const HTMLTag& tag)
{
    if (tag.name == "table")
        return openTable(element, tag, m_elements.size());
    if (element.enclosingTable == kNone)
        return;
    const auto& table = m_elements[element.enclosingTable];
    if (isCellElement(tag.name))
        openCell(element, tag, table);
    else if (tag.name == "tr")
        openRow(element, *table.table);
}

void HTMLStructureReader::addElement(const HTMLTag& tag, std::string_view text, const std::string& baseURL)
{
    closeImpliedElements(tag.name);
    if (m_elements.size() >= m_options.mostNesting) {
        breakAtUnopened(tag.name);
        addText(text);
        return breakAtUnopened(tag.name);
    }
    openElement(tag, baseURL);
    addText(text);
    popTo(m_elements.size() - 1);
}

void HTMLStructureReader::addLineBreak()
{
    std::u16string_view none;
    beginItem(none);
    m_builder.appendLineBreak(top().style, contextHere());
}

void HTMLStructureReader::addRule()
{
    closeImpliedElements("hr");
    m_builder.breakBlock(0, 0);
    auto style = top().style;
    style.alignment = NSTextAlignment::Center;
    m_builder.appendVerbatim(kRule, m_builder.attributesFor(style, {}), style, contextHere());
    m_builder.breakBlock(0, 0);
}

void HTMLStructureReader::addBox(bool isChecked)
{
    const bool isMarker
        = !m_builder.hasOpenParagraph() && top().item != kNone && m_elements[top().item].awaitsMarker;
    if (!isMarker || !beginCheckItem(m_elements[top().item], isChecked, m_builder))
        addText(isChecked ? "\u2611 " : "\u2610 ");
}

void HTMLStructureReader::addImage(const NSFileWrapper::Ref& file, std::string_view description)
{
    if (!file)
        return addText(description);
    std::u16string_view none;
    beginItem(none);
    auto attributes = m_builder.attributesFor(top().style, top().meaning);
    attributes.insert_or_assign(std::u16string(NSAttachmentAttributeName),
                                NSAny(NSTextAttachment::initWithFileWrapper(file)));
    m_builder.appendVerbatim({&NSAttachmentCharacter, 1}, attributes, top().style, contextHere());
}

/// Closes what a start tag closes by itself.
void HTMLStructureReader::closeImpliedElements(std::string_view name)
{
    if (const auto place = elementEndedByStart(name, m_elements); place != kNone) {
        // What is open in a link or in text without breaks goes on behind it.
        const bool isCrossed = (name == "a" || name == "nobr") && place + 1 < m_elements.size();
        if (isCrossed)
            m_elements.endFormatting(place);
        else
            popTo(place);
    }
    if (!isTablePart(name) && isBlockElement(name))
        closeParagraph();
    if (isHeadingElement(name) && isHeadingElement(top().name))
        popTo(m_elements.size() - 1);
}

/// A block that is not opened for being too deep stands on lines of its own all the same.
void HTMLStructureReader::breakAtUnopened(std::string_view name)
{
    if (!top().isSuppressed && isBlockElement(name))
        m_builder.breakBlock(0, 0);
}

/// Those of the innermost quotation that is open: single ones within another.
std::pair<std::string_view, std::string_view> HTMLStructureReader::quotationMarks() const
{
    const auto place = m_elements.placeOf("q", {});
    if (place != kNone && place > 1 && m_elements.placeOf("q", {}, place) != kNone)
        return {"\u2018", "\u2019"};
    return {"\u201C", "\u201D"};
}

/// Closes the paragraph that is open, and opens the formatting again that was open in it.
void HTMLStructureReader::closeParagraph()
{
    const auto place = openParagraph(m_elements);
    if (place == kNone)
        return;
    auto reopened = m_elements.formattingWithin(place);
    popTo(place);
    for (auto& element : reopened) {
        element.context = top().context;
        element.item = top().item;
        element.enclosingTable = top().enclosingTable;
        m_elements.push(std::move(element));
    }
}

void HTMLStructureReader::endElement(const std::string& name)
{
    if (name == "br")
        return addLineBreak();
    if (const auto unopened = m_unopened.find(name); unopened != m_unopened.end() && unopened->second > 0) {
        --unopened->second;
        return breakAtUnopened(name);
    }
    const auto place = elementEndedByEnd(name, m_elements);
    if (place == kNone)
        return;
    const bool isFormatting = name == "a" || isFormattingElement(name);
    if (isFormatting && m_elements.holdsBlock(place))
        m_elements.endFormatting(place);
    else
        popTo(place);
}

/// Ends the elements from this one on, from the inside.
void HTMLStructureReader::popTo(std::size_t place)
{
    while (m_elements.size() > place) {
        finishElement();
        m_elements.pop();
    }
}

void HTMLStructureReader::finishElement()
{
    auto& element = top();
    if (element.name == "q")
        addText(quotationMarks().second);
    if (element.isSuppressed || !element.isBlock)
        return;
    const bool isEmpty = !m_builder.hasOpenParagraph() && m_builder.length() == element.startLength;
    if (isEmpty && element.awaitsMarker && !element.style.isHidden)
        ::beginItem(element, m_builder);
    if (isEmpty && isCellElement(element.name) && element.enclosingTable != kNone)
        m_builder.appendEmptyParagraph(element.style, element.context);
    m_builder.breakBlock(0, element.marginBelow);
    if (element.table)
        element.table->table->setNumberOfColumns(element.table->grid.columnCount());
}
