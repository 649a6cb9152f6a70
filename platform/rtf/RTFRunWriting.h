#pragma once

#include "platform/rtf/RTFCharacterWriting.h"
#include "platform/text/NSTextAttachment.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// Gives the name of the file that an attachment is written as, UTF-8; empty to leave it out.
using RTFAttachmentNamer = std::function<std::string(const std::shared_ptr<NSTextAttachment>& attachment)>;

/// Writes the characters of a text with their looks, links and attachments.
class RTFRunWriting {
public:
    /// All of them must outlive it.
    RTFRunWriting(RTFOutput& output, const NSAttributedString& text, RTFColorWriting& colors,
                  const RTFAttachmentNamer& nameOfAttachment);

    /// Writes the marker of a list's paragraph, in a group of its own.
    void writeMarker(NSRange marker);
    /// Writes what lies within a paragraph; of its end, `end`, which may be empty, only the looks.
    void writeContent(NSRange content, NSRange end);

    /// The foreground colour is to be said again, as the platform does behind \pard.
    void repeatColor() { m_written.color = kNotWritten; }

    [[nodiscard]] const RTFFontWriting& fonts() const { return m_fonts; }

private:
    /// What is written of a run's attributes.
    struct Run {
        const NSAttributes* attributes = nullptr;
        RTFCharacterFormat format;
        std::optional<std::string> address;
        std::shared_ptr<NSTextAttachment> attachment;
    };

    static constexpr std::int32_t kNotWritten = -1;
    static constexpr std::size_t kRunPlaces = 1024;

    [[nodiscard]] const Run& runOf(const NSAttributes& attributes);
    void applyFormat(const RTFCharacterFormat& format);
    void applyLink(const Run& run);
    void closeLink();
    void writeCharacters(const Run& run, NSRange range);
    void writeAttachment(const std::shared_ptr<NSTextAttachment>& attachment);

    RTFOutput& m_output;
    const NSAttributedString& m_text;
    std::u16string_view m_characters;
    RTFColorWriting& m_colors;
    const RTFAttachmentNamer& m_nameOfAttachment;
    RTFFontWriting m_fonts;
    /// Those met not long ago: runs mostly share their attributes. The place is by the attributes' address.
    std::vector<Run> m_runs;
    RTFCharacterFormat m_written;
    std::optional<std::string> m_address;
    /// What holds again behind the link.
    RTFCharacterFormat m_formatOfLink;
};
