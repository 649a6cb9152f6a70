#include "platform/html/HTMLDocumentReader.h"

#include "platform/foundation/Unicode.h"
#include "platform/html/CSSValues.h"
#include "platform/html/CharacterReference.h"
#include "platform/html/HTMLBlockStyle.h"
#include "platform/html/HTMLHighlights.h"
#include "platform/html/HTMLListMarkers.h"
#include "platform/html/HTMLPageScanner.h"
#include "platform/html/HTMLTableGrid.h"
#include "platform/html/HTMLTextBuilder.h"
#include "platform/html/HTMLURLs.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSTextTable.h"
#include "platform/types/UTType.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace {

constexpr std::size_t kNone = SIZE_MAX;
constexpr std::size_t kMostReopened = 8;
constexpr std::size_t kMostTitleUnits = 4096;
constexpr std::u16string_view kRule = u"***";

struct List {
    bool isOrdered = false;
    NSInteger nextNumber = 1;
    NSTextList::Ref list;
    NSTextList::Ref checked;
    NSTextList::Ref open;
};

struct Table {
    std::shared_ptr<NSTextTable> table;
    HTMLTableGrid grid;
    NSColor::Ref rowBackground;
    double cellBorder = 0;
    std::optional<double> cellPadding;
};

struct Element {
    std::string name;
    HTMLComputedStyle style;
    HTMLTextMeaning meaning;
    HTMLParagraphContext context;
    bool isBlock = false;
    bool isSuppressed = false;
    double marginBelow = 0;
    /// Of a cell: how long the text was before it.
    NSUInteger startLength = 0;
    std::shared_ptr<List> list;
    std::shared_ptr<Table> table;
    /// Of an item: its number, and whether its marker is still to come.
    NSInteger number = 0;
    bool awaitsMarker = false;
    /// Where the item and the table stand that this is in.
    std::size_t item = kNone;
    std::size_t enclosingTable = kNone;
};

template <std::size_t Count>
bool isOneOf(std::string_view name, const std::array<std::string_view, Count>& names)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

constexpr std::array<std::string_view, 14> kVoidElements{"area",  "base",   "br",    "col",  "embed",
                                                         "hr",    "img",    "input", "link", "meta",
                                                         "param", "source", "track", "wbr"};
constexpr std::array<std::string_view, 7> kSkippedElements{"script",   "iframe", "noembed", "noframes",
                                                           "noscript", "style",  "title"};
constexpr std::array<std::string_view, 15> kFormattingElements{"b",      "big",    "code", "em",   "font",
                                                               "i",      "kbd",    "s",    "samp", "small",
                                                               "strike", "strong", "tt",   "u",    "mark"};
constexpr std::array<std::string_view, 6> kTableParts{"tbody", "thead", "tfoot", "tr", "td", "th"};
/// Not closed by an end tag from within, nor by a start tag that implies one.
constexpr std::array<std::string_view, 4> kScopes{"td", "th", "table", "caption"};

HTMLTag tagNamed(const std::string& name)
{
    HTMLTag tag;
    tag.name = name;
    return tag;
}

bool isCell(std::string_view name)
{
    return name == "td" || name == "th";
}

bool isList(std::string_view name)
{
    return name == "ul" || name == "ol" || name == "menu" || name == "dir";
}

std::u16string collapsed(std::string_view text)
{
    std::u16string words;
    for (const auto word : cssWords(text)) {
        if (!words.empty())
            words += u' ';
        words += UTF16FromUTF8(word);
    }
    return words.substr(0, kMostTitleUnits);
}

NSInteger numberIn(std::string_view text, NSInteger otherwise)
{
    const auto number = cssNumber(text);
    return number && number->unit.empty() ? static_cast<NSInteger>(number->value) : otherwise;
}

/// Text that the text model gives a meaning of its own.
std::u16string withoutControls(std::string_view text)
{
    auto units = UTF16FromUTF8(text);
    std::erase(units, NSAttachmentCharacter);
    std::replace(units.begin(), units.end(), u'\u2029', u'\u2028');
    return units;
}

void setEdges(NSTextBlock& block, NSTextBlockLayer layer, const std::array<double, 4>& widths)
{
    for (const auto edge : kRectEdges)
        block.setWidth({widths.at(static_cast<std::size_t>(edge)), NSTextBlockValueType::Absolute}, layer,
                       edge);
}

