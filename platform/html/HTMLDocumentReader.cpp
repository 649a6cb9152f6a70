#include "platform/html/HTMLDocumentReader.h"

#include "platform/foundation/Unicode.h"
#include "platform/html/CSSValues.h"
#include "platform/html/CharacterReference.h"
#include "platform/html/HTMLElementKinds.h"
#include "platform/html/HTMLImageFiles.h"
#include "platform/html/HTMLPageScanner.h"
#include "platform/html/HTMLStructureReader.h"
#include "platform/html/HTMLStyleRules.h"
#include "platform/html/HTMLURLs.h"

#include <utility>

namespace {

constexpr std::size_t kMostTitleUnits = 4096;

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

bool isForScreens(std::string_view media)
{
    const auto lower = inASCIILowerCase(media);
    return lower.empty() || lower.find("all") != std::string::npos
        || lower.find("screen") != std::string::npos;
}

class DocumentReader {
public:
    DocumentReader(std::string_view page, const NSHTMLReadingOptions& options)
        : m_options(options)
        , m_scanner(page)
        , m_structure(options, m_rules)
    {
        if (options.baseURL)
            m_document.baseURL = options.baseURL->absoluteString();
        // Where a page lies on this computer means nothing to who reads it elsewhere.
        if (options.baseURL && !options.baseURL->isFileURL())
            m_linkBase = m_document.baseURL;
    }

    HTMLDocument read()
    {
        for (auto token = m_scanner.next(); token != HTMLPageScanner::Token::End && !m_structure.isFull();
             token = m_scanner.next()) {
            if (token == HTMLPageScanner::Token::Text)
                m_structure.addText(m_scanner.text());
            else if (token == HTMLPageScanner::Token::StartTag)
                startElement(m_scanner.tag());
            else
                m_structure.endElement(m_scanner.tag().name);
        }
        m_document.text = m_structure.finish();
        return std::move(m_document);
    }

private:
    void startElement(const HTMLTag& tag)
    {
        if (tag.name == "html" || tag.name == "body") {
            if (auto ground = m_structure.styleRoot(tag))
                m_document.backgroundColor = std::move(ground);
        } else if (isSkippedElement(tag.name) || tag.name == "textarea" || tag.name == "xmp")
            takeRawElement(tag);
        else if (isVoidElement(tag.name))
            addVoidElement(tag);
        else if (tag.name != "head")
            m_structure.startElement(tag, m_linkBase);
    }

    void takeRawElement(const HTMLTag& tag)
    {
        // The tag goes away with the content's own end tag.
        const auto start = tag;
        const auto content = m_scanner.takeRawContent();
        if (m_structure.isSuppressed())
            return;
        if (start.name == "style" && isForScreens(start.attribute("media")))
            m_rules.addSheet(content);
        else if (start.name == "title" && m_document.title.empty())
            m_document.title = collapsed(decodedCharacterReferences(content));
        else if (start.name == "textarea")
            m_structure.addElement(start, decodedCharacterReferences(content), m_linkBase);
        else if (start.name == "xmp")
            m_structure.addElement(start, content, m_linkBase);
    }

    void addVoidElement(const HTMLTag& tag)
    {
        if (tag.name == "base")
            takeBase(tag.attribute("href"));
        if (m_structure.isHidden())
            return;
        if (tag.name == "br")
            m_structure.addLineBreak();
        else if (tag.name == "hr")
            m_structure.addRule();
        else if (tag.name == "img")
            m_structure.addImage(
                fileOfImage(tag.attribute("src"), tag.attribute("alt"), m_options, m_document.baseURL),
                tag.attribute("alt"));
        else if (tag.name == "input" && inASCIILowerCase(tag.attribute("type")) == "checkbox")
            m_structure.addBox(tag.hasAttribute("checked"));
    }

    /// Only the first base of a page counts.
    void takeBase(std::string_view target)
    {
        if (target.empty() || std::exchange(m_hasBase, true))
            return;
        m_document.baseURL = resolvedURL(target, m_document.baseURL);
        m_linkBase = resolvedURL(target, m_linkBase);
    }

    const NSHTMLReadingOptions& m_options;
    HTMLPageScanner m_scanner;
    HTMLStyleRules m_rules;
    HTMLStructureReader m_structure;
    HTMLDocument m_document;
    /// What relative links start from; empty when they stay as they are written.
    std::string m_linkBase;
    bool m_hasBase = false;
};

} // namespace

HTMLDocument readHTMLDocument(std::string_view page, const NSHTMLReadingOptions& options)
{
    return DocumentReader(page, options).read();
}
