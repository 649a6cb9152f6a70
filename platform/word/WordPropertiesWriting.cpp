#include "platform/word/WordPropertiesWriting.h"

#include "platform/text/NSDocumentAttributes.h"
#include "platform/word/WordXML.h"

#include <fmt/format.h>

#include <array>
#include <chrono>
#include <cmath>
#include <span>

namespace {

struct Property {
    std::string_view element;
    std::u16string_view attribute;
};

constexpr std::array<Property, 7> kCoreTexts{{{"dc:title", NSTitleDocumentAttribute},
                                              {"dc:subject", NSSubjectDocumentAttribute},
                                              {"dc:creator", NSAuthorDocumentAttribute},
                                              {"cp:keywords", NSKeywordsDocumentAttribute},
                                              {"dc:description", NSCommentDocumentAttribute},
                                              {"cp:lastModifiedBy", NSEditorDocumentAttribute},
                                              {"cp:category", NSCategoryDocumentAttribute}}};

constexpr std::array<Property, 2> kCoreDates{{{"dcterms:created", NSCreationTimeDocumentAttribute},
                                              {"dcterms:modified", NSModificationTimeDocumentAttribute}}};

constexpr std::array<Property, 2> kExtendedTexts{
    {{"Manager", NSManagerDocumentAttribute}, {"Company", NSCompanyDocumentAttribute}}};

NSAny valueOf(const NSAny::Dictionary& attributes, std::u16string_view name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? NSAny() : found->second;
}

/// The text of a value; several are parted by commas.
std::u16string textOf(const NSAny& value)
{
    if (const auto* const text = value.string())
        return *text;
    std::u16string joined;
    const auto* const entries = value.array();
    for (const auto& entry : entries ? *entries : NSAny::Array()) {
        if (!entry.string())
            continue;
        joined += joined.empty() ? u"" : u", ";
        joined += *entry.string();
    }
    return joined;
}

void writeTexts(WordXML& xml, std::span<const Property> properties, const NSAny::Dictionary& attributes)
{
    for (const auto& property : properties) {
        const auto text = textOf(valueOf(attributes, property.attribute));
        if (text.empty())
            continue;
        xml.raw(fmt::format("<{}>", property.element));
        xml.text(text);
        xml.raw(fmt::format("</{}>", property.element));
    }
}

/// In whole seconds; empty for years that have no four digits.
std::string dateText(NSDate date)
{
    using namespace std::chrono;
    constexpr double kMostSeconds = 250'000'000'000;
    const auto seconds = std::floor(date.timeIntervalSinceReferenceDate);
    if (!(std::abs(seconds) < kMostSeconds))
        return {};
    const auto moment = sys_days(year(2001) / January / 1) + std::chrono::seconds(std::llround(seconds));
    const auto day = floor<days>(moment);
    const year_month_day calendar(day);
    const hh_mm_ss time(moment - day);
    if (calendar.year() < year(1) || calendar.year() > year(9999))
        return {};
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", static_cast<int>(calendar.year()),
                       static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()),
                       time.hours().count(), time.minutes().count(), time.seconds().count());
}

void writeDates(WordXML& xml, const NSAny::Dictionary& attributes)
{
    for (const auto& property : kCoreDates) {
        const auto date = valueOf(attributes, property.attribute).date();
        const auto text = date ? dateText(*date) : std::string();
        if (!text.empty())
            xml.raw(fmt::format("<{0} xsi:type=\"dcterms:W3CDTF\">{1}</{0}>", property.element, text));
    }
}

} // namespace

std::string wordCorePropertiesPart(const NSAny::Dictionary& documentAttributes)
{
    WordXML properties;
    writeTexts(properties, kCoreTexts, documentAttributes);
    writeDates(properties, documentAttributes);
    if (properties.isEmpty())
        return {};
    std::string part(kWordXMLDeclaration);
    part += "<cp:coreProperties "
            "xmlns:cp=\"http://schemas.openxmlformats.org/package/2006/metadata/core-properties\""
            " xmlns:dc=\"http://purl.org/dc/elements/1.1/\" xmlns:dcterms=\"http://purl.org/dc/terms/\""
            " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">";
    return part.append(properties.bytes()).append("</cp:coreProperties>");
}

std::string wordExtendedPropertiesPart(const NSAny::Dictionary& documentAttributes)
{
    WordXML properties;
    writeTexts(properties, kExtendedTexts, documentAttributes);
    if (properties.isEmpty())
        return {};
    std::string part(kWordXMLDeclaration);
    part
        += "<Properties xmlns=\"http://schemas.openxmlformats.org/officeDocument/2006/extended-properties\">";
    return part.append(properties.bytes()).append("</Properties>");
}
