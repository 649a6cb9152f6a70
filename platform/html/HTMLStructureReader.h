#pragma once

#include "platform/foundation/NSFileWrapper.h"
#include "platform/html/HTMLOpenElements.h"
#include "platform/html/NSAttributedStringHTML.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

/// Makes a text of a page's elements and texts, which come in the page's order: knows which elements are open
/// and what they mean for the text in them. Ends that are missing, too many or crossed are put right as
/// browsers do, without looking back or ahead.
class HTMLStructureReader {
public:
    /// The options and the rules must outlive the reader; rules may be added while it is at work.
    HTMLStructureReader(const NSHTMLReadingOptions& options, const HTMLStyleRules& rules);

    /// Whether the text has reached its bound.
    [[nodiscard]] bool isFull() const { return m_builder.isFull(); }

    /// Whether nothing within the element that is open is read.
    [[nodiscard]] bool isSuppressed() { return top().isSuppressed; }

    /// Whether text in the element that is open is not seen.
    [[nodiscard]] bool isHidden() { return top().isSuppressed || top().style.isHidden; }

    /// Takes the style of the page's outermost elements. Gives the ground they have; null for none.
    NSColor::Ref styleRoot(const HTMLTag& tag);
    void startElement(const HTMLTag& tag, const std::string& baseURL);
    void endElement(const std::string& name);

    void addText(std::string_view text);
    void addLineBreak();
    void addRule();
    /// A box to tick.
    void addBox(bool isChecked);
    /// An image; its description where there is no file.
    void addImage(const NSFileWrapper::Ref& file, std::string_view description);
    /// An element that holds nothing but text.
    void addElement(const HTMLTag& tag, std::string_view text, const std::string& baseURL);

    /// The text, with all that is open ended.
    [[nodiscard]] NSAttributedString finish();

private:
    HTMLOpenElement& top() { return m_elements.top(); }

    HTMLParagraphContext contextHere();
    void beginItem(std::u16string_view& text);
    void openElement(const HTMLTag& tag, const std::string& baseURL);
    void openBlock(HTMLOpenElement& element, const HTMLTag& tag, bool hasOwnMargin);
    void openPartOfTable(HTMLOpenElement& element, const HTMLTag& tag);
    void closeImpliedElements(std::string_view name);
    void closeParagraph();
    void breakAtUnopened(std::string_view name);
    [[nodiscard]] std::pair<std::string_view, std::string_view> quotationMarks() const;
    void popTo(std::size_t place);
    void finishElement();

    const NSHTMLReadingOptions& m_options;
    const HTMLStyleRules& m_rules;
    HTMLTextBuilder m_builder;
    HTMLOpenElements m_elements;
    /// How many elements of a name were not opened for being too deep.
    std::unordered_map<std::string, std::size_t> m_unopened;
    bool m_isAtPreformattedStart = false;
};