/// Gives a block what the box of its element has.
void setBox(NSTextBlock& block, const HTMLBox& box)
{
    setEdges(block, NSTextBlockLayer::Margin, box.margin);
    setEdges(block, NSTextBlockLayer::Border, box.borderWidth);
    setEdges(block, NSTextBlockLayer::Padding, box.padding);
    for (const auto edge : kRectEdges) {
        const auto index = static_cast<std::size_t>(edge);
        if (box.borderWidth.at(index) > 0)
            block.setBorderColor(box.borderColor.at(index), edge);
    }
    block.setBackgroundColor(box.background);
    if (box.width.value > 0)
        block.setValue(box.width, NSTextBlockDimension::Width);
    if (box.height.value > 0)
        block.setValue(box.height, NSTextBlockDimension::Height);
    block.setVerticalAlignment(box.verticalAlignment);
}

class DocumentReader {
public:
    DocumentReader(std::string_view page, const NSHTMLReadingOptions& options)
        : m_options(options)
        , m_scanner(page)
        , m_builder(options.mostUnits)
    {
        Element root;
        root.style.family = options.fontFamily;
        root.style.fontSize = options.fontSize;
        root.style.rootFontSize = options.fontSize;
        m_elements.push_back(std::move(root));
        if (options.baseURL)
            m_document.baseURL = options.baseURL->absoluteString();
    }

    HTMLDocument read()
    {
        for (auto token = m_scanner.next(); token != HTMLPageScanner::Token::End && !m_builder.isFull();
             token = m_scanner.next()) {
            if (token == HTMLPageScanner::Token::Text)
                addText(m_scanner.text());
            else if (token == HTMLPageScanner::Token::StartTag)
                startElement(m_scanner.tag());
            else
                endElement(m_scanner.tag().name);
        }
        popTo(1);
        m_document.text = m_builder.finish();
        return std::move(m_document);
    }

private:
    Element& top() { return m_elements.back(); }

    // Text.

    void addText(std::string_view text)
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
    HTMLParagraphContext contextHere()
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
    void beginItem(std::u16string_view& text)
    {
        if (m_builder.hasOpenParagraph() || top().item == kNone)
            return;
        const auto box = text.substr(0, 2);
        const bool isChecked
            = box == u"\u2611 " || box == u"\u2612 " || box == u"\u2713 " || box == u"\u2714 ";
        const bool isBox = isChecked || box == u"\u2610 ";
        if (isBox && m_elements[top().item].awaitsMarker && beginCheckItem(isChecked))
            text.remove_prefix(2);
        else
            beginItem(m_elements[top().item]);
    }

    void beginItem(Element& item)
    {
        const auto list = item.context.lists.empty() ? nullptr : item.context.lists.back();
        if (list)
            beginItem(item, list);
    }

    void beginItem(Element& item, const NSTextList::Ref& list)
    {
        if (!std::exchange(item.awaitsMarker, false))
            return;
        auto context = item.context;
        context.lists.back() = list;
        const auto marker = list->markerForItemNumber(item.number);
        if (marker.empty())
            m_builder.appendEmptyParagraph(item.style, context);
        else
            m_builder.appendVerbatim(u"\t" + marker + u"\t", m_builder.attributesFor(item.style, {}),
                                     item.style, context);
    }

    /// Whether the item that awaits its marker is of a list that can be a checklist.
    bool beginCheckItem(bool isChecked)
    {
        auto& item = m_elements[top().item];
        const auto list = item.list;
        if (!list || list->isOrdered)
            return false;
        auto& made = isChecked ? list->checked : list->open;
        if (!made)
            made = std::make_shared<NSTextList>(isChecked ? NSTextListMarkerCheck : NSTextListMarkerCircle);
        beginItem(item, made);
        return true;
    }

    // Elements.

