#include "platform/word/WordRunWriting.h"

#include "platform/text/NSAttributeNames.h"
#include "platform/word/WordDirections.h"
#include "platform/word/WordLinkAddresses.h"

#include <algorithm>
#include <functional>

namespace {

constexpr char16_t kNextLine = 0x0085;
constexpr char16_t kSoftHyphen = 0x00AD;
constexpr char16_t kNoBreakHyphen = 0x2011;
constexpr char16_t kLineSeparator = 0x2028;

/// Whether the unit is written as an element. Control characters without a form have an empty one.
bool isElement(char16_t unit)
{
    return unit < 0x20 || unit == kNextLine || unit == kSoftHyphen || unit == kNoBreakHyphen
        || unit == kLineSeparator;
}

std::string_view elementOf(char16_t unit)
{
    switch (unit) {
    case u'\t':
        return "<w:tab/>";
    case u'\f':
        return "<w:br w:type=\"page\"/>";
    case u'\v':
    case kNextLine:
    case kLineSeparator:
        return "<w:br/>";
    case kSoftHyphen:
        return "<w:softHyphen/>";
    case kNoBreakHyphen:
        return "<w:noBreakHyphen/>";
    default:
        return {};
    }
}

NSAny valueOf(const NSAttributes& attributes, std::u16string_view name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? NSAny() : found->second;
}

} // namespace

WordRunWriting::WordRunWriting(WordXML& xml, const NSAttributedString& text, const WordStyleLooks& styles,
                               WordRelationshipWriting& relationships, WordPictureWriting& pictures)
    : m_xml(xml)
    , m_text(text)
    , m_characters(text.string())
    , m_styles(styles)
    , m_relationships(relationships)
    , m_pictures(pictures)
    , m_runs(kRunPlaces)
{
}

const WordRunWriting::Run& WordRunWriting::runOf(const NSAttributes& attributes, std::size_t style)
{
    auto& run = m_runs[std::hash<const NSAttributes*>()(&attributes) / alignof(NSAttributes) % kRunPlaces];
    if (run.attributes == &attributes && run.style == style)
        return run;
    run.attributes = &attributes;
    run.style = style;
    run.address = wordAddressOfLink(valueOf(attributes, NSLinkAttributeName));
    const auto toolTip = valueOf(attributes, NSToolTipAttributeName);
    run.toolTip = toolTip.string() ? *toolTip.string() : std::u16string();
    run.attachment = valueOf(attributes, NSAttachmentAttributeName).mutableObject<NSTextAttachment>();
    WordXML properties;
    writeWordCharacterProperties(properties, attributes, m_styles.at(style), !run.address.empty());
    run.properties = properties.takeBytes();
    return run;
}

void WordRunWriting::writeContent(NSRange content, std::size_t style)
{
    m_text.enumerateAttributesInRange(content, {.longestEffectiveRangeNotRequired = true},
                                      [&](const NSAttributes& attributes, NSRange range, bool& /*stop*/) {
                                          const auto& run = runOf(attributes, style);
                                          applyLink(run);
                                          writeRun(run, m_characters.substr(range.location, range.length));
                                      });
    closeLink();
}

const std::string& WordRunWriting::endProperties(NSUInteger location, std::size_t style)
{
    static const std::string kNone;
    const auto* properties = &kNone;
    m_text.enumerateAttributesInRange({location, 1}, {.longestEffectiveRangeNotRequired = true},
                                      [&](const NSAttributes& attributes, NSRange /*range*/, bool& stop) {
                                          properties = &runOf(attributes, style).properties;
                                          stop = true;
                                      });
    return *properties;
}

void WordRunWriting::applyLink(const Run& run)
{
    if (m_address == run.address && (m_address.empty() || m_toolTip == run.toolTip))
        return;
    closeLink();
    if (run.address.empty())
        return;
    m_address = run.address;
    m_toolTip = run.toolTip;
    m_xml.raw("<w:hyperlink");
    m_xml.attribute("r:id", std::string_view(m_relationships.addLink(m_address)));
    if (!m_toolTip.empty())
        m_xml.attribute("w:tooltip", std::u16string_view(m_toolTip));
    m_xml.raw(">");
}

void WordRunWriting::closeLink()
{
    if (m_address.empty())
        return;
    m_xml.raw("</w:hyperlink>");
    m_address.clear();
}

void WordRunWriting::writeRun(const Run& run, std::u16string_view text)
{
    while (run.attachment && !text.empty()) {
        const auto place = std::min(text.find(NSAttachmentCharacter), text.size());
        writePieces(run, text.substr(0, place));
        text.remove_prefix(place);
        if (text.empty())
            return;
        writeAttachment(run);
        text.remove_prefix(1);
    }
    writePieces(run, text);
}

void WordRunWriting::writePieces(const Run& run, std::u16string_view text)
{
    while (!text.empty()) {
        const auto piece = wordDirectionPiece(text);
        writePiece(run, text.substr(0, piece.length), piece.isRightToLeft);
        text.remove_prefix(piece.length);
    }
}

void WordRunWriting::writePiece(const Run& run, std::u16string_view text, bool isRightToLeft)
{
    m_xml.raw("<w:r>");
    if (isRightToLeft || !run.properties.empty()) {
        m_xml.raw("<w:rPr>");
        m_xml.raw(run.properties);
        m_xml.raw(isRightToLeft ? "<w:rtl/></w:rPr>" : "</w:rPr>");
    }
    writeCharacters(text);
    m_xml.raw("</w:r>");
}

void WordRunWriting::writeCharacters(std::u16string_view text)
{
    while (!text.empty()) {
        const auto* const end = std::find_if(text.begin(), text.end(), isElement);
        const auto length = static_cast<std::size_t>(end - text.begin());
        if (length > 0) {
            m_xml.raw("<w:t xml:space=\"preserve\">");
            m_xml.text(text.substr(0, length));
            m_xml.raw("</w:t>");
        }
        text.remove_prefix(length);
        if (text.empty())
            return;
        m_xml.raw(elementOf(text.front()));
        text.remove_prefix(1);
    }
}

void WordRunWriting::writeAttachment(const Run& run)
{
    m_xml.raw("<w:r>");
    if (!run.properties.empty()) {
        m_xml.raw("<w:rPr>");
        m_xml.raw(run.properties);
        m_xml.raw("</w:rPr>");
    }
    m_pictures.write(m_xml, *run.attachment, run.toolTip);
    m_xml.raw("</w:r>");
}
