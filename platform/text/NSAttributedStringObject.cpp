#include "platform/text/NSAttributedStringObject.h"

#include "platform/foundation/NSCoder.h"
#include "platform/text/AttributeRunTable.h"
#include "platform/text/AttributedText.h"
#include "platform/text/TextClasses.h"

#include <functional>
#include <unordered_map>
#include <utility>

namespace {

constexpr std::string_view kStringKey = "NSString";
constexpr std::string_view kAttributesKey = "NSAttributes";
constexpr std::string_view kAttributeInfoKey = "NSAttributeInfo";

/// What attributes may be of in an archive that is read with secure coding: every class of this layer.
const NSClassList& archivableClasses()
{
    static const NSClassList classes = [] {
        NSClassList all;
        for (const auto& [name, description] : textClasses().classes())
            all.push_back(description);
        return all;
    }();
    return classes;
}

void fail(NSCoder& coder, std::string_view why)
{
    coder.failWithError(
        NSError::errorWithCode(NSCocoaError::CoderReadCorrupt, "Attributed string: " + std::string(why)));
}

/// Puts the archived runs on `text`. False after failing the coder.
bool decodeRuns(NSCoder& coder, const NSAny::Array& dictionaries, std::u16string_view characters,
                AttributedText& text)
{
    const auto table = coder.decodeBytesForKey(kAttributeInfoKey);
    const auto runs = table ? runsFromTable(*table, characters.size()) : std::nullopt;
    if (!runs) {
        fail(coder, "the table of its runs is damaged");
        return false;
    }
    for (const auto& run : *runs) {
        const auto attributes = run.attributesIndex < dictionaries.size()
            ? dictionaries[run.attributesIndex].sharedDictionary()
            : nullptr;
        if (!attributes) {
            fail(coder, "a run has no attributes");
            return false;
        }
        text.replace({text.length(), 0}, characters.substr(text.length(), run.length), attributes);
    }
    return true;
}

bool decodeText(NSCoder& coder, AttributedText& text)
{
    const auto string = coder.decodeObjectOfClass(NSStringClass, kStringKey);
    if (string.isNil())
        return true;
    if (!string.string()) {
        fail(coder, "its text is none");
        return false;
    }
    const std::u16string_view characters = *string.string();
    const auto attributes = coder.decodeObjectOfClasses(archivableClasses(), kAttributesKey);
    if (characters.empty())
        return true;
    if (const auto* dictionaries = attributes.array())
        return decodeRuns(coder, *dictionaries, characters, text);
    if (attributes && !attributes.dictionary()) {
        fail(coder, "its attributes are none");
        return false;
    }
    text.replace({}, characters,
                 attributes ? attributes.sharedDictionary() : std::make_shared<const NSAttributes>());
    return true;
}

void encodeRuns(NSCoder& coder, const AttributeRuns& runs)
{
    NSAny::Array dictionaries;
    std::unordered_map<const NSAttributes*, std::size_t> indices;
    std::string table;
    for (std::size_t index = 0; index < runs.count(); ++index) {
        const auto& attributes = runs.attributesAt(index);
        const auto [known, isNew] = indices.try_emplace(attributes.get(), dictionaries.size());
        if (isNew)
            dictionaries.emplace_back(attributes);
        appendRun(table, {runs.rangeAt(index).length, known->second});
    }
    coder.encodeMutableArray(dictionaries, kAttributesKey);
    coder.encodeMutableData(table, kAttributeInfoKey);
}

} // namespace

NSAttributedStringObject::NSAttributedStringObject(NSAttributedString text, Form form)
    : m_text(std::move(text))
    , m_form(form)
{
}

const NSClass& NSAttributedStringObject::classObject()
{
    static const NSClass description{"NSAttributedString", &NSObjectClass,
                                     [](NSCoder& coder) { return initWithCoder(coder, Form::Immutable); }};
    return description;
}

const NSClass& NSAttributedStringObject::mutableClassObject()
{
    static const NSClass description{"NSMutableAttributedString", &classObject(),
                                     [](NSCoder& coder) { return initWithCoder(coder, Form::Mutable); }};
    return description;
}

const NSClass& NSAttributedStringObject::textStorageClassObject()
{
    static const NSClass description{"NSTextStorage", &mutableClassObject(),
                                     [](NSCoder& coder) { return initWithCoder(coder, Form::Mutable); }};
    return description;
}

bool NSAttributedStringObject::isEqual(const NSObject& other) const
{
    const auto* otherText = dynamic_cast<const NSAttributedStringObject*>(&other);
    return otherText && m_text == otherText->m_text;
}

std::size_t NSAttributedStringObject::hash() const
{
    return std::hash<std::u16string_view>()(m_text.string());
}

const NSClass& NSAttributedStringObject::classForCoder() const
{
    return m_form == Form::Mutable ? mutableClassObject() : classObject();
}

NSAny NSAttributedStringObject::initWithCoder(NSCoder& coder, Form form)
{
    NSAttributedString string;
    if (!decodeText(coder, *string.m_text))
        return {};
    return std::make_shared<const NSAttributedStringObject>(std::move(string), form);
}

void NSAttributedStringObject::encodeWithCoder(NSCoder& coder) const
{
    if (m_form == Form::Mutable)
        coder.encodeMutableString(m_text.string(), kStringKey);
    else
        coder.encodeObject(m_text.string(), kStringKey);
    const auto& runs = m_text.m_text->runs();
    if (runs.count() == 1)
        coder.encodeObject(runs.attributesAt(0), kAttributesKey);
    else if (runs.count() > 1)
        encodeRuns(coder, runs);
}