    void startElement(const HTMLTag& tag)
    {
        if (tag.name == "html" || tag.name == "body")
            return styleRoot(tag);
        if (tag.name == "head")
            return;
        if (isOneOf(tag.name, kSkippedElements) || tag.name == "textarea" || tag.name == "xmp")
            return takeRawElement(tag);
        if (isOneOf(tag.name, kVoidElements))
            return addVoidElement(tag);
        if (!top().isSuppressed)
            closeImpliedElements(tag.name);
        if (m_elements.size() >= m_options.mostNesting) {
            ++m_unopened[tag.name];
            return;
        }
        openElement(tag);
        if (tag.isSelfClosing && top().isSuppressed)
            popTo(m_elements.size() - 1);
    }

    HTMLComputedStyle computedStyle(const HTMLTag& tag, bool& hasOwnMargin) const
    {
        auto cascade = defaultHTMLRules().declarationsFor(tagNamed(tag.name));
        const auto attributes = declarationsOfAttributes(tag);
        const CSSDeclarations inlineStyle(tag.attribute("style"));
        cascade.push_back(&attributes);
        const auto rules = m_rules.declarationsFor(tag);
        cascade.insert(cascade.end(), rules.begin(), rules.end());
        cascade.push_back(&inlineStyle);
        hasOwnMargin
            = std::any_of(cascade.begin() + 1, cascade.end(), [](const CSSDeclarations* declarations) {
                  return std::any_of(declarations->all().begin(), declarations->all().end(),
                                     [](const auto& one) { return one.property.starts_with("margin"); });
              });
        return m_elements.back().style.styleWith(cascade);
    }

    void styleRoot(const HTMLTag& tag)
    {
        if (m_elements.size() > 1)
            return;
        bool hasOwnMargin = false;
        auto style = computedStyle(tag, hasOwnMargin);
        if (style.box.background)
            m_document.backgroundColor = style.box.background;
        style.box = {};
        top().style = std::move(style);
    }

    void openElement(const HTMLTag& tag)
    {
        bool hasOwnMargin = false;
        Element element;
        element.name = tag.name;
        element.style = computedStyle(tag, hasOwnMargin);
        element.meaning = top().meaning;
        element.context = top().context;
        element.item = top().item;
        element.enclosingTable = top().enclosingTable;
        element.isBlock = element.style.box.display == HTMLDisplay::Block;
        const bool isHidden = element.style.box.display == HTMLDisplay::None
            || std::any_of(tag.attributes.begin(), tag.attributes.end(),
                           [](const HTMLAttribute& attribute) { return attribute.name == "hidden"; });
        element.isSuppressed = top().isSuppressed || isHidden;
        if (!element.isSuppressed) {
            setMeaning(element, tag);
            if (element.isBlock)
                openBlock(element, tag, hasOwnMargin);
            else
                setInlineBackground(element);
        }
        ++m_open[tag.name];
        m_elements.push_back(std::move(element));
    }

    static void setInlineBackground(Element& element)
    {
        if (element.name == "mark")
            return; // The highlight stands for it.
        if (element.style.box.background)
            element.style.textBackground = element.style.box.background;
    }

    void setMeaning(Element& element, const HTMLTag& tag) const
    {
        if (tag.name == "a") {
            const auto target = resolvedURL(tag.attribute("href"), m_document.baseURL);
            if (!target.empty() && !inASCIILowerCase(target.substr(0, 11)).starts_with("javascript:"))
                element.meaning.link = UTF16FromUTF8(target);
        }
        if (tag.name == "mark")
            element.meaning.highlight = highlightColorSchemeOfClass(
                cssWords(tag.attribute("class")).empty() ? std::string_view()
                                                         : cssWords(tag.attribute("class")).front());
        if (const auto title = tag.attribute("title"); !title.empty() && !element.isBlock)
            element.meaning.toolTip = UTF16FromUTF8(title);
        if (tag.name.size() == 2 && tag.name[0] == 'h' && tag.name[1] >= '1' && tag.name[1] <= '6')
            element.context.headerLevel = tag.name[1] - '0';
    }

