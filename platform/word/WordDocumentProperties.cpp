#include "platform/word/WordDocumentProperties.h"

#include "platform/foundation/Unicode.h"
#include "platform/text/NSDocumentAttributes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <optional>

namespace {

constexpr std::size_t kMostValueBytes = 4096;
/// The properties' elements stand right in the outermost one.
constexpr std::size_t kPropertyDepth = 2;

enum class Kind { Text, Words, Date };

struct Property {
    std::string_view element;
    std::u16string_view attribute;
    Kind kind;
};

constexpr std::array<Property, 11> kProperties{
    {{"title", NSTitleDocumentAttribute, Kind::Text},
     {"creator", NSAuthorDocumentAttribute, Kind::Text},
     {"subject", NSSubjectDocumentAttribute, Kind::Text},
     {"description", NSCommentDocumentAttribute, Kind::Text},
     {"lastModifiedBy", NSEditorDocumentAttribute, Kind::Text},
     {"category", NSCategoryDocumentAttribute, Kind::Text},
     {"Company", NSCompanyDocumentAttribute, Kind::Text},
     {"Manager", NSManagerDocumentAttribute, Kind::Text},
     {"keywords", NSKeywordsDocumentAttribute, Kind::Words},
     {"created", NSCreationTimeDocumentAttribute, Kind::Date},
     {"modified", NSModificationTimeDocumentAttribute, Kind::Date}}};

std::u16string_view trimmed(std::u16string_view text)
{
    constexpr std::u16string_view kBlanks = u" \t\r\n";
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::u16string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

NSAny wordsOf(std::u16string_view text)
{
    NSAny::Array words;
    while (!text.empty()) {
        const auto end = std::min(text.find_first_of(u",;"), text.size());
        if (const auto word = trimmed(text.substr(0, end)); !word.empty())
            words.emplace_back(word);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words.empty() ? NSAny() : NSAny(std::move(words));
}

std::optional<int> digits(std::string_view text, std::size_t start, std::size_t count)
{
    if (text.size() < start + count)
        return std::nullopt;
    int number = 0;
    const auto part = text.substr(start, count);
    const auto result = std::from_chars(part.data(), part.data() + part.size(), number);
    const bool isWhole = result.ec == std::errc() && result.ptr == part.data() + part.size() && number >= 0;
    return isWhole ? std::optional(number) : std::nullopt;
}

NSAny valueOf(std::string_view bytes, Kind kind)
{
    if (kind == Kind::Date)
        return wordDate(bytes);
    const auto text = UTF16FromUTF8(bytes);
    const auto value = trimmed(text);
    if (kind == Kind::Words)
        return wordsOf(value);
    return value.empty() ? NSAny() : NSAny(value);
}

} // namespace

NSAny wordDate(std::string_view text)
{
    using namespace std::chrono;
    constexpr std::size_t kTimeLength = 19;
    const auto yearNumber = digits(text, 0, 4);
    const auto monthNumber = digits(text, 5, 2);
    const auto dayNumber = digits(text, 8, 2);
    if (!yearNumber || !monthNumber || !dayNumber)
        return {};
    const year_month_day date{year(*yearNumber), month(static_cast<unsigned>(*monthNumber)),
                              day(static_cast<unsigned>(*dayNumber))};
    if (!date.ok())
        return {};
    auto moment = seconds(sys_days(date) - sys_days(year(2001) / January / 1));
    if (text.size() >= kTimeLength) {
        const auto hour = digits(text, 11, 2);
        const auto minute = digits(text, 14, 2);
        const auto second = digits(text, 17, 2);
        if (!hour || !minute || !second)
            return {};
        moment += hours(*hour) + minutes(*minute) + seconds(*second);
    }
    return NSAny(NSDate{static_cast<double>(moment.count())});
}

void WordDocumentProperties::startElement(std::string_view, const XMLAttributes&)
{
    if (++m_depth == kPropertyDepth)
        m_value.clear();
}

void WordDocumentProperties::endElement(std::string_view localName)
{
    if (m_depth-- != kPropertyDepth)
        return;
    const auto* const property
        = std::find_if(kProperties.begin(), kProperties.end(),
                       [localName](const Property& row) { return row.element == localName; });
    if (property == kProperties.end())
        return;
    if (auto value = valueOf(m_value, property->kind))
        m_attributes.emplace(property->attribute, std::move(value));
}

void WordDocumentProperties::text(std::string_view text)
{
    if (m_depth == kPropertyDepth && m_value.size() + text.size() <= kMostValueBytes)
        m_value += text;
}
