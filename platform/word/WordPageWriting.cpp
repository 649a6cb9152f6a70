#include "platform/word/WordPageWriting.h"

#include "platform/foundation/NSValue.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSDocumentAttributes.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/word/WordUnits.h"

#include <algorithm>

namespace {

constexpr NSSize kUsualPaper{612, 792};
constexpr double kUsualMargin = 72;
constexpr double kLeastTextWidth = 72;
constexpr double kUsualTabInterval = 28;
constexpr double kHeaderDistance = 36;

NSAny valueOf(const NSAny::Dictionary& attributes, std::u16string_view name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? NSAny() : found->second;
}

double intervalOf(const std::vector<WordAttributeSet>& sets)
{
    for (const auto& set : sets) {
        const auto style = valueOf(*set.attributes, NSParagraphStyleAttributeName).object<NSParagraphStyle>();
        if (style && style->defaultTabInterval() > 0)
            return style->defaultTabInterval();
    }
    return kUsualTabInterval;
}

} // namespace

double WordPage::textWidth() const
{
    return std::max(paper.width - margins.left - margins.right, kLeastTextWidth);
}

WordPage wordPageOf(const NSAny::Dictionary& documentAttributes, const std::vector<WordAttributeSet>& sets)
{
    const auto margin = [&documentAttributes](std::u16string_view name) {
        const auto value = valueOf(documentAttributes, name);
        return value.isNumber() ? std::max(value.doubleValue(), 0.0) : kUsualMargin;
    };
    WordPage page{kUsualPaper,
                  {margin(NSTopMarginDocumentAttribute), margin(NSLeftMarginDocumentAttribute),
                   margin(NSBottomMarginDocumentAttribute), margin(NSRightMarginDocumentAttribute)},
                  valueOf(documentAttributes, NSDefaultTabIntervalDocumentAttribute).doubleValue()};
    const auto paper = valueOf(documentAttributes, NSPaperSizeDocumentAttribute).object<NSValue>();
    const auto* const size = paper ? paper->get<NSSize>() : nullptr;
    if (size && size->width > 0 && size->height > 0)
        page.paper = *size;
    if (!(page.tabInterval > 0))
        page.tabInterval = intervalOf(sets);
    return page;
}

void writeWordSection(WordXML& xml, const WordPage& page)
{
    xml.raw("<w:sectPr><w:pgSz");
    xml.attribute("w:w", wordTwips(page.paper.width));
    xml.attribute("w:h", wordTwips(page.paper.height));
    if (page.paper.width > page.paper.height)
        xml.raw(" w:orient=\"landscape\"");
    xml.raw("/><w:pgMar");
    xml.attribute("w:top", wordTwips(page.margins.top));
    xml.attribute("w:right", wordTwips(page.margins.right));
    xml.attribute("w:bottom", wordTwips(page.margins.bottom));
    xml.attribute("w:left", wordTwips(page.margins.left));
    xml.attribute("w:header", wordTwips(kHeaderDistance));
    xml.attribute("w:footer", wordTwips(kHeaderDistance));
    xml.raw(" w:gutter=\"0\"/></w:sectPr>");
}

std::string wordSettingsPart(const WordPage& page)
{
    WordXML xml;
    xml.raw(kWordXMLDeclaration);
    xml.raw("<w:settings");
    xml.raw(kWordNamespace);
    xml.raw(">");
    xml.property("w:defaultTabStop", std::max<std::int64_t>(wordTwips(page.tabInterval), 1));
    // Without it word processors lay the text out as those of old did.
    xml.raw("<w:compat><w:compatSetting w:name=\"compatibilityMode\" "
            "w:uri=\"http://schemas.microsoft.com/office/word\" w:val=\"15\"/></w:compat></w:settings>");
    return xml.takeBytes();
}