    void openBlock(Element& element, const HTMLTag& tag, bool hasOwnMargin)
    {
        auto& box = element.style.box;
        const bool isNestedList = isList(tag.name) && !element.context.lists.empty();
        // A margin that the page does not ask for is none at its start, nor around a list in a list.
        const bool isMarginDropped = !hasOwnMargin && (isNestedList || m_builder.isEmpty());
        const bool isTablePart = tag.name == "table" || isOneOf(tag.name, kTableParts);
        const bool isBoxed = (box.background || box.hasBorder()) && !isTablePart && tag.name != "hr";
        auto marginAbove = isMarginDropped || isBoxed ? 0 : box.margin[1];
        element.marginBelow = (isNestedList && !hasOwnMargin) || isBoxed ? 0 : box.margin[3];
        m_builder.breakBlock(isTablePart ? 0 : marginAbove, 0);
        if (isTablePart)
            return openTablePart(element, tag);
        if (isBoxed)
            openBoxedBlock(element);
        else if (!isList(tag.name))
            indentBlock(element);
        if (isList(tag.name))
            openList(element, tag);
        else if (tag.name == "li")
            openItem(element, tag);
        m_isAtPreformattedStart = tag.name == "pre" || tag.name == "listing";
    }

    static void indentBlock(Element& element)
    {
        const auto& box = element.style.box;
        element.context.leftIndent += box.margin[0] + box.padding[0];
        element.context.rightIndent += box.margin[2] + box.padding[2];
    }

    static void openBoxedBlock(Element& element)
    {
        const auto block = std::make_shared<NSTextBlock>();
        setBox(*block, element.style.box);
        element.context.blocks.push_back(block);
        element.context.leftIndent = 0;
        element.context.rightIndent = 0;
    }

    // Lists.

    void openList(Element& element, const HTMLTag& tag)
    {
        const auto list = std::make_shared<List>();
        list->isOrdered = tag.name == "ol";
        list->nextNumber = numberIn(tag.attribute("start"), 1);
        const auto depth = element.context.lists.size();
        auto format = element.style.listFormat.value_or(usualFormat(list->isOrdered, depth));
        if (const auto marker = tag.attribute("data-marker"); !marker.empty())
            format = UTF16FromUTF8(marker.substr(0, 64));
        element.style.listFormat.reset();
        list->list = std::make_shared<NSTextList>(format, 0, list->nextNumber);
        element.list = list;
        element.item = kNone;
        element.context.lists.push_back(list->list);
    }

    /// Circles are never the usual format: in notes they are boxes to tick.
    static std::u16string usualFormat(bool isOrdered, std::size_t depth)
    {
        if (isOrdered)
            return std::u16string(NSTextListMarkerDecimal) + u".";
        constexpr std::array<std::u16string_view, 3> kFormats{NSTextListMarkerDisc, NSTextListMarkerHyphen,
                                                              NSTextListMarkerSquare};
        return std::u16string(kFormats.at(std::min<std::size_t>(depth, kFormats.size() - 1)));
    }

    void openItem(Element& element, const HTMLTag& tag)
    {
        const auto& list = top().list;
        if (!list)
            return;
        if (!tag.attribute("value").empty())
            list->nextNumber = numberIn(tag.attribute("value"), list->nextNumber);
        element.list = list;
        element.number = list->nextNumber++;
        element.awaitsMarker = true;
        element.item = m_elements.size();
    }

    // Tables.

    void openTablePart(Element& element, const HTMLTag& tag)
    {
        if (tag.name == "table")
            return openTable(element, tag);
        if (element.enclosingTable == kNone)
            return;
        auto& table = *m_elements[element.enclosingTable].table;
        if (isCell(tag.name))
            openCell(element, tag, table);
        else if (tag.name == "tr") {
            table.grid.beginRow();
            table.rowBackground = element.style.box.background;
        }
    }

    void openTable(Element& element, const HTMLTag& tag)
    {
        const auto table = std::make_shared<Table>();
        table->table = std::make_shared<NSTextTable>();
        if (const auto border = cssNumber(tag.attribute("border"))) {
            table->cellBorder = border->value > 0 ? 1 : 0;
            if (!element.style.box.hasBorder())
                element.style.box.borderWidth.fill(std::max(border->value, 0.0));
        }
        if (const auto padding = cssNumber(tag.attribute("cellpadding")))
            table->cellPadding = std::max(padding->value, 0.0);
        setBox(*table->table, element.style.box);
        table->table->setCollapsesBorders(element.style.box.collapsesBorders);
        element.style.textIndent = 0;
        element.table = table;
        element.enclosingTable = m_elements.size();
    }

