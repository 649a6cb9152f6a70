#include "platform/text/AttributedText.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedString.h"

#include <algorithm>
#include <utility>

namespace {

/// Applies `edit` to the attributes of each run. Runs that share their attributes go on sharing them.
template <typename Edit> AttributeRuns::Change editing(AttributedText& text, Edit edit)
{
    return [&text, edit, before = SharedAttributes(),
            after = SharedAttributes()](const SharedAttributes& attributes) mutable {
        if (attributes != before) {
            auto changed = *attributes;
            edit(changed);
            before = attributes;
            after = text.shared(std::move(changed));
        }
        return after;
    };
}

void assign(NSAttributes& attributes, std::u16string_view name, const NSAny& value)
{
    if (const auto found = attributes.find(name); found != attributes.end()) {
        if (value)
            found->second = value;
        else
            attributes.erase(found);
    } else if (value) {
        attributes.emplace(name, value);
    }
}

} // namespace

NSMutableAttributedString::NSMutableAttributedString(NSAttributedString text)
    : NSAttributedString(std::move(text))
{
}

/// The text for changing: copied first when others have it too.
AttributedText& NSMutableAttributedString::mutableText()
{
    if (m_text.use_count() > 1)
        m_text = std::make_shared<AttributedText>(*m_text);
    return *m_text;
}

void NSMutableAttributedString::noteEdit(NSRange range, NSUInteger newLength)
{
    if (m_editingDepth == 0)
        return;
    const NSRange edited{range.location, newLength};
    if (!m_editedRange) {
        m_editedRange = edited;
        return;
    }
    // The earlier range as it lies after this edit.
    auto earlierEnd = NSMaxRange(*m_editedRange);
    if (earlierEnd >= NSMaxRange(range))
        earlierEnd = earlierEnd - range.length + newLength;
    const auto start = std::min(m_editedRange->location, edited.location);
    m_editedRange = NSRange{start, std::max(earlierEnd, NSMaxRange(edited)) - start};
}

void NSMutableAttributedString::replaceCharactersInRange(NSRange range, std::u16string_view string)
{
    const auto replaced = clamped(range);
    auto& text = mutableText();
    auto attributes = text.shared({});
    if (text.length() > 0) {
        auto model = replaced.location;
        if (replaced.length == 0)
            model = model > 0 ? model - 1 : 0;
        attributes = text.runs().attributesAt(text.runs().indexAt(model));
    }
    text.replace(replaced, string, attributes);
    noteEdit(replaced, string.size());
}

void NSMutableAttributedString::replaceCharactersInRange(NSRange range, const NSAttributedString& text)
{
    // Keeps the other text as it is even when it is this one.
    const auto other = text;
    const auto replaced = clamped(range);
    mutableText().replace(replaced, textOf(other), {0, other.length()});
    noteEdit(replaced, other.length());
}

void NSMutableAttributedString::insertAttributedString(const NSAttributedString& text, NSUInteger location)
{
    replaceCharactersInRange({location, 0}, text);
}

void NSMutableAttributedString::appendAttributedString(const NSAttributedString& text)
{
    replaceCharactersInRange({length(), 0}, text);
}

void NSMutableAttributedString::deleteCharactersInRange(NSRange range)
{
    replaceCharactersInRange(range, std::u16string_view());
}

void NSMutableAttributedString::setAttributedString(const NSAttributedString& text)
{
    const auto lengthBefore = length();
    NSAttributedString::operator=(text);
    noteEdit({0, lengthBefore}, length());
}

void NSMutableAttributedString::addAttribute(std::u16string_view name, const NSAny& value, NSRange range)
{
    const auto changed = clamped(range);
    auto& text = mutableText();
    text.transformAttributes(
        changed, editing(text, [&](NSAttributes& attributes) { assign(attributes, name, value); }));
    noteEdit(changed, changed.length);
}

void NSMutableAttributedString::addAttributes(const NSAttributes& attributes, NSRange range)
{
    const auto changed = clamped(range);
    auto& text = mutableText();
    text.transformAttributes(changed, editing(text, [&](NSAttributes& edited) {
                                 for (const auto& [name, value] : attributes)
                                     assign(edited, name, value);
                             }));
    noteEdit(changed, changed.length);
}

void NSMutableAttributedString::setAttributes(const NSAttributes& attributes, NSRange range)
{
    const auto changed = clamped(range);
    auto& text = mutableText();
    const auto shared = text.shared(attributes);
    text.transformAttributes(changed, [&](const SharedAttributes&) { return shared; });
    noteEdit(changed, changed.length);
}

void NSMutableAttributedString::removeAttribute(std::u16string_view name, NSRange range)
{
    addAttribute(name, NSAny(), range);
}

void NSMutableAttributedString::beginEditing()
{
    ++m_editingDepth;
}

void NSMutableAttributedString::endEditing()
{
    if (m_editingDepth == 0 || --m_editingDepth > 0)
        return;
    if (const auto edited = std::exchange(m_editedRange, std::nullopt))
        fixAttachmentAttributeInRange(*edited);
}

void NSMutableAttributedString::fixAttributesInRange(NSRange range)
{
    fixAttachmentAttributeInRange(range);
    fixParagraphStyleAttributeInRange(range);
}

void NSMutableAttributedString::fixAttachmentAttributeInRange(NSRange range)
{
    enumerateAttribute(NSAttachmentAttributeName, range, {},
                       [this](const NSAny& value, NSRange run, bool& /*stop*/) {
                           if (!value)
                               return;
                           auto start = run.location;
                           for (auto index = start; index < NSMaxRange(run); ++index) {
                               if (characterAtIndex(index) != NSAttachmentCharacter)
                                   continue;
                               removeAttribute(NSAttachmentAttributeName, {start, index - start});
                               start = index + 1;
                           }
                           removeAttribute(NSAttachmentAttributeName, {start, NSMaxRange(run) - start});
                       });
}

void NSMutableAttributedString::fixParagraphStyleAttributeInRange(NSRange range)
{
    const auto paragraphs = paragraphRangeForRange(range);
    for (auto location = paragraphs.location; location < NSMaxRange(paragraphs);) {
        const auto paragraph = paragraphRangeAtIndex(location);
        NSRange run;
        const auto style = attribute(NSParagraphStyleAttributeName, paragraph.location, &run, paragraph);
        if (run != paragraph)
            addAttribute(NSParagraphStyleAttributeName, style, paragraph);
        location = NSMaxRange(paragraph);
    }
}
