#include "platform/rtf/RTFRunWriting.h"

#include "platform/rtf/RTFLinks.h"
#include "platform/rtf/RTFUnits.h"
#include "platform/text/NSAttributeNames.h"

#include <algorithm>
#include <functional>

namespace {

/// Behind the group of an attachment; no text of any reader.
constexpr std::string_view kAttachmentPlaceholder = "\xAC";

NSAny valueOf(const NSAttributes& attributes, std::u16string_view name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? NSAny() : found->second;
}

} // namespace

RTFRunWriting::RTFRunWriting(RTFOutput& output, const NSAttributedString& text, RTFColorWriting& colors,
                             const RTFAttachmentNamer& nameOfAttachment)
    : m_output(output)
    , m_text(text)
    , m_characters(text.string())
    , m_colors(colors)
    , m_nameOfAttachment(nameOfAttachment)
    , m_runs(kRunPlaces)
{
    m_written.size = kNotWritten;
    m_written.color = kNotWritten;
}

const RTFRunWriting::Run& RTFRunWriting::runOf(const NSAttributes& attributes)
{
    auto& run = m_runs[std::hash<const NSAttributes*>()(&attributes) / alignof(NSAttributes) % kRunPlaces];
    if (run.attributes == &attributes)
        return run;
    run.attributes = &attributes;
    run.format = characterFormatOf(attributes, m_fonts, m_colors);
    run.address = addressOfLink(valueOf(attributes, NSLinkAttributeName));
    run.attachment = valueOf(attributes, NSAttachmentAttributeName).mutableObject<NSTextAttachment>();
    return run;
}

void RTFRunWriting::applyFormat(const RTFCharacterFormat& format)
{
    writeCharacterChange(m_output, m_written, format);
    m_written = format;
}

void RTFRunWriting::writeMarker(NSRange marker)
{
    std::optional<RTFCharacterFormat> first;
    m_text.enumerateAttributesInRange(marker, {},
                                      [&](const NSAttributes& attributes, NSRange range, bool& /*stop*/) {
                                          const auto& run = runOf(attributes);
                                          applyFormat(run.format);
                                          if (!first) {
                                              first = run.format;
                                              m_output.beginGroup();
                                              m_output.word("listtext");
                                          }
                                          m_output.text(m_characters.substr(range.location, range.length));
                                      });
    m_output.endGroup();
    m_written = first.value_or(m_written);
}

void RTFRunWriting::writeContent(NSRange content, NSRange end)
{
    m_text.enumerateAttributesInRange(content, {},
                                      [&](const NSAttributes& attributes, NSRange range, bool& /*stop*/) {
                                          const auto& run = runOf(attributes);
                                          applyLink(run);
                                          writeCharacters(run, range);
                                      });
    closeLink();
    m_text.enumerateAttributesInRange(end, {},
                                      [&](const NSAttributes& attributes, NSRange /*range*/, bool& stop) {
                                          applyFormat(runOf(attributes).format);
                                          stop = true;
                                      });
}

void RTFRunWriting::applyLink(const Run& run)
{
    if (m_address != run.address)
        closeLink();
    applyFormat(run.format);
    if (!run.address || m_address)
        return;
    writeLinkStart(m_output, *run.address);
    m_address = run.address;
    m_formatOfLink = m_written;
}

void RTFRunWriting::closeLink()
{
    if (!m_address)
        return;
    writeLinkEnd(m_output);
    m_written = m_formatOfLink;
    m_address.reset();
}

void RTFRunWriting::writeCharacters(const Run& run, NSRange range)
{
    auto rest = m_characters.substr(range.location, range.length);
    while (run.attachment && !rest.empty()) {
        const auto place = std::min(rest.find(NSAttachmentCharacter), rest.size());
        m_output.text(rest.substr(0, place));
        rest.remove_prefix(place);
        if (rest.empty())
            return;
        writeAttachment(run.attachment);
        rest.remove_prefix(1);
    }
    m_output.text(rest);
}

void RTFRunWriting::writeAttachment(const std::shared_ptr<NSTextAttachment>& attachment)
{
    const auto name = m_nameOfAttachment(attachment);
    if (name.empty())
        return;
    m_output.beginGroup();
    m_output.beginGroup();
    m_output.word("NeXTGraphic");
    m_output.escapedBytes(name);
    const auto size = attachment->bounds().size;
    m_output.raw(" ");
    m_output.word("width", twipsFromPoints(size.width));
    m_output.blank();
    m_output.word("height", twipsFromPoints(size.height));
    m_output.raw(" \\appleattachmentpadding0 \\appleembedtype0 \\appleaqc\n}");
    m_output.raw(kAttachmentPlaceholder);
    m_output.endGroup();
}