    void openCell(Element& element, const HTMLTag& tag, Table& table)
    {
        if (!table.grid.hasRow())
            table.grid.beginRow();
        const auto columns
            = std::clamp<NSInteger>(numberIn(tag.attribute("colspan"), 1), 1, HTMLTableGrid::kMostColumns);
        const auto rows = std::clamp<NSInteger>(numberIn(tag.attribute("rowspan"), 1), 1,
                                                HTMLTableGrid::kMostRowsSpanned);
        const auto column = table.grid.nextColumn();
        table.grid.place(column, static_cast<NSUInteger>(columns), static_cast<NSUInteger>(rows));
        const auto cell
            = std::make_shared<NSTextTableBlock>(table.table, static_cast<NSInteger>(table.grid.row()), rows,
                                                 static_cast<NSInteger>(column), columns);
        auto& box = element.style.box;
        if (!box.hasBorder())
            box.borderWidth.fill(table.cellBorder);
        if (table.cellPadding)
            box.padding.fill(*table.cellPadding);
        if (!box.background)
            box.background = table.rowBackground;
        setBox(*cell, box);
        element.context = {};
        element.context.blocks = m_elements[element.enclosingTable].context.blocks;
        element.context.blocks.push_back(cell);
        element.item = kNone;
        element.startLength = m_builder.length();
    }

    // What holds no elements.

    void takeRawElement(const HTMLTag& tag)
    {
        // The tag goes away with the content's own end tag.
        const auto start = tag;
        const auto content = m_scanner.takeRawContent();
        if (top().isSuppressed)
            return;
        if (start.name == "style")
            addSheet(start, content);
        else if (start.name == "title" && m_document.title.empty())
            m_document.title = collapsed(decodedCharacterReferences(content));
        else if (start.name == "textarea" || start.name == "xmp")
            addRawText(start, content);
    }

    void addSheet(const HTMLTag& tag, std::string_view content)
    {
        const auto media = inASCIILowerCase(tag.attribute("media"));
        if (media.empty() || media.find("all") != std::string::npos
            || media.find("screen") != std::string::npos)
            m_rules.addSheet(content);
    }

    void addRawText(const HTMLTag& tag, std::string_view content)
    {
        closeImpliedElements(tag.name);
        if (m_elements.size() >= m_options.mostNesting)
            return addText(content);
        openElement(tag);
        addText(tag.name == "xmp" ? std::string(content) : decodedCharacterReferences(content));
        popTo(m_elements.size() - 1);
    }

    void addVoidElement(const HTMLTag& tag)
    {
        if (tag.name == "base" && !m_hasBase && !tag.attribute("href").empty()) {
            m_hasBase = true;
            m_document.baseURL = resolvedURL(tag.attribute("href"), m_document.baseURL);
        }
        if (top().isSuppressed || top().style.isHidden)
            return;
        if (tag.name == "br")
            addLineBreak();
        else if (tag.name == "hr")
            addRule(tag);
        else if (tag.name == "img")
            addImage(tag.attribute("src"), tag.attribute("alt"));
        else if (tag.name == "input" && inASCIILowerCase(tag.attribute("type")) == "checkbox")
            addBox(tag);
    }

    void addLineBreak()
    {
        std::u16string_view none;
        beginItem(none);
        m_builder.appendLineBreak(top().style, contextHere());
    }

    void addRule(const HTMLTag& tag)
    {
        closeImpliedElements(tag.name);
        m_builder.breakBlock(0, 0);
        auto style = top().style;
        style.alignment = NSTextAlignment::Center;
        m_builder.appendVerbatim(kRule, m_builder.attributesFor(style, {}), style, contextHere());
        m_builder.breakBlock(0, 0);
    }

    void addBox(const HTMLTag& tag)
    {
        const bool isChecked
            = std::any_of(tag.attributes.begin(), tag.attributes.end(),
                          [](const HTMLAttribute& attribute) { return attribute.name == "checked"; });
        const bool isMarker
            = !m_builder.hasOpenParagraph() && top().item != kNone && m_elements[top().item].awaitsMarker;
        if (isMarker && beginCheckItem(isChecked))
            return;
        addText(isChecked ? "\u2611 " : "\u2610 ");
    }

    bool addImage(std::string_view source, std::string_view description)
    {
        const auto file = fileOf(source, description);
        if (!file) {
            addText(description);
            return false;
        }
        std::u16string_view none;
        beginItem(none);
        auto attributes = m_builder.attributesFor(top().style, top().meaning);
        attributes.insert_or_assign(std::u16string(NSAttachmentAttributeName),
                                    NSAny(NSTextAttachment::initWithFileWrapper(file)));
        m_builder.appendVerbatim({&NSAttachmentCharacter, 1}, std::move(attributes), top().style,
                                 contextHere());
        return true;
    }

    [[nodiscard]] NSFileWrapper::Ref fileOf(std::string_view source, std::string_view description) const
    {
        if (inASCIILowerCase(trimmedCSS(source).substr(0, 5)) == "data:")
            return fileOfDataURL(source, description);
        const auto found = m_options.resources.find(resolvedURL(source, m_document.baseURL));
        return found == m_options.resources.end() ? nullptr : found->second;
    }

    static NSFileWrapper::Ref fileOfDataURL(std::string_view source, std::string_view description)
    {
        auto contents = contentsOfDataURL(source);
        const auto type = contents ? UTType::typeWithMIMEType(contents->mimeType) : std::nullopt;
        if (!type || !(type->conformsToType(kUTTypeImage) || type->conformsToType(kUTTypePDF)))
            return nullptr;
        const auto extension = "." + type->preferredFilenameExtension().value_or("img");
        const bool isName = description.size() < 256 && description.size() > extension.size()
            && description.ends_with(extension) && description.find('/') == std::string_view::npos;
        const auto name = UTF16FromUTF8(isName ? description : "image" + extension);
        auto file = NSFileWrapper::initRegularFileWithContents(NSData{std::move(contents->bytes)});
        file->setPreferredFilename(name);
        file->setFilename(name);
        return file;
    }

    // Ends.

    /// Where the element of this name is open that a start tag within it closes; kNone when there is none, or
    /// when one of `limits` stands between.
    template <std::size_t Count>
    [[nodiscard]] std::size_t openElementNamed(std::string_view name,
                                               const std::array<std::string_view, Count>& limits) const
    {
        const auto count = m_open.find(std::string(name));
        if (count == m_open.end() || count->second == 0)
            return kNone;
        for (auto index = m_elements.size() - 1; index > 0; --index) {
            if (m_elements[index].name == name)
                return index;
            if (isOneOf(m_elements[index].name, limits))
                return kNone;
        }
        return kNone;
    }

    template <std::size_t Count>
    void closeOpen(std::string_view name, const std::array<std::string_view, Count>& limits)
    {
        if (const auto index = openElementNamed(name, limits); index != kNone)
            popTo(index);
    }

    /// Closes what a start tag closes by itself.
    void closeImpliedElements(const std::string& name)
    {
        static constexpr std::array<std::string_view, 6> kListScopes{"ul", "ol", "menu", "dir", "td", "th"};
        static constexpr std::array<std::string_view, 3> kDefinitionScopes{"dl", "td", "th"};
        static constexpr std::array<std::string_view, 1> kTableScope{"table"};
        if (isOneOf(name, kTableParts)) {
            closeOpen("td", kTableScope);
            closeOpen("th", kTableScope);
            if (!isCell(name))
                closeOpen("tr", kTableScope);
            if (!isCell(name) && name != "tr")
                for (const auto* part : {"tbody", "thead", "tfoot"})
                    closeOpen(part, kTableScope);
            return;
        }
        if (name == "li")
            closeOpen("li", kListScopes);
        if (name == "dd" || name == "dt")
            for (const auto* part : {"dd", "dt"})
                closeOpen(part, kDefinitionScopes);
        if (name == "option")
            closeOpen("option", kScopes);
        if (isBlockElement(name))
            closeParagraph();
    }

    static bool isBlockElement(const std::string& name)
    {
        const auto rules = defaultHTMLRules().declarationsFor(tagNamed(name));
        return !rules.empty() && !rules.front()->all().empty()
            && rules.front()->all().front().value == "block";
    }

    /// Closes the paragraph that is open, and opens the formatting again that was open in it.
    void closeParagraph()
    {
        const auto index = openElementNamed("p", kScopes);
        if (index == kNone)
            return;
        std::vector<Element> reopened;
        for (auto inner = index + 1; inner < m_elements.size() && reopened.size() < kMostReopened; ++inner) {
            if (isOneOf(m_elements[inner].name, kFormattingElements))
                reopened.push_back(m_elements[inner]);
        }
        popTo(index);
        for (auto& element : reopened) {
            element.context = top().context;
            element.item = top().item;
            element.enclosingTable = top().enclosingTable;
            ++m_open[element.name];
            m_elements.push_back(std::move(element));
        }
    }

    void endElement(const std::string& name)
    {
        if (name == "br")
            return addLineBreak();
        if (const auto unopened = m_unopened.find(name);
            unopened != m_unopened.end() && unopened->second > 0) {
            --unopened->second;
            return;
        }
        static constexpr std::array<std::string_view, 1> kTableScope{"table"};
        static constexpr std::array<std::string_view, 0> kNoScopes{};
        const auto index = name == "table" ? openElementNamed(name, kNoScopes)
            : isOneOf(name, kTableParts)   ? openElementNamed(name, kTableScope)
                                           : openElementNamed(name, kScopes);
        if (index == kNone)
            return;
        const bool isFormatting = name == "a" || isOneOf(name, kFormattingElements);
        if (isFormatting && holdsBlock(index))
            endFormatting(index);
        else
            popTo(index);
    }

    [[nodiscard]] bool holdsBlock(std::size_t index) const
    {
        return std::any_of(m_elements.begin() + static_cast<std::ptrdiff_t>(index) + 1, m_elements.end(),
                           [](const Element& element) { return element.isBlock; });
    }

    /// Ends formatting that a block began within: the block goes on without it.
    void endFormatting(std::size_t index)
    {
        const auto outer = m_elements[index - 1].style;
        const auto ended = m_elements[index].style;
        --m_open[m_elements[index].name];
        m_elements[index].name.clear();
        for (auto inner = index; inner < m_elements.size(); ++inner) {
            auto& style = m_elements[inner].style;
            m_elements[inner].meaning = m_elements[index - 1].meaning;
            style.weight = style.weight == ended.weight ? outer.weight : style.weight;
            style.isItalic = style.isItalic == ended.isItalic ? outer.isItalic : style.isItalic;
            style.isUnderlined
                = style.isUnderlined == ended.isUnderlined ? outer.isUnderlined : style.isUnderlined;
            style.isStruck = style.isStruck == ended.isStruck ? outer.isStruck : style.isStruck;
            style.color = style.color == ended.color ? outer.color : style.color;
            style.family = style.family == ended.family ? outer.family : style.family;
            style.fontSize = style.fontSize == ended.fontSize ? outer.fontSize : style.fontSize;
        }
    }

    /// Ends the elements from this one on, from the inside.
    void popTo(std::size_t index)
    {
        while (m_elements.size() > index) {
            finishElement();
            if (!top().name.empty())
                --m_open[top().name];
            m_elements.pop_back();
        }
    }

    void finishElement()
    {
        auto& element = top();
        if (element.isSuppressed || !element.isBlock)
            return;
        const bool isEmptyCell = isCell(element.name) && element.enclosingTable != kNone
            && !m_builder.hasOpenParagraph() && m_builder.length() == element.startLength;
        if (isEmptyCell)
            m_builder.appendEmptyParagraph(element.style, element.context);
        m_builder.breakBlock(0, element.marginBelow);
        if (element.table)
            element.table->table->setNumberOfColumns(element.table->grid.columnCount());
    }

    const NSHTMLReadingOptions& m_options;
    HTMLPageScanner m_scanner;
    HTMLTextBuilder m_builder;
    HTMLStyleRules m_rules;
    HTMLDocument m_document;
    std::vector<Element> m_elements;
    /// How many elements of a name are open, and how many were not opened for being too deep.
    std::unordered_map<std::string, std::size_t> m_open;
    std::unordered_map<std::string, std::size_t> m_unopened;
    bool m_hasBase = false;
    bool m_isAtPreformattedStart = false;
};

} // namespace

HTMLDocument readHTMLDocument(std::string_view page, const NSHTMLReadingOptions& options)
{
    return DocumentReader(page, options).read();
}
